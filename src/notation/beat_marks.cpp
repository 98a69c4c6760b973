// Beat-marked text of a composition part.
#include "notation/beat_marks.h"

#include <vector>

#include "core/errors.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"

std::string fCreateBeatMarkedString(const std::string& words, const std::string& durations,
                                    int beatCount, int startingBeat, const std::string& mark) {
  NV_PROC("fCreateBeatMarkedString");
  const std::vector<std::string> notes = fSplitWords(words, " ");
  const std::vector<std::string> lengths = fSplitWords(durations, " ");
  double position = startingBeat;
  bool onBeatOne = position == 1.0;
  std::string out;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    out += "   ";
    if (onBeatOne) out += mark;
    out += notes[i];
    position += i < lengths.size() ? fNumericValue(lengths[i]) : 0.0;
    if (position < beatCount + 1) {
      onBeatOne = false;
    } else {
      onBeatOne = true;
      position -= beatCount;
    }
  }
  return out;
}
