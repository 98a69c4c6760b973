// Segment files: the copied stretch, its faded ends, and bad requests.
#include <gtest/gtest.h>

#include "audio_measure.h"
#include "render_setup.h"
#include "tonvex/tonvex.h"

namespace {

using namespace tonvex_test;

class SegmentTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(tonvex_render::setUpLibrary({3, 1, 1.0, ""}), "");
    source = scratchFile("source.wav");
    ASSERT_EQ(FWavGenerateMusicFile(3, "12 16 19", "1000 1000 1000", source, 1, 0.2, 1, 1000, 60,
                                    80, 50), 1);
  }
  std::string source;
};

TEST_F(SegmentTest, CopiesTheStretchWithFadedEnds) {
  const std::string out = scratchFile("seg.wav");
  ASSERT_EQ(FWavCreateSegmentFile(source, 1000, 1500, out, 2, 0.2), 1);
  const auto whole = readSamples(source), part = readSamples(out);
  ASSERT_EQ(part.size(), at(1500));
  EXPECT_EQ(part.front(), 0.0f);
  EXPECT_EQ(part.back(), 0.0f);
  for (size_t n = 300; n < part.size() - 300; n += 1001) EXPECT_EQ(part[n], whole[at(1000) + n]);
}

TEST_F(SegmentTest, UpToOneMillisecondPastTheEndIsTrimmed) {
  const std::string out = scratchFile("seg.wav");
  ASSERT_EQ(FWavCreateSegmentFile(source, 2000, 1001, out, 2, 0.2), 1);
  EXPECT_EQ(readSamples(out).size(), at(1000));
}

TEST_F(SegmentTest, BadRequestsFailAndLeaveNoFile) {
  struct Case {
    const char* what;
    std::string from;
    int startMs, lengthMs, droneMix;
    double level;
  } const cases[] = {
      {"missing source", scratchFile("absent.wav"), 0, 100, 2, 0.2},
      {"beyond the end", source, 2500, 600, 2, 0.2},
      {"starts after the end", source, 3000, 10, 2, 0.2},
      {"negative start", source, -1, 100, 2, 0.2},
      {"zero length", source, 0, 0, 2, 0.2},
      {"drone mix", source, 0, 100, 5, 0.2},
      {"level", source, 0, 100, 2, 3.0},
  };
  for (const Case& c : cases) {
    const std::string out = scratchFile("seg.wav");
    EXPECT_EQ(FWavCreateSegmentFile(c.from, c.startMs, c.lengthMs, out, c.droneMix, c.level), 0)
        << c.what;
    EXPECT_FALSE(fileExists(out)) << c.what;
  }
}

}  // namespace
