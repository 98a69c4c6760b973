// The notation sheet: the grid cells of a part as the composition player
// places them, and whole sheets (a Teentaal and a Rupak composition, both
// scripts, A4 and Letter) written by Qt's PDF writer and read back for
// their pages and fonts.
#include "export/notation_sheet.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "notation/vocabulary.h"
#include "platform/qt/qt_pdf.h"

namespace {

TEST(GridCells, WordsFallOnTheirBeatsAndShareACellWhenShort) {
  const struct {
    const char* words;
    const char* beats;
    int cycle, start;
    std::vector<std::string> cells;
  } cases[] = {
      {"S R G", "1 1 1", 4, 3, {"", "", "S", "R", "G", "", "", ""}},  // wraps into a second row
      {"S R G", "0.5 0.5 2", 4, 1, {"SR", "G", "", ""}},             // two half beats in one cell
      {"S R", "2 1", 3, 1, {"S", "", "R"}},                          // a held note leaves its cells empty
      {"", "", 7, 1, {}},
  };
  for (const auto& c : cases) EXPECT_EQ(fGridCells(c.words, c.beats, c.cycle, c.start), c.cells) << c.words;
}

TEST(SheetText, DevanagariCarriesKomalTivraAndOctaveMarks) {
  sInitScales();
  EXPECT_EQ(fSheetText("N< r M S>", 2), "N< r M S>");
  EXPECT_EQ(fSheetText("N< r M S>", 1), "\u0928\u093C\u093F \u0930\u0947\u0952 \u092E\u0951 \u0938\u093E\u0902");
}

Score twoCompositions(int script) {
  Score s;
  s.ragaName = "Yaman";
  s.script = script;
  s.info = {"Kalyan", "G", "N", "Sampoorna - Sampoorna", "First quarter of the night", "N< R G M D N S>",
            "S> N D P M G R S", "N< R G R N< R S P M G R S"};
  s.items.push_back({"Alap", {{"N< R G R S", {}, {}, 0}, {"N< D< N< R S", {}, {}, 0}}, {}, {}});
  s.items.push_back({"Saanjh bhayi (Teentaal)", {}, {{"Asthai", "Saanjh bha yi ab deep ja laa o man man dir mein jyot ja gaa o",
      "2 2 2 2 2 1 2 3 2 2 2 2 2 1 2 3", "N< R G R G M P G R N< R S M D N S> N D P M G R S",
      "1 1 2 1 1 1 1 2 1 1 1 3 1 1 2 2 1 1 2 1 1 1 3", 1, 9}}, {}});
  s.items.push_back({"Saanjh sindoori (Rupak)", {}, {{"Asthai", "Saanjh sin doo ri chhaa yi ga gan mein deep ja le har dwaar",
      "2 1 2 2 2 2 1 2 2 2 1 2 2 5", "N< r G M G M d P M G m G M d N S> N d P M G r S",
      "1 1 1 2 2 1 1 2 1 1 1 2 1 1 1 2 1 1 1 1 1 1 1", 4, 1}}, {}});
  return s;
}

TalaLayout talaOf(int talaId) {
  if (talaId == 4) return {7, *parseVibhags("3 2 2", "0 2 3", 7)};
  return {16, *parseVibhags("4 4 4 4", "x 2 0 3", 16)};
}

std::string fileText(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

int count(const std::string& text, const std::string& what) {
  int n = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

TEST(NotationSheet, BothScriptsOnBothPapersMakeOnePagePdfsWithTheirFonts) {
  sInitScales();
  const auto folder = std::filesystem::path(testing::TempDir()) / "nadavik-sheets";
  std::filesystem::create_directories(folder);
  for (int script : {1, 2})
    for (auto paper : {platform::PaperSize::A4, platform::PaperSize::Letter}) {
      const auto path = folder / ((script == 1 ? "devanagari-" : "english-") +
                                  std::string(paper == platform::PaperSize::A4 ? "a4" : "letter") + ".pdf");
      auto sheet = platform::qt::makeQtPdfSheet(path.string(), paper, "Yaman");
      ASSERT_TRUE(sheet);
      ASSERT_TRUE(fDrawNotationSheet(twoCompositions(script), talaOf, *sheet));
      const std::string pdf = fileText(path);
      EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
      EXPECT_EQ(count(pdf, "/Type /Page\n") + count(pdf, "/Type /Page\r"), 1) << path;
      EXPECT_EQ(pdf.find("Devanagari") != std::string::npos, script == 1) << path;
    }
}

TEST(NotationSheet, AFolderThatCannotBeWrittenGivesNoSheet) {
  EXPECT_FALSE(platform::qt::makeQtPdfSheet("/proc/nadavik/sheet.pdf", platform::PaperSize::A4, "Yaman"));
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
