// Set-up of an item for each playing mode (see illustration_setup.h).
#include "exploration/illustration_setup.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "exploration/exploration_state.h"
#include "notation/durations.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/phrase_loading.h"
#include "sound/play_state.h"
#include "sound/speed_factor.h"
#include "sound/wave_folder.h"
#include "store/working_record.h"

namespace {

constexpr std::int16_t kDurations = 2;
constexpr std::int16_t kScaleAlt = 6;
constexpr std::int16_t kPakadAlt = 7;
constexpr std::int16_t kTaanAlt = 3;
constexpr std::int16_t kWholeFile = 1;
constexpr std::int16_t kPracticeFile = 2;

// Builds phrase gPlaySet.Position into its buffer and file; a failure is
// told and the caller carries on.
void sPrepareCurrentPhrase() {
  const std::int16_t buffer = fBufferForPhrase(gPlaySet.Position);
  gMusicBuffers[static_cast<std::size_t>(buffer)].Count = fCreateNotesList1(buffer);
  if (fPrepareToPlaySelection1(buffer) == 0 && !fToldWaveFolderFault(gCurrBuildFile))
    sShowMessage("Error Setting up for Illustration");
}

// Splits on blanks, dropping empty words.
std::vector<std::string> fWords(const std::string& text) {
  std::vector<std::string> words;
  std::string word;
  for (char c : text) {
    if (c == ' ') {
      if (!word.empty()) words.push_back(word);
      word.clear();
    } else {
      word += c;
    }
  }
  if (!word.empty()) words.push_back(word);
  return words;
}

std::vector<std::string> fSplitAt(const std::string& text, char mark) {
  std::vector<std::string> pieces(1);
  for (char c : text) {
    if (c == mark)
      pieces.emplace_back();
    else
      pieces.back() += c;
  }
  return pieces;
}

// The item's timing that practice segments take their durations from.
std::string fPracticeTiming(const std::string& boxText) {
  switch (gCurrAltType) {
    case kScaleAlt: return fGetFromT_ScalePhraseUnSeg(kDurations);
    case kPakadAlt: return fGetFromT_PakadPhraseUnSeg(kDurations);
    case kTaanAlt: {
      std::string notes = fRemoveColons(boxText);
      return fGetTimingScript(notes);
    }
    default:
      return fGetFromT_AnALTPhraseUnSeg(gCurrDbSelector, gCurrAltType, kDurations,
                                        gPhraseSet.Position);
  }
}

// A note added beyond the item's timing lasts as long as its last note, or
// one second when the item has no timing.
std::string fSpareDuration(const std::vector<std::string>& timing) {
  return timing.empty() ? "100" : timing.back();
}

}  // namespace

std::string fPracticeSegmentInEnglish(const std::string& segment) {
  if (gNotationScript != 1) return fRmvTrailBlk(fRmvLeadBlk(segment));
  std::string english;
  for (std::size_t i = 0, start = 0; i <= segment.size(); ++i) {
    if (i < segment.size() && segment[i] != ' ' && segment[i] != '\'') continue;
    if (i > start) english += fGetEngForDev(segment.substr(start, i - start));
    if (i < segment.size()) english += segment[i];
    start = i + 1;
  }
  return fRmvTrailBlk(fRmvLeadBlk(english));
}

void sSetUpForDemoModeIllustrations() {
  NV_PROC("sSetUpForDemoModeIllustrations");
  sLoadMNFromT(kUnsegmentedText);
  gPhraseSet.Position = 1;
  gPhraseSet.FirstPhrase = 1;
  gPhraseSet.LastPhrase = gCurrItemType == 1 || gCurrItemType == 2 ? 1 : gPhraseSet.Count;
  gPrefetchMode = kPrefetchNext;
  gWavOption = kWholeFile;
  gThekaMode = gCurrPhraseKind == 8 ? 1 : 2;
  gPlaySet = gPhraseSet;
  if (gPlaySet.Count == 0) return;
  sPrepareCurrentPhrase();
}

void sSetUpForLearningModeIllustration() {
  NV_PROC("sSetUpForLearningModeIllustration");
  if (gPhraseSet.Position < 1 || gPhraseSet.Position > gPhraseSet.Count) return;
  gPrefetchMode = kPrefetchNone;
  gWavOption = kWholeFile;
  gPhraseSet.FirstPhrase = gPhraseSet.Position;
  gPhraseSet.LastPhrase = gPhraseSet.Position;
  const auto entry = static_cast<std::size_t>(gPhraseSet.Position - 1);
  gPhraseSet.DurPhrases[entry] = fFactorTimingScript(gPhraseSet.BaseDurPhrases[entry], fCurrSliderValue());
  gPlaySet = gPhraseSet;
  sPrepareCurrentPhrase();
}

void sSetUpForPracticeModeIllustrations1() {
  NV_PROC("sSetUpForPracticeModeIllustrations1");
  const std::string boxText = gCurrForm->control("cCurrentItem").text();
  const std::vector<std::string> segments = fSplitAt(boxText, ':');
  gPracticeSet = PhraseSet{};
  gPracticeSet.Count = static_cast<std::int16_t>(segments.size());
  gPracticeSet.Position = 1;
  const std::vector<std::string> timing = fWords(fFactorTimingScript(fPracticeTiming(boxText), fCurrSliderValue()));
  std::size_t next = 0;
  for (const std::string& segment : segments) {
    const std::string notes = fPracticeSegmentInEnglish(segment);
    std::vector<std::string> durations;
    for (std::size_t w = fWords(notes).size(); w > 0; --w)
      durations.push_back(next < timing.size() ? timing[next++] : fSpareDuration(timing));
    gPracticeSet.NotePhrases.push_back(notes);
    gPracticeSet.DurPhrases.push_back(fJoinWords(durations, " "));
    gPracticeSet.BaseDurPhrases.push_back(gPracticeSet.DurPhrases.back());
  }
  gPracticeSet.FirstPhrase = 1;
  gPracticeSet.LastPhrase = gPracticeSet.Count;
  gPrefetchMode = kPrefetchNext;
  gWavOption = kPracticeFile;
  gPlaySet = gPracticeSet;
  sPrepareCurrentPhrase();
}

void sSetUpForPlayingSelectedPhrase() {
  NV_PROC("sSetUpForPlayingSelectedPhrase");
  gPlaySet = PhraseSet{};
  gPlaySet.Count = gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = 1;
  gPlaySet.NotePhrases = {gSelPhrase};
  gPlaySet.DurPhrases = {gSelDurPhrase};
  gPlaySet.BaseDurPhrases = {gSelDurPhrase};
  gMusicBuffers[0].Count = fCreateNotesList1(0);
  if (fPrepareToPlaySelection1(0) == 0 && !fToldWaveFolderFault(gCurrBuildFile))
    sShowMessage("Error Setting up for Illustration");
}
