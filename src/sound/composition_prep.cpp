// Preparing the composition at hand (see composition_prep.h).
#include "sound/composition_prep.h"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/errors.h"
#include "core/session.h"
#include "notation/durations.h"
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
