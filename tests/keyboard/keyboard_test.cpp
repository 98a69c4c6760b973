// The reed keyboard on the MainOperations screen: the harmonium layout and
// the labels at every tonic in both scripts, turning it off and on, and
// marks by note code. (Marks while playing are checked in sound/.)
#include <gtest/gtest.h>

#include <cmath>
#include <map>

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

// At each tonic, changed from tonic 3, the keyboard shows only from a white
// reed at or below the middle Sa (tonic + 9) to a white reed at or above
// the upper Sa, within reeds 3 to 40, laid out as a harmonium with each
// white key's label below the black keys; the middle Sa's label alone is
// picked out.
TEST(Keyboard, ShowsEachTonicsRangeAsAHarmoniumWithItsLabels) {
  const std::map<int, std::string> lowestCaptions = {{1, "m<"}, {3, "G<"}, {7, "G<"}, {12, "G<"}};
  for (std::int16_t tonic = 1; tonic <= 12; ++tonic) {
    SCOPED_TRACE(testing::Message() << "tonic " << tonic);
    platform::Screen& form = keyboardAtTonic(tonic);
    const std::vector<int> shown = visibleReeds(form);
    ASSERT_FALSE(shown.empty());
    const int first = shown.front(), last = shown.back(), sa = tonic + 9;
    EXPECT_EQ(static_cast<int>(shown.size()), last - first + 1);
    EXPECT_TRUE(3 <= first && first <= sa && sa + 12 <= last && last <= 40) << first << " to " << last;
    EXPECT_FALSE(isBlack(first) || isBlack(last));
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
        EXPECT_EQ(key.height(), std::round(form.height() / 4));
        if (previousWhite != nullptr) {
          EXPECT_EQ(key.left(), previousWhite->left() + previousWhite->width() - 1) << n;
        }
        previousWhite = &key;
      }
      EXPECT_EQ(label.backColor(), n == sa ? kTonicMarkerColor : key.backColor()) << n;
      EXPECT_GE(label.left(), key.left());
      EXPECT_LE(label.left() + label.width(), key.left() + key.width());
      EXPECT_LE(label.top() + label.height(), key.top() + key.height()) << "label at the key's foot";
      for (int neighbour : {n - 1, n + 1}) {
        if (isBlack(n) || !isBlack(neighbour) || neighbour < first || neighbour > last) continue;
        const platform::Control& black = form.control("cR", neighbour);
        EXPECT_GE(label.top(), black.top() + black.height()) << "no black key over label " << n;
      }
      EXPECT_EQ(label.foreColor() == kTonicLabelColor, n == sa) << n;
    }
    EXPECT_LE(previousWhite->left() + previousWhite->width(), form.width());
    EXPECT_EQ(form.control("cL", sa).caption(), "S");
    EXPECT_EQ(form.control("cL", sa + 12).caption(), "S>");
    if (lowestCaptions.count(tonic)) { EXPECT_EQ(form.control("cL", first).caption(), lowestCaptions.at(tonic)); }
    keyboardAtTonic(tonic, 1);
    EXPECT_EQ(form.control("cL", sa).caption(), fGetDevnagariStringForNote("S"));
    EXPECT_EQ(form.control("cL", sa).foreColor(), kTonicLabelColor);
  }
}

// Turning the keyboard off hides all and clears the marks; turning it on
// again shows no stale marks. Hiding it hides the templates too.
TEST(Keyboard, TurningOffHidesAllAndClearsTheMarks) {
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
  form.control("cR", 0).setVisible(true);
  sHideKeyboard(form);
  EXPECT_FALSE(form.control("cR", 0).visible());
}

TEST(Keyboard, TakesThePlaceOfTheRagaNotesOnlyWhereThoseShareTheScreen) {
  platform::Screen& form = reset();
  for (const auto& [context, notesStay] :
       {std::pair<std::int16_t, bool>{12, false}, {3, false}, {8, true}, {1, true}, {13, true}}) {
    form.control("cNotes").setVisible(true);
    gCallbackContext = context;
    sKeyBoardDisplayOn(form, 1);
    EXPECT_EQ(form.control("cNotes").visible(), notesStay) << "context " << context;
  }
}

// Reeds off the keyboard, the templates among them, are left alone;
// unmarking all reaches reed 31. (Marks while playing, grace pairs among
// them, are checked in sound/.)
TEST(ReedMarks, OnlyReedsOnTheKeyboardAreMarked) {
  platform::Screen& form = keyboardAtTonic(3);
  const int templateColour = form.control("cL", 0).backColor();
  for (int reed : {0, -1, -40, 41, 1214}) {
    EXPECT_NO_THROW(sColorReedLabel(form, reed, kSoundingReedColor));
    EXPECT_NO_THROW(sRestoreReedLabel(form, reed));
  }
  EXPECT_TRUE(markedReeds(form).empty());
  EXPECT_EQ(form.control("cL", 0).backColor(), templateColour);
  for (int n : {1, 31, 32}) form.control("cL", n).setForeColor(0x0000FF);
  sUnMarkAllReeds(form);
  EXPECT_EQ(form.control("cL", 1).foreColor() + form.control("cL", 31).foreColor(), 0);
  EXPECT_EQ(form.control("cL", 32).foreColor(), 0x0000FF);
}

}  // namespace
