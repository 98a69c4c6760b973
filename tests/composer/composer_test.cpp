// The Composer screen in the whole program, entered from the main window's
// menu, on Qt offscreen with the silent device on a virtual clock: an alap
// written across two rows, a two-part composition through every stage,
// both played and saved and then found and played on the Raga Exploration
// screen; renaming and deleting with a confirmation; the question before
// an unsaved composition is left; bad input told, never a crash; and text
// that reads on every background picture.
#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QWidget>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <tuple>
#include <string>
#include <vector>

#include "composer/composer.h"
#include "composer/composer_slots.h"
#include "composer/row_images.h"
#include "control/screen_manager.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "notation/vocabulary.h"
#include "platform/audio.h"
#include "platform/qt/qt_control.h"
#include "platform/store.h"
#include "program_harness.h"
#include "store/lookups.h"
#include "store/positioning.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

namespace {

using Names = std::vector<std::string>;
using platform::EventKind;

constexpr std::int16_t kYaman = 1;
// Palette entries (note ids) of Yaman's middle octave, and durations.
constexpr int kS = 12, kR = 14, kG = 16, kP = 19, kComma = 32;
constexpr int kFiftyHundredths = 8;  // "50" of the alap's palette
constexpr int kOneBeat = 7;          // "1" of the beat palette

class ComposerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    program.start();
    program.finishStartUp();
    program.fire("Nadavik", "cMnuInvCom", EventKind::Click);
    ASSERT_EQ(gCurrFormId, kFormComposer);
  }

  platform::Screen& screen() { return program.screen("Composer"); }
  platform::Control& ctl(const char* name, int index = -1) { return screen().control(name, index); }
  void click(const char* control, int index = -1) {
    platform::Event event;
    event.index = index;
    program.fire("Composer", control, EventKind::Click, event);
  }
  void choose(const std::string& entry) {
    platform::Control& list = ctl("cRagaList");
    for (int i = 0; i < list.listCount(); ++i)
      if (list.list(i) == entry) {
        list.setListIndex(i);
        return click("cRagaList");
      }
    FAIL() << "no entry " << entry;
  }
  // A note (palette entry) and duration written into slot s.
  void write(int s, int note, int duration) {
    if (gSelNotation != note) click("cNotation", note);
    click("cNote", s);
    if (duration < 0) return;
    if (gSelTimeVal != duration) click("cTimeVal", duration);
    click("cTime", s);
  }
  void syllable(int s, const std::string& text) {
    ctl("cCompSyl", s).setText(text);
    platform::Event event;
    event.index = s;
    program.fire("Composer", "cCompSyl", EventKind::Change, event);
  }
  // Through the words, tala and data of a new composition of Yaman.
  void newComposition(const std::string& mukhada, const std::string& asthai = "ma na re",
                      const std::string& antara = "ja ga") {
    choose("Yaman");
    click("cOCompN");
    ctl("cAsthai").setText(asthai);
    ctl("cAntara").setText(antara);
    click("cOK");
    choose("Teentaal");
    ctl("cMukhada").setText(mukhada);
    ctl("cStartBeatAst").setText("1");
    ctl("cStartBeatAnt").setText("9");
    ctl("cSpeed").setText("60");
    click("cOK");
  }
  bool playing() { return ctl("cMM").device().mode() == platform::kModePlaying; }
  Names messageTexts() {
    Names texts;
    for (const RecordedMessage& m : program.messages()) texts.push_back(m.text);
    return texts;
  }
  std::string lastMessage() { return program.messages().empty() ? "" : program.messages().back().text; }
  // A field of the user store's row, "" when there is none.
  std::string storedPhrase(int type, const char* field) {
    auto rows = gDbB->openRecordset("Raga - ALT Phrases", platform::RecordsetType::Table);
    sSetTablePKRecord2(*rows, static_cast<int>(kYaman), type);
    return rows->noMatch() ? "" : rows->field(field).asText();
  }
  std::string storedPart(std::int32_t index, int part, const char* field) {
    auto rows = gDbB->openRecordset("Raga - Composition Notations", platform::RecordsetType::Table);
    sSetTablePKRecord2(*rows, static_cast<std::int64_t>(index), part);
    return rows->noMatch() ? "<none>" : rows->field(field).asText();
  }
  long storedRows(const char* table) { return gDbB->openRecordset(table, platform::RecordsetType::Table)->recordCount(); }
  // The Raga Exploration screen of Yaman, its user list, and one entry
  // played in Demo.
  Names userItemsOnExploration() {
    click("cReturn");
    program.fire("Nadavik", "cMnuExpRag", EventKind::Click);
    gCurrRagaId = kYaman;
    gCurrRagaName = fGetRagaName(kYaman);
    sSetupForCurrRaga();
    sMainOperations(0);
    platform::Control& list = program.screen("MainOperations").control("cUserIllusList");
    Names items;
    for (int i = 0; i < list.listCount(); ++i) items.push_back(list.list(i));
    return items;
  }
  bool playsOnExploration(int entry) {
    platform::Screen& mo = program.screen("MainOperations");
    program.fire("MainOperations", "Option1", EventKind::Click);
    mo.control("cUserIllusList").setListIndex(entry);
    program.fire("MainOperations", "cUserIllusList", EventKind::Click);
    return mo.control("cMM").device().mode() == platform::kModePlaying;
  }

  ProgramHarness program;
};

TEST_F(ComposerTest, AnAlapAcrossTwoRowsIsEditedPlayedSavedAndPlaysOnExploration) {
  EXPECT_EQ(ctl("Label1").caption(), "Select Raga");
  choose("Yaman");
  EXPECT_EQ(ctl("Label1").caption(), "Select Musical Category to work with");
  EXPECT_TRUE(ctl("cFMusCat").visible());
  click("cOAlap");
  EXPECT_EQ(ctl("cTimeVal", 0).caption(), "10");
  EXPECT_EQ(ctl("cTimeVal", 18).caption(), "100");
  EXPECT_TRUE(ctl("cNotation", kP + 12).visible()) << "the raga's notes in the upper octave";
  EXPECT_FALSE(ctl("cNotation", kP - 2).visible()) << "shuddha Ma is not Yaman's";
  click("cMnuAllNot");
  EXPECT_TRUE(ctl("cNotation", kP - 2).visible());
  click("cNotation", kS);
  EXPECT_EQ(ctl("cNotation", kS).foreColor(), kComposerMarkColor);
  click("cNotation", kS);
  EXPECT_EQ(gSelNotation, -1) << "a second click clears the selection";
  EXPECT_EQ(ctl("cNotation", kS).foreColor(), 0);

  // Two phrases: 19 notes, a comma, then 3 more in the second screen row.
  const int notes[] = {kS, kR, kG};
  for (int s = 0; s < 19; ++s) write(s, notes[s % 3], kFiftyHundredths);
  write(19, kComma, -1);
  for (int s = 20; s < 23; ++s) write(s, kP, kFiftyHundredths);
  click("cTimeVal", kFiftyHundredths - 1);  // 45 added to slot 22's 50
  click("cTime", 22);
  EXPECT_EQ(ctl("cTime", 22).caption(), "95");
  EXPECT_EQ(gRowImageCount, 2);
  EXPECT_EQ(ctl("Label9").caption(), "Row 1/2");
  click("cMoveD");
  EXPECT_EQ(ctl("cNote", 0).caption(), fGetStringForNote(kP, gNotationScript)) << "row 2 on top";
  EXPECT_FALSE(ctl("Label10").visible());
  click("cMoveD");
  EXPECT_EQ(ctl("Label9").caption(), "Row 2/2") << "Move Down on the last row changes nothing";
  click("cMoveU");
  EXPECT_EQ(ctl("Label10").caption(), "Row 2/2");

  click("cOIns");
  click("cNote", 0);
  EXPECT_EQ(ctl("cNote", 0).caption(), "") << "an empty slot opened in front";
  EXPECT_EQ(ctl("cNote", 20).caption(), ",") << "the comma carried into row 2";
  click("cODel");
  click("cNote", 0);
  EXPECT_EQ(ctl("cNote", 19).caption(), ",");

  click("cPlay");
  EXPECT_TRUE(playing());
  program.clock().advance(700);
  int marked = 0;
  for (int s = 0; s < kSlotCount; ++s) marked += ctl("cNote", s).foreColor() == kComposerMarkColor;
  EXPECT_EQ(marked, 1) << "the sounding note is marked in its slot";
  click("cSave");
  EXPECT_EQ(lastMessage(), "Music Saved");
  EXPECT_EQ(storedPhrase(1, "NotesPhrase"), " S R G S R G S R G S R G S R G S R G S , P P P");
  EXPECT_EQ(storedPhrase(1, "DurationPhrase"),
            " 50 50 50 50 50 50 50 50 50 50 50 50 50 50 50 50 50 50 50 , 50 50 95");

  EXPECT_EQ(userItemsOnExploration(), Names{"Alap Phrases(2)"});
  EXPECT_TRUE(playsOnExploration(0));
}

TEST_F(ComposerTest, ATwoPartCompositionThroughEveryStageIsSavedRenamedAndDeleted) {
  click("cMnuEng");
  newComposition("Mana re");
  EXPECT_TRUE(ctl("Frame1").visible());
  EXPECT_EQ(ctl("cOAsthai").value(), -1);
  EXPECT_TRUE(ctl("cCompSyl", 39).visible());
  EXPECT_EQ(ctl("cTimeVal", 7).caption(), "1");
  write(0, kS, kOneBeat);
  write(1, kR, kOneBeat);
  click("cTime", 1);  // held for two beats: 1 + 1
  write(2, kG, kOneBeat);
  syllable(0, "ma");
  syllable(1, "na");
  syllable(2, "re");
  click("cPlay");
  EXPECT_TRUE(playing());
  click("cSave");
  EXPECT_EQ(messageTexts(), Names{"Music Saved"});
  const std::int32_t index = gTCompInfo.NotationIndex;
  EXPECT_EQ(storedPart(index, 1, "Notation"), "S R G");
  EXPECT_EQ(storedPart(index, 1, "NotesDuration"), "1 2 1");
  EXPECT_EQ(storedPart(index, 1, "SyllableDuration"), " 1 2 1");
  EXPECT_EQ(storedPart(index, 2, "CompositionText"), "ja ga") << "both parts are written at once";

  click("cOAntara");
  EXPECT_EQ(ctl("cNote", 0).caption(), "");
  write(0, kP, kOneBeat);
  write(1, kS, kOneBeat);
  syllable(0, "jag");
  syllable(1, "a");
  click("cSave");
  EXPECT_EQ(storedPart(index, 2, "Notation"), "P S");
  EXPECT_EQ(storedPart(index, 2, "Syllables"), "jag a");

  click("cNewCat");
  EXPECT_EQ(program.messages().size(), 2u) << "a saved composition is left without a question";
  click("cOCompE");
  choose("Mana re");
  EXPECT_EQ(ctl("cAsthai").text(), "ma na re");
  EXPECT_EQ(ctl("cTaal").text(), "Teentaal");
  EXPECT_EQ(ctl("cNote", 2).caption(), "G");
  EXPECT_EQ(ctl("cTime", 1).caption(), "2");
  EXPECT_EQ(ctl("cCompSyl", 2).text(), "re");

  ctl("cMukhada").setText("Mana re, O \"sakhi\"");
  program.answerQuestions(platform::kAnswerYes);
  click("cRename");
  EXPECT_EQ(lastMessage(), "Composition renamed");
  EXPECT_EQ(storedPart(index, 2, "CompositionMukhada"), "Mana re, O \"sakhi\"");
  const Names items = userItemsOnExploration();
  EXPECT_EQ(items, Names{"Composition - Mana re, O \"sakhi\""});
  EXPECT_TRUE(playsOnExploration(0));

  program.fire("MainOperations", "cReturn", EventKind::Click);
  program.fire("Nadavik", "cMnuInvCom", EventKind::Click);
  choose("Yaman");
  click("cOCompE");
  choose("Mana re, O \"sakhi\"");
  click("cDelete");
  EXPECT_EQ(storedRows("Raga - Additional Information"), 0);
  EXPECT_EQ(storedRows("Raga - Composition Notations"), 0);
  EXPECT_TRUE(ctl("cFMusCat").visible());
}

TEST_F(ComposerTest, LeavingACompositionNeverSavedAsksFirst) {
  newComposition("Unsaved");
  click("cNewCat");
  EXPECT_EQ(lastMessage(),
            "The composition you were working on has not been saved. Are you sure you want to switch categoty?");
  EXPECT_TRUE(ctl("cNote", 0).visible()) << "no answer of Yes: the work stays";
  click("cReturn");
  EXPECT_EQ(lastMessage(),
            "The composition you were working on has not been saved. Are you sure you want to exit Composer?");
  EXPECT_EQ(gCurrFormId, kFormComposer);
  program.answerQuestions(platform::kAnswerYes);
  click("cReturn");
  EXPECT_EQ(gCurrFormId, kFormNadavik);
}

// Each case starts at the data stage of a new composition, or in an alap.
TEST_F(ComposerTest, BadInputIsToldAndNeverEndsTheProgram) {
  const std::string tenThousand(10000, 'a');
  std::string devanagari;
  while (devanagari.size() < 10000) devanagari += "\xE0\xA4\xAE\xE0\xA4\xA8 \"'";  // "मन "'"
  const struct {
    const char* what;
    std::function<void()> act;
    const char* told;
  } cases[] = {
      {"no Antara words", [&] { choose("Yaman"); click("cOCompN"); ctl("cAsthai").setText("ma"); click("cOK"); },
       "You must specify at least some text (need not be complete) for both Asthai and Antara"},
      {"data missing", [&] { newComposition(""); },
       "All data (Mukhada, Starting beats for Asthai and Antara, and Beat Duration) must be specified"},
      {"a starting beat past the cycle", [&] { newComposition("x"); ctl("cStartBeatAnt").setText("99"); click("cOK"); },
       "The starting beats must be whole numbers from 1 to 16, the beats of Taal 'Teentaal'."},
      {"10,000 digits of beat duration", [&] { newComposition("x"); ctl("cSpeed").setText(std::string(10000, '9')); click("cOK"); },
       "The beat duration must be a whole number of hundredths of a second from 10 to 500."},
      {"syllables that do not spell the words", [&] { newComposition("y"); write(0, kS, kOneBeat); syllable(0, "mo"); click("cSave"); },
       "Discrepancies found in syllables. Check and correct"},
      {"a note without its duration", [&] { newComposition("z", "ma", "ja"); write(0, kS, kOneBeat); write(1, kR, -1); syllable(0, "ma"); click("cPlay"); },
       "You must supply duration for every note"},
      {"no notes", [&] { newComposition("w", "ma", "ja"); syllable(0, "ma"); click("cSave"); }, "No Duration Specified"},
      {"an alap of durations only", [&] { choose("Yaman"); click("cOAlap"); click("cTimeVal", 0); click("cTime", 0); click("cPlay"); },
       "No notation defined"},
      {"an alap note without duration", [&] { choose("Yaman"); click("cOAlap"); write(0, kS, -1); click("cSave"); },
       "Durations must be specified for every specified note. Please correct."},
      {"a layakari of no beat duration", [&] { choose("Yaman"); click("cOLayakari"); write(0, kS, kOneBeat); ctl("cSpeed").setText(""); click("cSave"); },
       "The beat duration must be a whole number of hundredths of a second from 10 to 500."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    program.answerQuestions(platform::kAnswerYes);
    click("cNewRaga");
    program.answerQuestions(platform::kAnswerOk);
    c.act();
    EXPECT_EQ(lastMessage(), c.told) << testing::PrintToString(messageTexts());
    EXPECT_EQ(gCurrFormId, kFormComposer);
  }
  for (const RecordedMessage& m : program.messages()) {
    if (m.text == "Discrepancies found in syllables. Check and correct") {
      EXPECT_EQ(m.title, "Messaage");
    }
  }

  // Quotes, Devanagari and 10,000 characters in every text field: saved
  // and read back whole; a second composition of that name is refused.
  program.answerQuestions(platform::kAnswerYes);
  click("cNewRaga");
  newComposition(devanagari, devanagari, tenThousand);
  write(0, kS, kOneBeat);
  syllable(0, devanagari);
  click("cOAntara");
  write(0, kR, kOneBeat);
  syllable(0, tenThousand);
  click("cSave");
  EXPECT_EQ(lastMessage(), "Music Saved");
  EXPECT_EQ(storedPart(gTCompInfo.NotationIndex, 2, "Syllables"), tenThousand);
  click("cNewRaga");
  newComposition(devanagari);
  EXPECT_EQ(lastMessage().rfind("You already have a composition named '", 0), 0u);
  EXPECT_EQ(storedRows("Raga - Additional Information"), 1);
}

// Contrast ratio of two colours by relative luminance, 1 to 21.
double fContrastRatio(const QColor& a, const QColor& b) {
  auto luminance = [](const QColor& c) {
    auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
  };
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}
QColor fBgr(int bgr) { return QColor(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF); }

// The work area of a composition, a palette entry and a sounding note
// marked: text on the picture reads over its plate, text in the white
// cells reads against white, on every picture.
TEST_F(ComposerTest, EveryLabelReadsOnEveryPictureAtAContrastOfAtLeast4_5) {
  newComposition("Readable");
  write(0, kS, kOneBeat);
  ctl("cNote", 0).setForeColor(kComposerMarkColor);
  auto* area = static_cast<platform::QtControl&>(ctl("Label1")).widget()->parentWidget();
  int checked = 0;
  for (int picture = 1; picture <= 8; ++picture) {
    screen().setPicture(gDataPath + "/nv" + std::to_string(picture) + ".jpg");
    QImage backdrop(area->size(), QImage::Format_RGB32);
    area->render(&backdrop, QPoint(), QRegion(), QWidget::DrawWindowBackground);
    for (int i = 0; i < screen().controlCount(); ++i) {
      platform::Control& c = screen().controlAt(i);
      auto* widget = static_cast<platform::QtControl&>(c).widget();
      if (!widget || !widget->isVisible() || widget->parentWidget() != area) continue;
      auto* label = qobject_cast<QLabel*>(widget);
      const bool option = qobject_cast<QRadioButton*>(widget) != nullptr;
      if (!(label && !label->text().isEmpty()) && !option) continue;
      ++checked;
      if (c.kind() == platform::ControlKind::Label && widget->property(platform::kOwnBackgroundProperty).toBool()) {
        EXPECT_GE(fContrastRatio(fBgr(c.foreColor()), fBgr(c.backColor())), 4.5) << c.name() << c.index();
        continue;
      }
      const QRect part = widget->geometry() & backdrop.rect();
      double worst = 21;
      for (int y = part.top(); y <= part.bottom(); y += 2)
        for (int x = part.left(); x <= part.right(); x += 2)
          worst = std::min(worst, fContrastRatio(widget->palette().color(widget->foregroundRole()),
                                                 backdrop.pixelColor(x, y)));
      EXPECT_GE(worst, 4.5) << "picture " << picture << ", " << c.name() << " " << c.index();
    }
  }
  EXPECT_GT(checked, 8 * 40) << "the palettes, slots and headings were among them";
}

// The Export menu saves the phrases Play would play, proposing "<raga> -
// <category>", and is offered only while nothing sounds.
TEST_F(ComposerTest, ExportSavesTheAlapUnderItsRagaAndCategory) {
  choose("Yaman");
  click("cOAlap");
  for (int s = 0; s < 3; ++s) write(s, kS + 2 * s, kFiftyHundredths);
  auto& windows = program.windows();
  const std::filesystem::path folder = program.folder() / "exports";
  std::filesystem::create_directories(folder);
  windows.setFileChooser([&](const std::string& title) { return (folder / (title == "Save as Sound" ? "take.wav" : "take")).string(); });
  windows.setChoiceResponder([](const std::string&, const std::vector<std::string>&) { return 0; });
  for (const auto& [menu, proposed, saved, magic] :
       {std::tuple{"cMnuXptMid", "Yaman - Alap.mid", "take.mid", "MThd"},
        {"cMnuXptPdf", "Yaman - Alap.pdf", "take.pdf", "%PDF"},
        {"cMnuXptSnd", "Yaman - Alap.flac", "take.wav", "RIFF"}}) {
    click(menu);
    EXPECT_EQ(windows.lastProposedSaveName(), proposed);
    std::ifstream file(folder / saved, std::ios::binary);
    std::string head(4, ' ');
    file.read(head.data(), 4);
    EXPECT_EQ(head, magic) << saved;
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 3) << "nothing temporary is left";
  click("cPlay");
  EXPECT_FALSE(ctl("cMnuXpt").enabled()) << "a sound export would rebuild the files sounding";
  for (int step = 0; step < 4000 && playing(); ++step) program.clock().advance(10);
  EXPECT_TRUE(ctl("cMnuXpt").enabled());
  EXPECT_EQ(messageTexts(), Names{});
}

}  // namespace
