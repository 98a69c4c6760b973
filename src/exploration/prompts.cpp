// Prompts of the Raga Exploration screen (see prompts.h).
#include "exploration/prompts.h"

#include <cstddef>
#include <cstdint>

#include "control/screen_manager.h"
#include "core/errors.h"
#include "core/session.h"
#include "exploration/exploration_state.h"
#include "notation/tokenizer.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/music_set.h"
#include "sound/play_state.h"
#include "store/lookups.h"

namespace {

constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kFilmSongKind = 9;

std::string fPosition(std::int16_t p, std::int16_t n) {
  return std::to_string(p) + "/" + std::to_string(n);
}

// The first note of the buffer now sounding, as the box shows it.
std::string fFirstNote() {
  const MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  if (buffer.WordStarts.empty()) return "";
  return fGetWord1(buffer.Text, 1, buffer.WordStarts, buffer.WordLengths);
}

std::string fDemoInfo(platform::Screen& form) {
  const std::string position = fPosition(gPlaySet.Position, gPlaySet.Count);
  switch (gCurrItemType) {
    case 1: return "Playing Aroha + Avroha";
    case 2: return "Playing Pakad";
    case 3: return "Playing Alap pattern " + position;
    case 4: return "Playing Layakari pattern " + position;
    case 5: return "Playing Taan pattern " + position;
    case 6:
      if (gCurrPhraseKind == kFilmSongKind) return "Playing Film Song : " + gCurrCompName;
      break;
    case 7:
      // The caption built with the buffer names the raga whose phrase the
      // buffer holds. (It used to name the current raga for buffer 0 and
      // the other raga for buffer 1, whichever phrase each held.)
      break;
    default:
      return form.control("cInfo").text();
  }
  return gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)].Caption;
}

// For a comparison or a composition: the button of the part now playing.
void sShowPlayingPart(platform::Screen& form) {
  const bool composition = gCurrItemType == 6 && gCurrPhraseKind != kFilmSongKind;
  if (gCurrItemType != 7 && !composition) return;
  form.control("Frame2").setCaption("Playing");
  form.control("Frame2").setVisible(true);
  form.control("Option4").setVisible(gCurrBuffer == 0);
  form.control("Option5").setVisible(gCurrBuffer != 0);
}

std::string fStudyInfo() {
  const std::string position = fPosition(gPhraseSet.Position, gPhraseSet.Count);
  std::string info;
  switch (gCurrItemType) {
    case 1: info = "Aroha + Avroha "; break;
    case 2: info = "Pakad "; break;
    case 3: info = "Alap pattern " + position; break;
    case 4: info = "Layakari pattern " + position; break;
    case 5: info = "Taan pattern " + position; break;
    default: break;
  }
  if (gCurrMode == 3) {
    const std::string practice = "practice pattern " + fPosition(gPlaySet.Position, gPlaySet.Count);
    info += gCurrItemType <= 2 ? "-" + practice : " - " + practice;
  }
  return info;
}

void sShowFirstNote(platform::Screen& form) {
  platform::Control& box = form.control("cCurrentItem");
  box.setVisible(true);
  box.setText(fFirstNote());
  box.refresh();
}

void sWritePrompts(const std::string& groups) {
  gCurrForm->control("cPrompts").setText(fGetScaleInfo() + groups);
}

std::string fGroup(const std::string& numbers) { return gSeparator + fGetPrompts(numbers); }

// The groups every mode begins with: the mode frame and the scale list.
std::string fCommonGroups() {
  std::string text;
  if (gModeFrameShown == kTrue) text += fGroup("4");
  text += fGroup("6");
  if (gUserScalesShown == kTrue) text += fGroup("7");
  return text;
}

}  // namespace

void sDisplayMPPrompt() {
  NV_PROC("sDisplayMPPrompt");
  if (gCurrForm == nullptr) return;
  platform::Screen& form = *gCurrForm;
  if (gCurrFormId == kFormWorkshop) {
    if (gCurrMode == 1) return;
    if (form.hasControl("Label10")) form.control("Label10").setVisible(true);
    sShowFirstNote(form);
    return;
  }
  if (gCurrFormId != kFormMainOperations) return;
  platform::Control& info = form.control("cInfo");
  if (gCurrMode == 1) {
    info.setText(fDemoInfo(form));
    sShowPlayingPart(form);
  } else {
    info.setText(fStudyInfo());
    form.control("Label17").setVisible(true);
  }
  info.setVisible(true);
  info.refresh();
  sShowFirstNote(form);
}

void sDisplayDemoModePrompts() {
  NV_PROC("sDisplayDemoModePrompts");
  std::string groups = fCommonGroups() + fGroup("5");
  if (gUserItemsShown == kTrue) groups += fGroup("8");
  sWritePrompts(groups + fGroup("14,15,16,17"));
}

void sDisplayLearningModePrompts() {
  NV_PROC("sDisplayLearningModePrompts");
  sWritePrompts(fCommonGroups() + fGroup("18,19,20,14"));
}

void sDisplayPracticeModePrompts() {
  NV_PROC("sDisplayPracticeModePrompts");
  sWritePrompts(fCommonGroups() + fGroup("21,22,23"));
}

void sDisplayCurrModePrompts() {
  switch (gCurrMode) {
    case 2: sDisplayLearningModePrompts(); break;
    case 3: sDisplayPracticeModePrompts(); break;
    default: sDisplayDemoModePrompts(); break;
  }
}
