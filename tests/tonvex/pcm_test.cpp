// Float to 16-bit conversion: rounding, full scale and beyond, NaN.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pcm.h"

namespace {

struct PcmCase {
  float in;
  int16_t out;
};

TEST(PcmTest, RoundsAndClamps) {
  const PcmCase cases[] = {
      {0.0f, 0},          {1.0f, 32767},       {-1.0f, -32767},
      {1.0001f, 32767},   {-1.0001f, -32768},  {7.5f, 32767},
      {-40.0f, -32768},   {0.5f, 16384},       {-0.5f, -16384},
      {1.0f / 32767, 1},  {0.49f / 32767, 0},  {std::numeric_limits<float>::infinity(), 32767},
      {-std::numeric_limits<float>::infinity(), -32768},
  };
  for (const PcmCase& c : cases) EXPECT_EQ(tonvex::toPcm16(c.in), c.out) << "input " << c.in;
}

TEST(PcmTest, NanIsSilence) { EXPECT_EQ(tonvex::toPcm16(std::nanf("")), 0); }

TEST(PcmTest, BufferConversionAppliesGainBeforeClamping) {
  const std::vector<float> in{0.25f, -0.6f, 0.9f};
  const auto out = tonvex::toPcm16(in, 2.0f);
  EXPECT_EQ(out, (std::vector<int16_t>{16384, -32768, 32767}));
  EXPECT_FLOAT_EQ(tonvex::peakOf(in), 0.9f);
  EXPECT_EQ(tonvex::peakOf(std::vector<float>{}), 0.0f);
}

}  // namespace
