// The Export menu of the Raga Exploration screen in the whole program:
// the item at hand and the whole raga saved through the file dialog, the
// files complete and nothing temporary left, and a file that cannot be
// made refused with a message naming it.
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sndfile.h>

#include "exploration_fixture.h"

namespace {

namespace fs = std::filesystem;

class ExportMenuTest : public ExplorationTest {
 protected:
  void SetUp() override {
    ExplorationTest::SetUp();
    folder = program.folder() / "exports";
    fs::create_directories(folder);
    program.windows().setFileChooser([this](const std::string& title) {
      titles.push_back(title);
      return answer.string();
    });
    program.windows().setChoiceResponder([](const std::string&, const std::vector<std::string>&) { return 1; });
  }
  std::string contents(const fs::path& p) {
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
  fs::path folder, answer;
  Names titles;
};

TEST_F(ExportMenuTest, SavesTheItemAtHandAndTheWholeRagaCompleteWithNothingLeftBehind) {
  click("cPakad");
  runOut();
  answer = folder / "pakad";  // the extension is added
  click("cMnuXptItmMid");
  const std::string midi = contents(folder / "pakad.mid");
  ASSERT_GT(midi.size(), 100u) << ::testing::PrintToString(messageTexts());
  EXPECT_EQ(midi.substr(0, 4), "MThd");
  EXPECT_NE(midi.find("Yaman"), std::string::npos);

  answer = folder / "Yaman.pdf";
  click("cMnuXptRagPdf");
  const std::string pdf = contents(answer);
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_GE(count(pdf, "/Type /Page\n"), 2) << "every item of Yaman fills more than a page";
  EXPECT_EQ(titles, (Names{"Save as MIDI", "Save as PDF"}));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2) << "no temporary file is left";
  EXPECT_TRUE(ctl("cPakad").enabled()) << "the screen is as it was";
}

TEST_F(ExportMenuTest, SoundOfTheItemAtHandLastsAsLongAsItsNotes) {
  click("cPakad");
  runOut();
  answer = folder / "pakad.flac";
  click("cMnuXptItmSnd");
  SF_INFO info{};
  SNDFILE* flac = sf_open(answer.c_str(), SFM_READ, &info);
  ASSERT_TRUE(flac) << ::testing::PrintToString(messageTexts());
  sf_close(flac);
  EXPECT_EQ(info.format & SF_FORMAT_TYPEMASK, SF_FORMAT_FLAC);
  double pakadMs = 0;  // the pakad's durations, in hundredths of a second
  for (const std::string& segment : gTRaga.PakadDurations) {
    std::istringstream words(segment);
    for (double hundredths; words >> hundredths;) pakadMs += hundredths * 10;
  }
  EXPECT_NEAR(info.frames / 44.1, pakadMs, 10.0);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST_F(ExportMenuTest, AFileThatCannotBeMadeIsNamedAndLeavesNothing) {
  click("cPakad");
  runOut();
  // a folder that is not there, and a name longer than the file system takes
  for (const fs::path& bad : {folder / "gone" / "pakad.mid", folder / (std::string(300, 'x') + ".mid")}) {
    answer = bad;
    click("cMnuXptItmMid");
    ASSERT_FALSE(messageTexts().empty());
    EXPECT_NE(messageTexts().back().find("\"" + bad.string() + "\""), std::string::npos) << messageTexts().back();
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 0) << "nothing is left behind";
}

}  // namespace
