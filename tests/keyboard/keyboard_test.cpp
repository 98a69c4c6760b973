// The reed keyboard on the MainOperations screen: the harmonium layout at
// each tonic, the labels in both scripts, turning it off and on, and marks
// by note code.
#include <gtest/gtest.h>

#include <cmath>

#include "core/session.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reed_marks.h"
#include "keyboard/reeds.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "sound_test_support.h"

namespace {

using playbackstage::markedReeds;
using playbackstage::reset;

bool isBlack(int reed) { return gReedColorType[static_cast<std::size_t>(reed)] == kBlackReed; }

std::vector<int> visibleReeds(platform::Screen& form) {
  std::vector<int> reeds;
  for (int n = kLowestReed; n <= kHighestReed; ++n)
    if (form.control("cR", n).visible()) {
      EXPECT_TRUE(form.control("cL", n).visible()) << n;
      reeds.push_back(n);
    }
  return reeds;
}

platform::Screen& keyboardAtTonic(std::int16_t tonic, std::int16_t script = 2) {
  platform::Screen& form = reset();
  gCurrTonicNoteId = tonic;
  gNotationScript = script;
  sDisplayKeyboardAlt(form, 1);
  sUpdateReedLabelsAlt(form);
  return form;
}

TEST(ReedTables, EveryRangeHoldsWholeWhiteEnds) {
  sInitReedColorType();
  sInitReedsDisplayedData();
  for (int tonic = 1; tonic <= 12; ++tonic) {
    const int first = gFirstReedForTonic[static_cast<std::size_t>(tonic)];
    const int last = gLastReedForTonic[static_cast<std::size_t>(tonic)];
    EXPECT_GE(first, 3);
    EXPECT_LE(last, 40);
    EXPECT_FALSE(isBlack(first) || isBlack(last)) << "tonic " << tonic;
    EXPECT_LE(first, tonic + 9);
    EXPECT_GE(last, tonic + 21) << "the upper Sa is on show at tonic " << tonic;
  }
  EXPECT_EQ(gLastReedForTonic[1] - gFirstReedForTonic[1] + 1, 28);
  EXPECT_EQ(gLastReedForTonic[12] - gFirstReedForTonic[12] + 1, 28);
}

class KeyboardLayout : public ::testing::TestWithParam<std::int16_t> {};

TEST_P(KeyboardLayout, ShowsTheTonicsRangeAsAHarmonium) {
  const std::int16_t tonic = GetParam();
  platform::Screen& form = keyboardAtTonic(tonic);
  const int first = gFirstReedForTonic[static_cast<std::size_t>(tonic)];
  const int last = gLastReedForTonic[static_cast<std::size_t>(tonic)];
  const std::vector<int> shown = visibleReeds(form);
  ASSERT_FALSE(shown.empty());
  EXPECT_EQ(shown.front(), first);
  EXPECT_EQ(shown.back(), last);
  EXPECT_EQ(static_cast<int>(shown.size()), last - first + 1);

  const float lineTop = form.control("cLine1").y1();
  const platform::Control* previousWhite = nullptr;
  for (int n : shown) {
    const platform::Control& key = form.control("cR", n);
    const platform::Control& label = form.control("cL", n);
    EXPECT_EQ(key.top(), std::round(lineTop)) << n;
    if (isBlack(n)) {
      const platform::Control& next = form.control("cR", n + 1);
      EXPECT_EQ(key.backColor(), kBlackReedColor);
      EXPECT_LT(key.height(), next.height()) << "black keys are shorter";
      EXPECT_LT(key.width(), next.width()) << "and narrower";
      EXPECT_NEAR(key.left() + key.width() / 2, next.left(), 1.0f) << "centred on the joint " << n;
    } else {
      EXPECT_EQ(key.backColor(), kWhiteReedColor);
      EXPECT_EQ(key.height(), std::round(gFormH / 4));
      if (previousWhite != nullptr) {
        EXPECT_EQ(key.left(), previousWhite->left() + previousWhite->width() - 1)
            << "white keys share their borders " << n;
      }
      previousWhite = &key;
    }
    EXPECT_EQ(label.backColor(), key.backColor()) << n;
    EXPECT_GE(label.left(), key.left());
    EXPECT_LE(label.left() + label.width(), key.left() + key.width());
    EXPECT_LE(label.top() + label.height(), key.top() + key.height()) << "label at the key's foot";
  }
  EXPECT_LE(previousWhite->left() + previousWhite->width(), form.width());
}

INSTANTIATE_TEST_SUITE_P(Tonics, KeyboardLayout, ::testing::Values(1, 3, 5, 8, 12));

// A change of tonic hides the reeds left outside; a tonic outside the
// tables changes nothing.
TEST(KeyboardLayout, AChangeOfTonicHidesTheReedsLeftOutside) {
  platform::Screen& form = keyboardAtTonic(1);
  EXPECT_TRUE(form.control("cR", 3).visible());
  const float left = form.control("cR", 12).left();
  for (std::int16_t tonic : {0, 13, -1}) {
    gCurrTonicNoteId = tonic;
    EXPECT_NO_THROW(sDisplayKeyboardAlt(form, 1));
    EXPECT_EQ(form.control("cR", 12).left(), left);
  }
  gCurrTonicNoteId = 12;
  sDisplayKeyboardAlt(form, 1);
  EXPECT_FALSE(form.control("cR", 3).visible());
  EXPECT_FALSE(form.control("cL", 12).visible());
  EXPECT_TRUE(form.control("cR", 40).visible());
}

struct LabelCase {
  std::int16_t tonic;
  int middleSaReed;
  int lowestReed;
  std::string lowestEnglish;
};

class ReedLabels : public ::testing::TestWithParam<LabelCase> {};

// In English in Times New Roman, in Devanagari in the notation font; only
// the middle Sa is picked out.
TEST_P(ReedLabels, NameTheNotesOnTheReedsInEitherScript) {
  const LabelCase& c = GetParam();
  platform::Screen& form = keyboardAtTonic(c.tonic);
  EXPECT_EQ(gReedOffset, 3 - c.tonic);
  EXPECT_EQ(form.control("cL", c.middleSaReed).caption(), "S");
  EXPECT_EQ(form.control("cL", c.middleSaReed).foreColor(), kTonicLabelColor);
  EXPECT_EQ(form.control("cL", c.middleSaReed + 12).caption(), "S>");
  EXPECT_NE(form.control("cL", c.middleSaReed + 12).foreColor(), kTonicLabelColor);
  EXPECT_EQ(form.control("cL", c.lowestReed).caption(), c.lowestEnglish);
  const platform::Control& label = form.control("cL", c.middleSaReed + 1);
  EXPECT_EQ(label.fontName(), "Times New Roman");
  EXPECT_EQ(label.fontSize(), 12);
  EXPECT_TRUE(label.fontBold());
  keyboardAtTonic(c.tonic, 1);
  for (int n = gFirstReed; n <= gLastReed; ++n)
    EXPECT_EQ(form.control("cL", n).caption(), gNoteDev[static_cast<std::size_t>(n + gReedOffset)])
        << n;
  EXPECT_EQ(form.control("cL", c.middleSaReed).fontSize(), 16);
  EXPECT_EQ(form.control("cL", c.middleSaReed).foreColor(), kTonicLabelColor);
}

// Tonic 1 shows reeds 3 to 30, tonic 12 reeds 13 to 40.
INSTANTIATE_TEST_SUITE_P(Tonics, ReedLabels,
                         ::testing::Values(LabelCase{1, 10, 3, "m<"}, LabelCase{3, 12, 4, "G<"},
                                           LabelCase{7, 16, 8, "G<"}, LabelCase{12, 21, 13, "G<"}));

TEST(ReedLabels, ARescriptKeepsOnlyOneWhiteLabel) {
  platform::Screen& form = keyboardAtTonic(5);
  gCurrTonicNoteId = 6;
  sDisplayKeyboardAlt(form, 1);
  sUpdateReedLabelsAlt(form);
  int white = 0;
  for (int n = gFirstReed; n <= gLastReed; ++n)
    white += form.control("cL", n).foreColor() == kTonicLabelColor;
  EXPECT_EQ(white, 1);
  EXPECT_EQ(form.control("cL", 15).foreColor(), kTonicLabelColor);
}

// Turning the keyboard off hides all and clears the marks; turning it on
// again shows no stale marks. Hiding it hides the templates too.
TEST(KeyboardDisplay, TurningOffHidesAllAndClearsTheMarks) {
  platform::Screen& form = keyboardAtTonic(3);
  sMarkNoteReeds(form, 1214, true);
  ASSERT_EQ(markedReeds(form).size(), 2u);
  sKeyboardDisplayOff(form);
  EXPECT_TRUE(visibleReeds(form).empty());
  EXPECT_FALSE(form.control("cLine1").visible());
  EXPECT_TRUE(markedReeds(form).empty());
  gKeyboardDisplay = 1;
  sImplementCurrKBDisplayMode();
  EXPECT_EQ(visibleReeds(form).size(), 29u);
  EXPECT_TRUE(markedReeds(form).empty());
  gKeyboardDisplay = 2;
  sImplementCurrKBDisplayMode();
  EXPECT_TRUE(visibleReeds(form).empty());
  gKeyboardDisplay = 1;
  keyboardAtTonic(3);
  form.control("cR", 0).setVisible(true);
  sHideKeyboard(form);
  EXPECT_FALSE(form.control("cR", 0).visible());
  EXPECT_TRUE(visibleReeds(form).empty());
}

TEST(KeyboardDisplay, TakesThePlaceOfTheRagaNotesOnlyWhereThoseShareTheScreen) {
  platform::Screen& form = reset();
  struct Row {
    std::int16_t context;
    bool notesStay;
  } rows[] = {{12, false}, {3, false}, {8, true}, {1, true}, {13, true}};
  for (const Row& r : rows) {
    form.control("cNotes").setVisible(true);
    gCallbackContext = r.context;
    sKeyBoardDisplayOn(form, 1);
    EXPECT_EQ(form.control("cNotes").visible(), r.notesStay) << "context " << r.context;
  }
}

TEST(ReedMarks, SplitCodesIntoMainAndGraceNotes) {
  struct Row {
    std::int32_t code;
    std::int16_t main, grace;
  } rows[] = {
      {12, 12, -1},   {5, 5, -1},     {0, 0, -1},     {1214, 14, 12}, {112, 12, -1},
      {3511, 11, 35}, {1000, 0, 10},  {999, 99, -1},  {10000, 0, -1}, {-3, -3, -1},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(fMainNoteOfCode(r.code), r.main) << r.code;
    EXPECT_EQ(fGraceNoteOfCode(r.code), r.grace) << r.code;
  }
}

// Reeds off the keyboard are left alone; restoring a grace code restores
// both its reeds; unmarking all reaches reed 31.
TEST(ReedMarks, MarkAndRestoreReedsOnTheKeyboardOnly) {
  platform::Screen& form = keyboardAtTonic(3);
  const int templateColour = form.control("cL", 0).backColor();
  for (int reed : {0, -1, -40, 41, 1214}) {
    EXPECT_NO_THROW(sColorReedLabel(form, reed, kSoundingReedColor));
    EXPECT_NO_THROW(sRestoreReedLabel(form, reed));
  }
  EXPECT_TRUE(markedReeds(form).empty());
  EXPECT_EQ(form.control("cL", 0).backColor(), templateColour);
  sMarkNoteReeds(form, 1214, true);
  EXPECT_EQ(markedReeds(form),
            (std::vector<std::pair<int, int>>{{12, kGraceReedColor}, {14, kSoundingReedColor}}));
  sRestoreNoteReeds(form, 1214);
  EXPECT_TRUE(markedReeds(form).empty());
  sMarkNoteReeds(form, 1214, false);
  EXPECT_EQ(markedReeds(form), (std::vector<std::pair<int, int>>{{14, kSoundingReedColor}}));
  for (int n : {1, 31, 32}) form.control("cL", n).setForeColor(0x0000FF);
  sUnMarkAllReeds(form);
  EXPECT_EQ(form.control("cL", 1).foreColor() + form.control("cL", 31).foreColor(), 0);
  EXPECT_EQ(form.control("cL", 32).foreColor(), 0x0000FF);
}

}  // namespace
