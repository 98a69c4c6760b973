// The current item's phrases (see phrase_loading.h).
#include "sound/phrase_loading.h"

#include <string>

#include "core/errors.h"
#include "core/session.h"
#include "display/notation_display.h"
#include "notation/durations.h"
#include "notation/phrase_forms.h"
#include "sound/music_buffers.h"
#include "sound/play_state.h"
#include "sound/speed_factor.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

namespace {

constexpr std::int16_t kNotes = 1;
constexpr std::int16_t kDurations = 2;
constexpr std::int16_t kTaan = 3;  // alt type of a taan
constexpr std::int16_t kCompositionKind = 8;
constexpr std::int16_t kFilmSongKind = 9;
// Duration kind that gives every taan note the same length.
constexpr std::int16_t kTaanDurationKind = 6;

// Without glides when the user plays no grace notes.
std::string glidesAsChosen(const std::string& notes) {
  return gGraceNotes == 1 ? fRemoveGlides(notes) : notes;
}

void addPhrase(const std::string& notes, const std::string& durations) {
  gPhraseSet.NotePhrases.push_back(notes);
  gPhraseSet.DurPhrases.push_back(durations);
  gPhraseSet.BaseDurPhrases.push_back(durations);
}

void loadScaleOrPakad(std::int16_t kind) {
  const bool scale = gCurrItemType == 1;
  const bool segmented = kind == kSegmentedText;
  const std::string notes =
      scale ? (segmented ? fGetFromT_ScalePhraseSeg(kNotes) : fGetFromT_ScalePhraseUnSeg(kNotes))
            : (segmented ? fGetFromT_PakadPhraseSeg(kNotes) : fGetFromT_PakadPhraseUnSeg(kNotes));
  addPhrase(glidesAsChosen(notes), scale ? fGetFromT_ScalePhraseUnSeg(kDurations)
                         : fGetFromT_PakadPhraseUnSeg(kDurations));
  gPrefetchMode = kPrefetchNone;
}

void loadAltPhrases(std::int16_t kind) {
  const auto altType = static_cast<std::int16_t>(gCurrItemType - 2);
  const std::int16_t phrases = fGetFromT_SegmentCount(gCurrDbSelector, altType);
  for (std::int16_t p = 1; p <= phrases; ++p) {
    const std::string notes = glidesAsChosen(
        kind == kSegmentedText ? fGetFromT_AnALTPhraseSeg(gCurrDbSelector, altType, kNotes, p)
                               : fGetFromT_AnALTPhraseUnSeg(gCurrDbSelector, altType, kNotes, p));
    addPhrase(notes, altType == kTaan
                         ? fCreateDurationPhrase(notes, kTaanDurationKind)
                         : fGetFromT_AnALTPhraseUnSeg(gCurrDbSelector, altType, kDurations, p));
  }
}

// A composition part's durations: its matras at the part's tempo, and at the
// slider's tempo outside Demo.
std::string compositionDurations(const CompPartRecord& part) {
  gBaseMatraMs = part.PlayingSpeed;
  const std::string durations = fConvertMatraToDuration(part.NotesDuration, gBaseMatraMs);
  return gCurrMode == 2 || gCurrMode == 3 ? fFactorTimingScript(durations, fCurrSliderValue()) : durations;
}

void loadCompositionParts() {
  if (gCurrPhraseKind == kFilmSongKind) {
    addPhrase(gCompInfo[0].Notation, gCompInfo[0].NotesDuration);
    return;
  }
  for (std::size_t part = 0; part < 2; ++part) {
    const bool composition = gCurrItemType == 6 && gCurrPhraseKind == kCompositionKind;
    addPhrase(gCompInfo[part].Notation, composition ? compositionDurations(gCompInfo[part])
                                                    : gCompInfo[part].NotesDuration);
  }
}

}  // namespace

void sLoadMNFromT(std::int16_t kind) {
  NV_PROC("sLoadMNFromT");
  gPhraseSet = PhraseSet{};
  switch (gCurrItemType) {
    case 1:
    case 2:
      loadScaleOrPakad(kind);
      break;
    case 3:
    case 4:
    case 5:
      loadAltPhrases(kind);
      break;
    case 6:
    case 7:
      loadCompositionParts();
      break;
    default:
      break;
  }
  gPhraseSet.Count = static_cast<std::int16_t>(gPhraseSet.NotePhrases.size());
  gPhraseSet.Position = gPhraseSet.Count;
}

void sLoadScriptFromMN(platform::Control& box) {
  NV_PROC("sLoadScriptFromMN");
  const std::int16_t count = gPhraseSet.Count;
  if (count < 1) return;
  std::int16_t position = gPhraseSet.Position;
  if (gPhraseStep == 1) position = position >= count ? 1 : static_cast<std::int16_t>(position + 1);
  if (gPhraseStep == -1) position = position <= 1 ? count : static_cast<std::int16_t>(position - 1);
  gPhraseSet.Position = position;
  sLoadNotation(box, gPhraseSet.NotePhrases[static_cast<std::size_t>(position - 1)]);
}
