// The Raga Exploration screen in the whole program: entering for Yaman shows
// its data and lists; Demo plays an item through with the notation box
// growing and the reeds following the sound; Learning steps through phrases;
// Practice refuses bad notation with the screen's messages; compositions,
// the user's items, scales and tonics. Runs on Qt offscreen
// with the silent device on a virtual clock. (The playing chain itself is
// checked in sound/.)
#include <gtest/gtest.h>

#include <QWidget>
#include <functional>

#include "control/screen_manager.h"
#include "exploration_fixture.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "platform/qt/qt_screen.h"
#include "platform/store.h"
#include "sound/music_buffers.h"
#include "sound/play_state.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"
#include "store/working_record_comp_text.h"

namespace {

class MainOperationsTest : public ExplorationTest {
 protected:
  int markedReedCount() {
    int marked = 0;
    for (std::int16_t n = kLowestReed; n <= kHighestReed; ++n)
      marked += screen().hasControl("cL", n) && screen().control("cL", n).backColor() != fReedLabelBackColor(screen(), n);
    return marked;
  }
};

TEST_F(MainOperationsTest, EnteringShowsTheRagasDataListsAndDemoPrompts) {
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_EQ(ctl("cRaga").text(), "Yaman");
  // The raga's data in the key-map words of the Devanagari script.
  EXPECT_EQ(ctl("cAroha").text(), "ina,   ro   ga   ma\\   Qa   ina   saaM");
  EXPECT_EQ(ctl("cPakad").text(), "ina,   ro   ga   ro   ina,   ro   saa   p   ma\\   ga   ro   saa");
  EXPECT_EQ(ctl("cSamvadi").text(), "ina");
  EXPECT_EQ(ctl("Option1").value(), -1) << "Demo";
  EXPECT_EQ(listItems("cNVIllusList"),
            (Names{"Aroha and Avroha", "Pakad", "Alap Phrases(5)", "Layakari Phrases(2)",
                   "Taan Phrases(4)", "Composition - Saanjh bhayi",
                   "Composition - Tarana in drut Teentaal", "Similar Raga - Yaman Kalyan",
                   "Similar Raga - Shuddha Kalyan"}));
  // A fresh user store has no items and no scales: their columns stay hidden.
  EXPECT_FALSE(ctl("cUserIllusList").visible());
  EXPECT_FALSE(ctl("cScaleList").visible());
  EXPECT_EQ(ctl("cNotes").text().rfind("Thata = Kalyan; Jati = Sampoorna - Sampoorna; Time = ", 0), 0u);
  EXPECT_EQ(ctl("cPrompts").text().rfind("Using NV Scale with ", 0), 0u);
  EXPECT_FALSE(ctl("cPlay").visible());
  EXPECT_LT(ctl("cNVIllusList").left(), ctl("Frame1").left());
  for (const char* option : {"Option1", "Option2", "Option3"}) {  // inside their moved frame
    EXPECT_GT(ctl(option).left(), ctl("Frame1").left()) << option;
    EXPECT_LT(ctl(option).left(), ctl("Frame1").left() + ctl("Frame1").width()) << option;
  }
}

TEST_F(MainOperationsTest, DemoPlaysThroughWithNotationAndReedsStepping) {
  clickItem("Aroha");
  EXPECT_EQ(ctl("cNVIllusList").listIndex(), -1);
  EXPECT_EQ(ctl("cInfo").text(), "Playing Aroha + Avroha");
  EXPECT_FALSE(ctl("cPlay").enabled() || ctl("cNVIllusList").enabled());
  EXPECT_TRUE(ctl("cStop").enabled());
  const std::size_t first = ctl("cCurrentItem").text().size();
  EXPECT_GT(first, 0u);
  std::size_t longest = first;
  bool reedsLit = markedReedCount() > 0;
  for (int step = 0; step < 200 && ctl("cCurrentItem").visible(); ++step) {
    program.clock().advance(50);
    longest = std::max(longest, ctl("cCurrentItem").text().size());
    reedsLit = reedsLit || markedReedCount() > 0;
  }
  // Fifteen notes of aroha and avroha, each appended after three blanks.
  EXPECT_GT(longest, first + 14 * 3);
  EXPECT_TRUE(reedsLit);
  EXPECT_TRUE(ctl("cNVIllusList").enabled());  // event 19 gave the selections back
  EXPECT_EQ(markedReedCount(), 0);
  // Each pattern of an alap is named as it plays; Stop Current skips one.
  clickItem("Alap");
  EXPECT_EQ(ctl("cInfo").text(), "Playing Alap pattern 1/5");
  click("cStopCur");
  program.clock().advance(100);
  EXPECT_EQ(ctl("cInfo").text(), "Playing Alap pattern 2/5");
  EXPECT_EQ(messageTexts(), Names{});
}

// Next and Prev wrap; Play and Stop keep the phrase; after a Prev the next
// item opens on its last-but-one phrase; looping goes on until Stop Loop.
TEST_F(MainOperationsTest, LearningStepsThroughPhrasesAndLoops) {
  click("Option2");
  clickItem("Alap");
  EXPECT_EQ(ctl("cInfo").text(), "(Alap 1/5)");
  EXPECT_TRUE(ctl("cPlay").enabled() && ctl("Frame2").visible());
  EXPECT_EQ(ctl("Option4").caption(), "Next");
  const std::string phrase1 = ctl("cCurrentItem").text();
  const std::pair<const char*, const char*> steps[] = {
      {"Option4", "(Alap 2/5)"}, {"Option5", "(Alap 1/5)"}, {"Option5", "(Alap 5/5)"}, {"Option4", "(Alap 1/5)"}};
  for (const auto& [option, info] : steps) {
    click(option);
    EXPECT_EQ(ctl("cInfo").text(), info);
  }
  EXPECT_EQ(ctl("cCurrentItem").text(), phrase1);
  click("cPlay");
  EXPECT_FALSE(ctl("cPlay").enabled());
  program.clock().advance(300);
  click("cStop");
  program.clock().advance(100);
  EXPECT_TRUE(ctl("cPlay").enabled());
  EXPECT_EQ(ctl("cCurrentItem").text(), phrase1);
  click("Option5");
  clickItem("Taan");
  EXPECT_EQ(ctl("cInfo").text(), "(Taan 3/4)");
  click("cStartLoop");
  EXPECT_TRUE(ctl("cStopLoop").enabled());
  EXPECT_FALSE(ctl("cStop").enabled());
  program.clock().advance(30000);  // the phrase lasts under ten seconds
  EXPECT_FALSE(ctl("cNVIllusList").enabled());
  click("cStopLoop");
  program.clock().advance(100);
  EXPECT_TRUE(ctl("cPlay").enabled() && ctl("cNVIllusList").enabled());
  EXPECT_EQ(messageTexts(), Names{});
}

// Practice in Devanagari reads the box back into English notes. Practice
// refuses illegal notation, commas, empty segments and more than
// 501 words with the screen's messages and gives the selections back; the
// edited notation plays segment by segment with the item's timing handed
// out word by word, a longer phrase's extra notes as long as the last.
TEST_F(MainOperationsTest, PracticeRefusesBadNotationAndPlaysTheEditedNotation) {
  click("Option3");
  if (gNotationScript == 1) {  // with the notation font: the box is read back into English notes,
    clickItem("Alap");         // blanks and grace marks kept (the fifth phrase ends on a grace pair)
    click("Option5");
    click("cPlay");
    ASSERT_EQ(gPlaySet.Count, 3);
    EXPECT_EQ(gPlaySet.NotePhrases[0], "N<   R   G   M   P");
    EXPECT_EQ(gPlaySet.NotePhrases[2], "N<'R   S");
    runOut();
  }
  click("cMnuEng");
  clickItem("Pakad");
  EXPECT_FALSE(ctl("cCurrentItem").locked()) << "open for editing";
  // The wrong words themselves are named in the learner's tests.
  ctl("cCurrentItem").setText("   ");
  click("cPlay");
  runOut();
  ASSERT_EQ(program.messages().size(), 1u);
  EXPECT_EQ(messageTexts()[0].rfind("Please select an item to play", 0), 0u);
  EXPECT_TRUE(ctl("cPlay").enabled() && ctl("cNVIllusList").enabled());
  const std::size_t told = 1;
  ctl("cCurrentItem").setText("S R G : M P");
  click("cPlay");
  ASSERT_EQ(gPlaySet.Count, 2);
  EXPECT_EQ(gPlaySet.NotePhrases, (Names{"S R G", "M P"}));
  EXPECT_EQ(gPlaySet.DurPhrases, (Names{"50 50 50", "90 50"}));
  EXPECT_EQ(ctl("cInfo").text(), "Pakad -practice pattern 1/2");
  runOut();
  EXPECT_EQ(ctl("cCurrentItem").text(), "S R G : M P");
  ctl("cCurrentItem").setText("S R G M P D N S> R> G> M> P> D> N>");
  click("cPlay");
  EXPECT_EQ(gPlaySet.DurPhrases[0], "50 50 50 90 50 50 90 50 50 50 90 140 140 140");
  runOut();
  EXPECT_TRUE(ctl("cPlay").enabled());
  EXPECT_EQ(program.messages().size(), told);
}

TEST_F(MainOperationsTest, ACompositionInDemoPlaysBothPartsThenOffersThemForReplay) {
  clickItem("Composition - Saanjh bhayi");
  EXPECT_NE(gMusicBuffers[1].Caption.find(" - Antara part) : "), std::string::npos);
  EXPECT_EQ(ctl("cInfo").text(), "Playing Composition 'Saanjh bhayi' in Taal '" +
                                     fGetTalaName(gCompInfo[0].TalaId) + "' - 16Beats(" +
                                     gCompInfo[0].Text + " - Astai part) : " +
                                     fCreateCompStringFromT(1, 1));
  for (std::size_t part : {0u, 1u}) EXPECT_EQ(gMusicBuffers[part].StartingBeat, gCompInfo[part].StartingBeat);
  EXPECT_FALSE(gMusicBuffers[0].Theka.empty());
  EXPECT_EQ(gPrefetchMode, 2);  // both files were built before playing
  EXPECT_EQ(ctl("Option4").caption() + " " + ctl("Option5").caption(), "Asthai Antara");
  runOut();
  ASSERT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_EQ(ctl("Frame2").caption(), "Select to Play");
  click("Option5");  // replay the Antara alone
  EXPECT_EQ(gCompPart, 2);
  EXPECT_EQ(gPlaySet.FirstPhrase, 2);
  EXPECT_FALSE(ctl("cNVIllusList").enabled());
  runOut();
  EXPECT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_EQ(messageTexts(), Names{});
  click("Option2");
  clickItem("Composition - Saanjh bhayi");
  EXPECT_EQ(gCurrFormId, kFormPlayComposition1) << "in Learning the composition player opens";
}

// The user's own taan and a scale of his make their columns appear, in
// order, between the library's items and the mode frame; the scale and a
// tonic from the menu retune and say so in the prompts. A tonic or a scale
// whose seeds cannot be made (here: a drone loudness the synthesis library
// refuses), or a scale deleted since the list was filled, gives the screen
// back: the pointer normal and the selections enabled.
TEST_F(MainOperationsTest, UserItemsScalesAndTonicsOrTheScreenGivenBack) {
  gDbB->execute(R"(INSERT INTO "Raga - ALT Phrases" (RagaIndex, PhraseType, NotesPhrase)
                   VALUES (1, 3, 'S R G : M P , P M G R S'))");
  gDbB->execute(R"(INSERT INTO "Scale Shift Specs" (NPSetId, NPSetName, TonicNoteId) VALUES (13, 'Just Yaman', 3))");
  click("cReturn");
  explore(kYaman, fGetRagaName(kYaman));
  EXPECT_EQ(listItems("cUserIllusList"), Names{"Taan Phrases(2)"});
  EXPECT_EQ(listItems("cScaleList"), Names{"Just Yaman"});
  EXPECT_LT(ctl("cNVIllusList").left(), ctl("cUserIllusList").left());
  EXPECT_LT(ctl("cUserIllusList").left(), ctl("cScaleList").left());
  EXPECT_LT(ctl("cScaleList").left(), ctl("Frame1").left());
  EXPECT_TRUE(ctl("Label16").visible() && ctl("Label8").left() == ctl("cUserIllusList").left()) << "headings";
  click("Option2");
  choose("cUserIllusList", 0);
  EXPECT_EQ(gCurrDbSelector, 2);
  EXPECT_EQ(ctl("cInfo").text(), "(Taan 1/2)");
  choose("cScaleList", 0);
  EXPECT_EQ(gCurrMusicSetId, 13);
  EXPECT_EQ(ctl("cPrompts").text().rfind("Using User-defined scale 'Just Yaman' with ", 0), 0u);
  click("cMnuW5");
  EXPECT_EQ(gCurrTonicNoteId, 9);
  EXPECT_EQ(gCurrMusicSetId, 9);
  EXPECT_EQ(ctl("cPrompts").text().rfind("Using NV Scale with ", 0), 0u);
  EXPECT_EQ(messageTexts(), Names{});
  const struct { const char* what; std::function<void()> choose; bool told; } cases[] = {
      {"tonic", [&] { gCurrDroneFactor = 9; click("cMnuW3"); }, true},
      {"scale", [&] { gCurrDroneFactor = 9; choose("cScaleList", 0); }, true},
      {"deleted scale", [&] { gDbB->execute("DELETE FROM \"Scale Shift Specs\";"); choose("cScaleList", 0); },
       false},
  };
  QWidget* window = static_cast<platform::QtScreen&>(screen()).drawingArea()->window();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const std::size_t before = program.messages().size();
    c.choose();
    gCurrDroneFactor = 1.0;
    EXPECT_NE(window->cursor().shape(), Qt::WaitCursor);
    for (const char* name : {"cNVIllusList", "cScaleList", "Option1", "cReturn", "cMnuTonKey"})
      EXPECT_TRUE(ctl(name).enabled()) << name;
    EXPECT_EQ(program.messages().size() > before && messageTexts().back() == "Error Creating Mote Seeds", c.told);
  }
}

// The keyboard and script menus, the synchronization delay (never below
// zero), and a click beside the items. (Raga Info: the learner's tests.)
TEST_F(MainOperationsTest, MenusAndAClickBesideTheItems) {
  click("cMnuDonShoKey");
  EXPECT_FALSE(screen().control("cL", 12).visible());
  gDelayMO = 1;
  for (const auto& [menu, delayMs] : {std::pair{"cMnuSlo", 0}, {"cMnuSlo", 0}, {"cMnuSpe", 1}}) {
    click(menu);
    EXPECT_EQ(gDelayMO, delayMs) << menu;
  }
  const std::string prompts = ctl("cPrompts").text();
  choose("cNVIllusList", -1);
  EXPECT_EQ(ctl("cPrompts").text(), prompts);
  EXPECT_FALSE(ctl("cCurrentItem").visible());
  click("Option2");
  clickItem("Pakad");
  EXPECT_FALSE(ctl("cCurrentItem").text().empty());
  EXPECT_FALSE(ctl("cNotes").visible());
  click("cMnuEng");
  EXPECT_EQ(gNotationScript, 2);
  EXPECT_EQ(ctl("cCurrentItem").text(), "");  // the box is cleared for the new script
  EXPECT_EQ(messageTexts(), Names{});
}

}  // namespace
