// Speed of the notation conversions on a long phrase: 500 words of notes,
// grace pairs and segment colons, as a taan or a composition line may hold.
#include <benchmark/benchmark.h>

#include <string>

#include "notation/devanagari.h"
#include "notation/generation.h"
#include "notation/phrase_forms.h"
#include "notation/vocabulary.h"

namespace {

constexpr std::int16_t kEnglishScript = 2;

// 500 words cycling through notes of all octaves, every 7th a grace pair and
// every 25th a colon.
std::string longPhrase() {
  sInitScales();
  std::string phrase;
  for (int i = 0; i < 500; ++i) {
    if (i > 0) phrase += ' ';
    if (i % 25 == 24)
      phrase += ':';
    else if (i % 7 == 6)
      phrase += gNoteEng[static_cast<std::size_t>(i % 36)] + "'" +
                gNoteEng[static_cast<std::size_t>((i + 2) % 36)];
    else
      phrase += gNoteEng[static_cast<std::size_t>(3 + i % 30)];
  }
  return phrase;
}

void BM_GenerationForm(benchmark::State& state) {
  const std::string phrase = longPhrase();
  for (auto _ : state)
    benchmark::DoNotOptimize(fConvertNotePhraseToMusicGenerationFormat(phrase, 5));
}
BENCHMARK(BM_GenerationForm)->Unit(benchmark::kMicrosecond);

void BM_DevanagariDisplayText(benchmark::State& state) {
  const std::string phrase = longPhrase();
  for (auto _ : state)
    benchmark::DoNotOptimize(
        fPrepareNotationDisplayString(fPrepareNotationDevnagariString(phrase)));
}
BENCHMARK(BM_DevanagariDisplayText)->Unit(benchmark::kMicrosecond);

void BM_DevanagariToUnicode(benchmark::State& state) {
  const std::string shown =
      fPrepareNotationDisplayString(fPrepareNotationDevnagariString(longPhrase()));
  for (auto _ : state) benchmark::DoNotOptimize(fKeymapToUnicode(shown));
}
BENCHMARK(BM_DevanagariToUnicode)->Unit(benchmark::kMicrosecond);

void BM_LegalityTest(benchmark::State& state) {
  const std::string phrase = longPhrase();
  for (auto _ : state) benchmark::DoNotOptimize(fIsLegalNotationPhrase(phrase, kEnglishScript));
}
BENCHMARK(BM_LegalityTest)->Unit(benchmark::kMicrosecond);

}  // namespace
