// The composition player driven through its events in the whole program on
// the virtual clock: Learning walks the red cell beat by beat with the
// sound, Practice cuts the typed stretch once and checks it with the
// screen's messages, looping joins its rounds without a break, each
// Learning round built afresh so that the drone runs on, a tonic chosen
// here reaches the exploration screen, the Export menu saves the
// composition, and a composition the grid cannot show is refused by name.
#include <filesystem>
#include <fstream>
#include <tuple>

#include "control/screen_manager.h"
#include "player/player.h"
#include "player/stretch.h"
#include "platform/audio.h"
#include "platform/store.h"
#include "player_fixture.h"
#include "sound/composition_prep.h"
#include "sound/music_buffers.h"
#include "store/working_record_comp.h"

namespace {

const std::string kStart = "Starting Point is outside the Composition. Please Reset.";
const std::string kEnd = "Ending Point is outside the Composition. Please Reset.";

struct StretchRow {
  StretchFields fields;
  PartExtent part;
  std::string message;
  int firstSlot, lastSlot;
};

// Yaman's Asthai: 32 matras from beat 9 of Teentaal, ending on row 3, beat 8.
constexpr PartExtent kFromBeat9{9, 16, 32};
// A part that fills two whole cycles ends on row 2, beat 16.
constexpr PartExtent kWholeCycles{1, 16, 32};

TEST(TypedStretch, IsCheckedInOrderAndGivesItsSlots) {
  const std::string huge(10000, '9');
  const StretchRow rows[] = {
      {{"1", "9", "3", "8"}, kFromBeat9, "", 9, 40},
      {{"2", "1", "2", "1"}, kFromBeat9, "", 17, 17},
      {{"", "9", "3", "8"}, kFromBeat9, "Specify Starting and Ending Rows and Beats", 0, 0},
      {{"1", "9", "3", ""}, kFromBeat9, "Specify Starting and Ending Rows and Beats", 0, 0},
      {{"1", "9", "", "8"}, kFromBeat9, kEnd, 0, 0},  // a blank last row reads 0
      {{"x", "9", "3", "8"}, kFromBeat9, kStart, 0, 0},
      {{"-1", "9", "3", "8"}, kFromBeat9, kStart, 0, 0},
      {{"1.5", "9", "3", "8"}, kFromBeat9, kStart, 0, 0},
      {{huge, "9", "3", "8"}, kFromBeat9, kStart, 0, 0},
      {{"1", "8", "3", "8"}, kFromBeat9, kStart, 0, 0},  // before the part's first beat
      {{"1", "17", "3", "8"}, kFromBeat9, kStart, 0, 0},
      {{"1", "9", "3", "9"}, kFromBeat9, kEnd, 0, 0},  // after its last beat
      {{"1", "9", "4", "1"}, kFromBeat9, kEnd, 0, 0},
      {{"1", "9", "2", huge}, kFromBeat9, kEnd, 0, 0},
      {{"2", "5", "2", "4"}, kFromBeat9, "Starting Point Beyond Ending Point. Please Reset.", 0, 0},
      {{"2", "1", "1", "16"}, kFromBeat9, "Starting Point Beyond Ending Point. Please Reset.", 0, 0},
      // Seen in the field: the empty row below a part that ends on a row's
      // last beat holds no sound to cut.
      {{"1", "1", "2", "16"}, kWholeCycles, "", 1, 32},
      {{"1", "1", "3", "1"}, kWholeCycles, kEnd, 0, 0},
  };
  for (const StretchRow& row : rows) {
    const StretchCheck check = fCheckStretch(row.fields, row.part);
    SCOPED_TRACE(row.fields.fromRow.substr(0, 5) + " " + row.fields.fromBeat + " " +
                 row.fields.toRow + " " + row.fields.toBeat.substr(0, 5));
    EXPECT_EQ(check.message, row.message);
    EXPECT_EQ(check.firstSlot, row.firstSlot);
    EXPECT_EQ(check.lastSlot, row.lastSlot);
  }
}

TEST_F(PlayerTest, LearningShowsThePartOnItsGridAndTheRedCellWalksWithTheSound) {
  open("Saanjh bhayi");
  ASSERT_EQ(gCurrFormId, kFormPlayComposition1);
  EXPECT_EQ(pc("Label25").caption() + " / " + pc("Label26").caption(), "Tala : Teentaal / 16 Beats");
  EXPECT_EQ(player().elementCount("cNote"), 48) << "three rows of sixteen beats";
  EXPECT_EQ(pc("cRow", 2).caption(), "3");
  EXPECT_EQ(pc("cMatra", 7).caption(), "") << "the part starts on beat 9";
  EXPECT_EQ(pc("cMatra", 8).caption() + pc("cMatra", 10).caption(), "Saanjhbha");
  EXPECT_EQ(pc("Label22").caption(), "Asthai");
  EXPECT_NE(pc("cPrompts").text().find(fGetPrompts("24,26,28,30")), std::string::npos);
  press("cPlay");
  EXPECT_TRUE(pc("cStop").enabled() && !pc("cPlay").enabled() && !pc("cReturn").enabled());
  // One slot every 550 ms; the red cell follows the device's position.
  EXPECT_EQ(redCell(), 8);
  for (const auto& [ms, cell] : {std::pair{560, 9}, {1100, 10}, {8800, 24}, {17000, 38}}) {
    while (pc("cMM").device().position() < ms) program.clock().advance(10);
    EXPECT_EQ(redCell(), cell) << ms;
  }
  runOut();
  EXPECT_EQ(redCell(), -1);
  EXPECT_TRUE(pc("cPlay").enabled() && !pc("cStop").enabled());
  press("cAntara");
  EXPECT_EQ(pc("Label22").caption() + " " + pc("cMatra", 8).caption(), "Antara Ti");
  EXPECT_EQ(messageTexts(), Names{});
}

TEST_F(PlayerTest, PracticeCutsTheTypedStretchOnceAndRefusesOneOutsideThePart) {
  open("Saanjh bhayi");
  press("cPractice");
  EXPECT_TRUE(pc("cFRow").visible() && pc("cFRow").text().empty());
  press("cPlay");
  pc("cFRow").setText("3");
  pc("cFBeat").setText("1");
  pc("cTRow").setText("3");
  pc("cTBeat").setText("9");
  press("cPlay");
  EXPECT_EQ(messageTexts(), (Names{"Specify Starting and Ending Rows and Beats", kEnd}));
  EXPECT_TRUE(pc("cPlay").enabled()) << "a refused stretch leaves the screen idle";
  pc("cTBeat").setText("8");
  press("cPlay");
  EXPECT_EQ(pc("cMatra", 32).borderStyle() + pc("cMatra", 39).borderStyle(), 2);
  EXPECT_EQ(redCell(), 32);
  EXPECT_EQ(gMusicBuffers[2].Count, 8);
  runOut();
  const auto cut = std::filesystem::last_write_time(gWavC);
  const auto whole = std::filesystem::last_write_time(gWavA);
  press("cPlay");
  runOut();
  EXPECT_EQ(std::filesystem::last_write_time(gWavC), cut) << "the same stretch is not cut again";
  pc("cSlider").setValue(13);
  press("cPlay");
  EXPECT_GT(std::filesystem::last_write_time(gWavA), whole) << "a new tempo rebuilds the parts";
  EXPECT_GT(std::filesystem::last_write_time(gWavC), cut) << "and then the stretch";
  runOut();
  EXPECT_EQ(messageTexts().size(), 2u);
}

TEST_F(PlayerTest, LoopRoundsFollowWithoutABreakUntilStopLooping) {
  open("Saanjh bhayi");
  press("cStartLoop");
  EXPECT_TRUE(pc("cStopLoop").enabled() && !pc("cStop").enabled());
  platform::AudioDevice& mm = pc("cMM").device();
  long longestSilenceMs = 0, silentSince = -1;
  Names files{mm.fileName};
  for (long t = 0; t < 40000; t += 10) {
    program.clock().advance(10);
    if (mm.fileName != files.back()) files.push_back(mm.fileName);
    if (mm.mode() == platform::kModePlaying) {
      silentSince = -1;
    } else {
      if (silentSince < 0) silentSince = t;
      longestSilenceMs = std::max(longestSilenceMs, t - silentSince + 10);
    }
  }
  EXPECT_EQ(longestSilenceMs, 0) << "two rounds of 17.6 s and more, all sounding";
  // Each round is built afresh while the one before sounds and queued, turn
  // about in C.wav and A.wav, so that the drone's cycle runs on: the second
  // round's file was queued as the first began.
  EXPECT_EQ(files, (Names{gWavC, gWavA, gWavC}));
  EXPECT_GE(redCell(), 8) << "the red cell walks again in the later rounds";
  press("cStopLoop");
  runOut();
  EXPECT_TRUE(pc("cPlay").enabled());
  EXPECT_EQ(messageTexts(), Names{});
}

// Grace notes, theka and drone enter the files: each rebuilds both parts,
// and the next Play in Practice cuts the stretch again. The script changes
// the grid only.
TEST_F(PlayerTest, MenusThatChangeTheSoundRebuildBothPartsAndTheStretch) {
  open("Saanjh bhayi");
  press("cPractice");
  for (const auto& [field, value] : {std::pair{"cFRow", "1"}, {"cFBeat", "9"}, {"cTRow", "1"}, {"cTBeat", "12"}})
    pc(field).setText(value);
  press("cPlay");
  runOut();
  for (const char* menu : {"cMnuNoGraNot", "cMnuNoThe", "cMnuDroLou"}) {
    const auto whole = std::filesystem::last_write_time(gWavB);
    const auto cut = std::filesystem::last_write_time(gWavC);
    press(menu);
    EXPECT_GT(std::filesystem::last_write_time(gWavB), whole) << menu;
    press("cPlay");
    runOut();
    EXPECT_GT(std::filesystem::last_write_time(gWavC), cut) << menu;
  }
  const auto whole = std::filesystem::last_write_time(gWavA);
  press("cMnuEng");
  EXPECT_EQ(pc("cNote", 8).caption(), "N<");
  press("cMnuDev");
  EXPECT_NE(pc("cNote", 8).caption(), "N<");
  EXPECT_EQ(pc("cNote", 8).fontName(), "Shusha");
  EXPECT_EQ(std::filesystem::last_write_time(gWavA), whole);
  EXPECT_EQ(messageTexts(), Names{});
}

// A tonic chosen here is taken up by the exploration screen when the player
// is left, by Go Back or by the close box while a part sounds.
TEST_F(PlayerTest, ATonicChosenHereReachesTheExplorationScreen) {
  open("Saanjh bhayi");
  press("cMnuW5");
  EXPECT_EQ(gCurrTonicNoteId, 9);
  EXPECT_TRUE(pc("cMnuW5").checked());
  press("cReturn");
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_TRUE(ctl("cMnuW5").checked());
  open("Saanjh bhayi");
  press("cMnuW1");
  press("cPlay");
  program.clock().advance(500);
  program.closeWindow("PlayComposition1");
  program.clock().advance(2000);
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_TRUE(ctl("cMnuW1").checked());
  EXPECT_EQ(messageTexts(), Names{});
}

// Every composition of the library can be shown on the grid.
TEST_F(PlayerTest, EveryCompositionOfTheLibraryFitsTheGrid) {
  auto items = gDbA->openRecordset("Raga - Additional Information", platform::RecordsetType::Table);
  int compositions = 0;
  gCurrPhraseKind = 8;
  for (items->moveFirst(); !items->eof(); items->moveNext()) {
    if (items->field("Add Info Type").asInteger() != 2) continue;
    gCurrRagaId = static_cast<std::int16_t>(items->field("Raga Index").asInteger());
    gCurrCompName = items->field("Add Info").asText();
    sDBToTCompData(1, static_cast<std::int32_t>(items->field("Notation Index").asInteger()));
    EXPECT_EQ(fCompositionRefusal(), "");
    ++compositions;
  }
  items->close();
  EXPECT_GE(compositions, 138);
}

struct FaultRow {
  void (*spoil)(CompPartRecord&);
  std::string says;
};

TEST_F(PlayerTest, ACompositionTheGridCannotShowIsRefusedByName) {
  open("Saanjh bhayi");
  press("cReturn");
  const FaultRow rows[] = {
      {[](CompPartRecord& p) { p.SyllableDuration += " 1"; },
       "its Asthai's syllables do not each have a length"},
      {[](CompPartRecord& p) { p.Syllables += " ja"; p.SyllableDuration += " 1"; },
       "its Asthai's syllables last 33 matras but its notes 32."},
      {[](CompPartRecord& p) { p.StartingBeat = 17; }, "its Asthai starts on beat 17"},
      {[](CompPartRecord& p) {
         p.Syllables += " aa";
         p.SyllableDuration += " 100";
         p.Notation += " S";
         p.NotesDuration += " 100";
       },
       "its Asthai's notes run past row 8"},
  };
  const CompPartRecord good = gCompInfo[0];
  for (const FaultRow& row : rows) {
    gCompInfo[0] = good;
    row.spoil(gCompInfo[0]);
    program.fire("MainOperations", "", platform::EventKind::Activate);
    sPlayCompositions(0);
    EXPECT_EQ(gCurrFormId, kFormMainOperations);
    ASSERT_FALSE(program.messages().empty());
    const std::string& told = program.messages().back().text;
    EXPECT_EQ(told.rfind("The composition 'Saanjh bhayi' cannot be played", 0), 0u) << told;
    EXPECT_NE(told.find(row.says), std::string::npos) << told;
  }
}

// The Export menu saves the composition at hand, proposing "<raga> -
// <composition>", and is offered only while nothing sounds.
TEST_F(PlayerTest, ExportSavesTheCompositionUnderItsOwnName) {
  open("Saanjh bhayi");
  auto& windows = program.windows();
  const std::filesystem::path folder = program.folder() / "exports";
  std::filesystem::create_directories(folder);
  windows.setFileChooser([&](const std::string& title) { return (folder / (title == "Save as Sound" ? "take.flac" : "take")).string(); });
  windows.setChoiceResponder([](const std::string&, const std::vector<std::string>&) { return 0; });
  for (const auto& [menu, proposed, saved, magic] :
       {std::tuple{"cMnuXptMid", "Yaman - Saanjh bhayi.mid", "take.mid", "MThd"},
        {"cMnuXptPdf", "Yaman - Saanjh bhayi.pdf", "take.pdf", "%PDF"},
        {"cMnuXptSnd", "Yaman - Saanjh bhayi.flac", "take.flac", "fLaC"}}) {
    press(menu);
    EXPECT_EQ(windows.lastProposedSaveName(), proposed);
    std::ifstream file(folder / saved, std::ios::binary);
    std::string head(4, ' ');
    file.read(head.data(), 4);
    EXPECT_EQ(head, magic) << saved;
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 3) << "nothing temporary is left";
  press("cPlay");
  EXPECT_FALSE(pc("cMnuXpt").enabled()) << "a sound export would rebuild the sounding part";
  runOut();
  EXPECT_TRUE(pc("cMnuXpt").enabled());
  EXPECT_EQ(messageTexts(), Names{});
}

}  // namespace
