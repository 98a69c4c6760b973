// Preparing the composition at hand (see composition_prep.h).
#include "sound/composition_prep.h"

#include <cassert>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "notation/durations.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "sound/music_buffers.h"
#include "sound/phrase_loading.h"
#include "sound/play_state.h"
#include "sound/theka_tokens.h"
#include "store/lookups.h"
#include "store/tala_beats.h"
#include "store/working_record_comp.h"
#include "store/working_record_comp_text.h"

namespace {

constexpr std::int16_t kComparisonKind = 7;
constexpr std::int16_t kCompositionKind = 8;
constexpr std::int16_t kSyllables = 1;

void sCaptionComparison() {
  gMusicBuffers[0].Caption = fComparisonCaption(0);
  gMusicBuffers[1].Caption = fComparisonCaption(1);
}

// Caption, starting beat, theka and beat count of part `part` (1 Asthai,
// 2 Antara) in buffer part - 1; `heading` names the composition and tala.
void sPreparePart(std::int16_t part, const std::string& heading, const char* partName) {
  const CompPartRecord& record = gCompInfo[static_cast<std::size_t>(part - 1)];
  MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(part - 1)];
  buffer.Caption = heading + "(" + record.Text + partName + fCreateCompStringFromT(part, kSyllables);
  buffer.StartingBeat = record.StartingBeat;
  buffer.Theka = fCreateTalaStringForCompFromT(part, static_cast<std::int16_t>(gThekaInstrument));
  buffer.BeatCount = fGetBeatCountForPhrase(record.NotesDuration);
}

void sPrepareComposition() {
  const std::int16_t talaId = gCompInfo[0].TalaId;
  std::string talaName;
  if (talaId != 0) {
    gFormBeatCount = fGetBeatCountForTala(talaId);
    talaName = fGetTalaName(talaId);
  }
  const std::string heading = "Playing Composition '" + gCurrCompName + "'" + " in Taal '" +
                              talaName + "' - " + std::to_string(gFormBeatCount) + "Beats";
  sPreparePart(1, heading, " - Astai part) : ");
  sPreparePart(2, heading, " - Antara part) : ");
}

}  // namespace

std::string fComparisonCaption(std::size_t part) {
  assert(part < 2);
  return "Playing comparison of Ragas " + gCompInfo[0].Mukhada + " and " + gCompInfo[1].Mukhada +
         ". Currently playing " + gCompInfo[part].Mukhada;
}

void sPreprocCompDataFromT() {
  NV_PROC("sPreprocCompDataFromT");
  sLoadMNFromT(kUnsegmentedText);
  if (gCurrPhraseKind == kComparisonKind) sCaptionComparison();
  if (gCurrPhraseKind == kCompositionKind) sPrepareComposition();
  gPrefetchMode = kPrefetchNone;
}

namespace {

constexpr double kMatraTolerance = 1e-6;

// The matras of a blank-separated length list, or -1 when a word is not a
// positive number or the list does not give one length for each of `words`.
double fPartMatras(const std::string& lengths, const std::string& words) {
  const std::vector<std::string> items = fSplitWords(lengths, " ");
  if (items.size() != fSplitWords(words, " ").size()) return -1;
  double sum = 0;
  for (const std::string& item : items) {
    const double matras = fNumericValue(item);
    if (!(matras > 0)) return -1;
    sum += matras;
  }
  return sum;
}

// The fault of one present part, "" when it has none.
std::string fPartFault(const CompPartRecord& part, const char* partName) {
  const std::int16_t beats = fGetBeatCountForTala(part.TalaId);
  const std::string where = std::string(" its ") + partName;
  if (beats <= 0) return where + " has no tala with beats.";
  if (part.StartingBeat < 1 || part.StartingBeat > beats)
    return where + " starts on beat " + std::to_string(part.StartingBeat) + ", which its tala of " +
           std::to_string(beats) + " beats does not have.";
  const double syllables = fPartMatras(part.SyllableDuration, part.Syllables);
  const double notes = fPartMatras(part.NotesDuration, part.Notation);
  if (syllables < 0) return where + "'s syllables do not each have a length in matras.";
  if (notes < 0) return where + "'s notes do not each have a length in matras.";
  if (std::abs(syllables - notes) > kMatraTolerance)
    return where + "'s syllables last " + fFormatNumber(syllables) + " matras but its notes " +
           fFormatNumber(notes) + ".";
  const double lastSlot = notes + part.StartingBeat - 1;
  if (lastSlot > static_cast<double>(kMaxGridRows * beats))
    return where + "'s notes run past row " + std::to_string(kMaxGridRows) +
           ", the last row of the grid.";
  return "";
}

}  // namespace

std::string fCompositionRefusal() {
  NV_PROC("fCompositionRefusal");
  static constexpr const char* kPartNames[] = {"Asthai", "Antara"};
  for (std::size_t i = 0; i < 2; ++i) {
    const CompPartRecord& part = gCompInfo[i];
    if (part.NotationIndex == 0) continue;
    const std::string fault = fPartFault(part, kPartNames[i]);
    if (!fault.empty())
      return "The composition '" + gCurrCompName + "' cannot be played on the tala grid:" + fault +
             " Please correct it in the Composer.";
  }
  return "";
}
