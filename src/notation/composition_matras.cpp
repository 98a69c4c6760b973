// Matra counts of a composition's parts.
#include "notation/composition_matras.h"

#include <algorithm>
#include <cmath>

#include "core/errors.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"

namespace {

// Sum of a part's matra words, in single precision.
float sumMatras(const std::string& notesDuration) {
  float sum = 0;
  for (const std::string& word : fSplitWords(notesDuration, " "))
    sum += static_cast<float>(fNumericValue(word));
  return sum;
}

}  // namespace

CompositionMatraCount fCountCompositionMatras(const std::optional<CompositionPartMatras>& asthai,
                                              const std::optional<CompositionPartMatras>& antara) {
  NV_PROC("fCountCompositionMatras");
  CompositionMatraCount count;
  float asthaiLength = 0;
  if (asthai) {
    asthaiLength = sumMatras(asthai->notesDuration);
    count.asthaiMatras = fRoundToInt16(asthaiLength);
    asthaiLength += static_cast<float>(asthai->startingBeat - 1);
  }
  float antaraLength = 0;
  if (antara) {
    antaraLength = sumMatras(antara->notesDuration) + static_cast<float>(antara->startingBeat - 1);
    count.antaraMatras = fRoundToInt16(antaraLength);
  }
  const double longer = std::floor(std::max(asthaiLength, antaraLength));
  count.gridMatras = fRoundToInt16(longer);
  return count;
}
