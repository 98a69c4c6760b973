// Tests of durations: sums and their rounding, matras to duration words,
// timing scripts and the tempo factor.
#include "notation/durations.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/errors.h"
#include "core/session.h"

namespace {

// A phrase's beats are its durations summed, then rounded once (halves to
// even); a comma word counts 0.
TEST(Durations, BeatsRoundTheSumOnce) {
  const std::pair<const char*, int> rows[] = {{"1 1 0.5", 2}, {"0.5 0.5 0.5 0.5", 2}, {"1.5 1.5", 3}, {"", 0},
                                              {"15 15 , 15", 45}};
  for (const auto& [phrase, beats] : rows) EXPECT_EQ(fGetBeatCountForPhrase(phrase), beats) << phrase;
}

// Matras to durations round exact halves down; a duration beyond 16 bits is
// a forgiven overflow. Duration phrases are made per section.
TEST(Durations, MatrasToDurationsAndDurationPhrases) {
  const std::tuple<const char*, std::int16_t, const char*> rows[] = {
      {"1 0.5", 70, "70 35"}, {"0.5", 25, "12"}, {"0.52", 25, "13"}, {"1.5", 25, "37"},
      {"0.25  2", 70, "17 140"},  // 17.5 exactly
      {"", 70, ""},
  };
  for (const auto& [matras, base, durations] : rows) EXPECT_EQ(fConvertMatraToDuration(matras, base), durations);
  const auto forgivenBefore = gIgnorableCount;
  EXPECT_EQ(fConvertMatraToDuration("1000", 70), "0");
  EXPECT_EQ(gIgnorableCount - forgivenBefore, 1);
  gBaseMatraMs = 70;
  const std::tuple<const char*, std::int16_t, const char*> phrases[] = {
      {"S R , G m", 6, "15 15 , 15 15 "}, {"S R : G", 10, "70 70 70 "}, {"S :G", 3, "0 0 "}, {"", 6, ""}};
  for (const auto& [notes, kind, durations] : phrases) EXPECT_EQ(fCreateDurationPhrase(notes, kind), durations);
}

// The timing script trims the caller's phrase. The tempo factor: exactly
// 1.0 gives the script back untouched, any other rebuilds it with halves to
// even; the slider's value picks the factor.
TEST(Durations, TimingScriptAtTheTempoOfTheFactorOrTheSlider) {
  for (auto [given, trimmed, script] : {std::tuple{"  S R G ", "S R G", "15 15 15"}, {"   ", "", ""}}) {
    std::string phrase = given;
    EXPECT_EQ(fGetTimingScript(phrase), script);
    EXPECT_EQ(phrase, trimmed);
  }
  const std::tuple<double, const char*, const char*> rows[] = {{0.5, "15 15 , 15", "8 8 , 8"},
                                                               {0.5, "25 , 5 ", "12 , 2"},
                                                               {1.0, "15 15 , 15 ", "15 15 , 15 "},
                                                               {0, "15 15 ", "0 0"},
                                                               {2.0, "15", "30"}};
  for (const auto& [factor, script, scaled] : rows) EXPECT_EQ(fFactorTimingScriptBy(script, factor), scaled);
  const std::pair<int, const char*> sliders[] = {{1, "75"}, {2, "50"}, {9, "15"}, {13, "8"}, {17, "5"}};
  for (const auto& [slider, scaled] : sliders) EXPECT_EQ(fFactorTimingScript("15", slider), scaled) << slider;
  EXPECT_THROW(fFactorTimingScript("15", 19), ErrorTrap);
}

}  // namespace
