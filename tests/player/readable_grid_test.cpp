// The tala grid read by a learner on the common desktops: for the longest
// talas (12, 14 and 16 beats) with eight rows, in both scripts, every cell
// lies left of the controls and above the prompt line, cells do not
// overlap, and every syllable and note, half and quarter beats sharing a
// cell, shows whole in its font. Each division's first beat carries its
// mark, and a divider stands in the gap before it.
#include <QLabel>
#include <QMenu>

#include "../../src/platform/qt/qt_control.h"
#include "control/screen_manager.h"
#include "platform/store.h"
#include "player/composition_grid.h"
#include "player/player.h"
#include "player_fixture.h"
#include "store/working_record_comp.h"

namespace {

// One cycle of `beats` beats, its first beat four quarter notes and its
// second two half notes with grace notes, as a line of notes (its
// apostrophes doubled for the store's text) and one of matras; the last
// cycle one beat short, so that eight cycles make eight rows.
std::pair<std::string, std::string> fCycles(int beats, int cycles) {
  std::string notes, matras;
  for (int c = 0; c < cycles; ++c)
    for (int b = 0; b < beats - (c == cycles - 1 ? 1 : 0); ++b) {
      if (b == 0) notes += "S> N D P ", matras += "0.25 0.25 0.25 0.25 ";
      else if (b == 1) notes += "M''G P''D ", matras += "0.5 0.5 ";
      else notes += "R''G ", matras += "1 ";
    }
  return {notes, matras};
}

class ReadableGrid : public PlayerTest {
 protected:
  // A composition of eight rows in the tala, in the user's store, opened.
  void openEightRows(std::int16_t talaId, int beats) {
    const auto [notes, matras] = fCycles(beats, 8);
    std::string syllables, lengths;
    for (int b = 0; b < 8 * beats - 1; ++b) syllables += "Shyaam ", lengths += "1 ";
    const int index = 9000 + talaId;
    gDbB->execute("INSERT INTO \"Raga - Additional Information\" VALUES (1, 'Long " +
                  std::to_string(talaId) + "', 2, " + std::to_string(index) + ")");
    for (int part : {1, 2})
      gDbB->execute("INSERT INTO \"Raga - Composition Notations\" VALUES (" + std::to_string(index) +
                    ", " + std::to_string(part) + ", 1, 'Long', '', '', 'words', '" + syllables +
                    "', '" + lengths + "', '" + notes + "', '" + matras + "', " +
                    std::to_string(talaId) + ", 1, 50)");
    gCurrDbSelector = 2;
    gCurrPhraseKind = 8;
    gCurrMode = 2;
    gCompPart = 1;
    gCurrCompName = "Long";
    sDBToTCompInfo(2, 2, "Long " + std::to_string(talaId));
    sDBToTCompData(2, index);
    sPlayCompositions(0);
  }
  QLabel* label(const char* name, int index) {
    return static_cast<QLabel*>(static_cast<platform::QtControl&>(pc(name, index)).widget());
  }
  // The marked beat numbers, as "x 1, 0 3, ...", each but the first with
  // its divider in the gap before it and down the grid.
  std::string expectDivisions(int beats) {
    std::string marked;
    int divider = 0;
    for (int b = 0; b < beats; ++b) {
      const std::string caption = pc("cBeat", b).caption();
      if (caption.find(' ') == std::string::npos) continue;
      marked += (marked.empty() ? "" : ", ") + caption;
      if (b == 0) continue;
      platform::Control& line = pc("cVibhag", divider++);
      EXPECT_TRUE(line.visible());
      EXPECT_GT(line.x1(), pc("cNote", b - 1).left() + pc("cNote", b - 1).width()) << b;
      EXPECT_LT(line.x1(), pc("cNote", b).left()) << b;
      EXPECT_GE(line.y2(), pc("cNote", 7 * beats).top()) << "down to the last row";
    }
    EXPECT_EQ(player().elementCount("cVibhag"), std::max(divider, 1));
    return marked;
  }
  void expectShowsWhole(const char* name, int index) {
    QLabel* cell = label(name, index);
    EXPECT_LE(cell->fontMetrics().height(), cell->height()) << name << index;
    EXPECT_LE(cell->fontMetrics().horizontalAdvance(cell->text()), cell->width()) << name << index;
  }
};

TEST_F(ReadableGrid, EightRowsOfTheLongestTalasReadAtBothSizesInBothScripts) {
  const struct {
    std::int16_t talaId;
    int beats;
    const char* divisions;
  } kTalas[] = {{7, 12, "x 1, 0 3, 2 5, 0 7, 3 9, 4 11"},
                {8, 14, "x 1, 2 4, 0 8, 3 11"},
                {9, 16, "x 1, 2 5, 0 9, 3 13"},
                {4, 7, "0 1, 2 4, 3 6"}};  // Rupak: its sam is a khali
  for (const auto& [talaId, beats, divisions] : kTalas) {
    openEightRows(talaId, beats);
    ASSERT_EQ(gCurrFormId, kFormPlayComposition1) << talaId;
    ASSERT_EQ(player().elementCount("cNote"), 8 * beats);
    for (const auto& [width, height] : {std::pair{1366, 768}, {1920, 1080}}) {
      player().setWidth(static_cast<float>(width));
      player().setHeight(static_cast<float>(height));
      program.fire("PlayComposition1", "", platform::EventKind::Activate);
      program.fire("PlayComposition1", "", platform::EventKind::Resize);
      for (const char* script : {"cMnuDev", "cMnuEng"}) {
        press(script);
        SCOPED_TRACE(testing::Message() << beats << " beats " << width << "x" << height << " " << script);
        const int last = 8 * beats - 1;
        EXPECT_LE(pc("cNote", last).left() + pc("cNote", last).width(), pc("Frame1").left());
        EXPECT_LE(pc("cNote", last).top() + pc("cNote", last).height(), pc("cPrompts").top());
        EXPECT_GE(pc("cBeat", 0).top(), pc("cComposition").top() + pc("cComposition").height());
        for (int slot = 0; slot < 8 * beats; ++slot) {
          if (slot % beats != 0)
            EXPECT_GT(pc("cNote", slot).left(), pc("cNote", slot - 1).left() + pc("cNote", slot - 1).width());
          expectShowsWhole("cNote", slot);
          expectShowsWhole("cMatra", slot);
        }
        for (int b = 0; b < beats; ++b) expectShowsWhole("cBeat", b);
        for (int r = 0; r < 8; ++r) expectShowsWhole("cRow", r);
        EXPECT_EQ(expectDivisions(beats), divisions);
      }
    }
    EXPECT_TRUE(pc("cBeat", 0).fontBold()) << "the sam is marked";
    press("cReturn");
  }
  // A short composition of the library gets tall cells: its words still fit.
  gCurrDbSelector = 1;
  open("Saanjh bhayi");
  for (int slot = 0; slot < player().elementCount("cMatra"); ++slot) expectShowsWhole("cMatra", slot);
  EXPECT_EQ(messageTexts(), Names{});
}

}  // namespace
