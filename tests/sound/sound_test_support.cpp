// Stores, session defaults and pitch measurement for the sound tests.
#include "sound_test_support.h"

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <sstream>

#include "core/session.h"
#include "platform/store.h"
#include "sound/onpr_rows.h"
#include "sound/sound_state.h"
#include "store/queries.h"
#include "tonvex/tonvex.h"

namespace fs = std::filesystem;

namespace {

std::string readText(const fs::path& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

std::unique_ptr<platform::Database> openStore(const fs::path& path, bool readOnly) {
  return platform::defaultWorkspace().openDatabase(path.string(), true, readOnly, "");
}

// The user music set of the tests: its "ONPR" rows for both instruments
// and its "Scale Shift Specs" row.
std::string userSetRows() {
  std::ostringstream sql;
  for (int type : {1, 2}) {
    sql << "INSERT INTO \"ONPR\" VALUES (" << kUserSetId << ", " << type << ", 'Test Scale', "
        << kUserSetTonic;
    for (int i = 0; i < kOnprColumns; ++i)
      sql << ", " << (type == 1 ? kUserMainBase + i / 100.0f : -(i / 100.0f));
    sql << ");\n";
  }
  sql << "INSERT INTO \"Scale Shift Specs\" VALUES (" << kUserSetId
      << ", 'Test Scale', 'c', " << kUserSetTonic << ", 254.5, 250.5);\n";
  return sql.str();
}

void setSoundDefaults(const fs::path& dir) {
  gDataPath = dir.string();
  gErrTraceFile = (dir / "errtrace.txt").string();
  gTraceEnabled = 0;
  gTraceOn = 0;
  gSynthNames = "ce";
  gMainSetName = "c";
  gDroneSetName = "e";
  gCurrTonicNoteId = 3;
  gCurrMusicSetId = 3;
  gCurrMusicSetName.clear();
  gCurrDroneType = 1;
  gCurrDroneFactor = 1.0;
  gDroneMode = 1;
  gWavOption = 1;
  gThekaInstrument = 4;
  gInstrLibFiles = {"", "", "", NADAVIK_TEST_KIT_FILE, ""};
  gDroneCycles = 2;
  gDroneWavFile = (dir / "D.Wav").string();
  gNoteAdjust.fill(0.0f);
  gMainAdjust.fill(0.0f);
  gDroneAdjust.fill(0.0f);
  gScaleShiftSpec = {};
  gDroneStep = 0;
}

// 16-bit mono samples of a wave file; empty when it is not one.
std::vector<std::int16_t> readWaveSamples(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  char riff[12];
  if (!in.read(riff, 12) || std::string(riff, 4) != "RIFF") return {};
  char header[8];
  while (in.read(header, 8)) {
    std::uint32_t size = 0;
    for (int i = 0; i < 4; ++i) size |= std::uint32_t(std::uint8_t(header[4 + i])) << (8 * i);
    if (std::string(header, 4) == "data") {
      std::vector<std::int16_t> samples(size / 2);
      in.read(reinterpret_cast<char*>(samples.data()), std::streamsize(samples.size() * 2));
      return samples;
    }
    in.seekg(size + (size & 1), std::ios::cur);
  }
  return {};
}

// Autocorrelation of x at a lag over n samples from start.
double correlation(const std::vector<std::int16_t>& x, std::size_t start, std::size_t n,
                   std::size_t lag) {
  double sum = 0.0;
  for (std::size_t i = start; i < start + n; ++i) sum += double(x[i]) * double(x[i + lag]);
  return sum;
}

}  // namespace

void SoundStoreTest::SetUp() {
  dir_ = fs::temp_directory_path() /
         ("nadavik-sound-" + std::to_string(::getpid()) + "-" +
          ::testing::UnitTest::GetInstance()->current_test_info()->name());
  fs::remove_all(dir_);
  fs::create_directories(dir_);
  fs::copy_file(NADAVIK_TEST_LIBRARY_STORE, dir_ / "mrA.nvy");
  platform::defaultWorkspace().createDatabase((dir_ / "mrB.nvy").string(),
                                              readText(NADAVIK_TEST_USER_SCHEMA) + "\n" +
                                                  readText(NADAVIK_TEST_SHARED_SCHEMA));
  gDbB = openStore(dir_ / "mrB.nvy", false);
  gDbB->execute(userSetRows());
  gDbA = openStore(dir_ / "mrA.nvy", true);
  platform::setWindowSystem(&windows_);
  setSoundDefaults(dir_);
  sSetSQLStrings();
  ASSERT_EQ(FWavSetGlobalVariables(gSynthNames), 1);
  ASSERT_EQ(FWavSetCurrInstr(gMainSetName), 1);
}

void SoundStoreTest::TearDown() {
  if (gDbA) gDbA->close();
  if (gDbB) gDbB->close();
  gDbA.reset();
  gDbB.reset();
  fs::remove_all(dir_);
}

void SoundStoreTest::changeLibraryStore(const std::string& sql) {
  gDbA->close();
  auto writable = openStore(dir_ / "mrA.nvy", false);
  writable->execute(sql);
  writable->close();
  gDbA = openStore(dir_ / "mrA.nvy", true);
}

void SoundStoreTest::resetLibraryStore() {
  gDbA->close();
  fs::copy_file(NADAVIK_TEST_LIBRARY_STORE, dir_ / "mrA.nvy", fs::copy_options::overwrite_existing);
  gDbA = openStore(dir_ / "mrA.nvy", true);
}

std::vector<std::string> SoundStoreTest::messageTexts() const {
  std::vector<std::string> texts;
  for (const ShownMessage& m : windows_.messages) {
    EXPECT_EQ(m.title, "Message") << m.text;
    EXPECT_EQ(m.style, platform::kMsgInformation) << m.text;
    texts.push_back(m.text);
  }
  return texts;
}

double SoundStoreTest::recordedSpc(const std::string& setName, int noteId) const {
  auto rs = gDbA->openRecordset("Note Specifications", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {setName, noteId});
  const double spc = rs->noMatch() ? 0.0
                                   : double(rs->field("SamPerCyc").asInteger()) +
                                         rs->field("Fractional Value").asDouble();
  rs->close();
  return spc;
}

OnprRow SoundStoreTest::libraryOnpr(int setId, int instrumentType) const {
  auto rs = gDbA->openRecordset("ONPR", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {setId, instrumentType});
  OnprRow row{};
  for (std::int16_t i = 0; i < kOnprColumns && !rs->noMatch(); ++i) row[i] = fGetSPCFactor(*rs, i);
  return row;
}

double fMeasureRenderedNoteHz(int noteId, double expectedHz, const fs::path& wavFile) {
  char token[8];
  std::snprintf(token, sizeof token, "%02d", noteId);
  if (FWavGenerateMusicFile(1, token, "1500", wavFile.string(), 0, 0.2, 1, 1000, 60, 80, 50) !=
      1)
    return 0.0;
  const std::vector<std::int16_t> x = readWaveSamples(wavFile);
  // Compare the waveform with itself 16 periods later over the steady
  // middle: the best lag within 1 % of 16 expected periods, refined by a
  // parabola, divided by 16, gives the period to a small fraction of a cent.
  constexpr int kPeriods = 16;
  const double expectedLag = kPeriods * tonvex::kSampleRate / expectedHz;
  const std::size_t start = tonvex::kSampleRate / 4, span = tonvex::kSampleRate / 2;
  const auto lo = std::size_t(expectedLag * 0.99), hi = std::size_t(expectedLag * 1.01) + 1;
  if (x.size() < start + span + hi + 1) return 0.0;
  std::size_t best = lo;
  double bestValue = correlation(x, start, span, lo);
  for (std::size_t lag = lo + 1; lag <= hi; ++lag) {
    const double value = correlation(x, start, span, lag);
    if (value > bestValue) bestValue = value, best = lag;
  }
  const double left = correlation(x, start, span, best - 1);
  const double right = correlation(x, start, span, best + 1);
  const double offset = 0.5 * (left - right) / (left - 2.0 * bestValue + right);
  return tonvex::kSampleRate * kPeriods / (double(best) + offset);
}

double fCents(double aHz, double bHz) { return 1200.0 * std::log2(aHz / bHz); }
