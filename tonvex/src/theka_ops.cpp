// FWavLoadThekaData: reads a sealed tabla kit file, checks and parses it, and
// renders its strokes for the current Sa into libraryState().theka.
#include <fstream>
#include <iterator>

#include "library_state.h"
#include "tabla_kit.h"
#include "theka_mix.h"
#include "tonvex/tonvex.h"

using namespace tonvex;

namespace {

constexpr std::streamsize kMaxKitBytes = 1 << 20;

std::optional<std::string> readSmallFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::string text;
  text.resize(kMaxKitBytes + 1);
  in.read(text.data(), kMaxKitBytes + 1);
  if (in.gcount() > kMaxKitBytes) return std::nullopt;
  text.resize(static_cast<size_t>(in.gcount()));
  return text;
}

}  // namespace

int16_t FWavLoadThekaData(const std::string& libraryFile, int32_t thekaInstrument) {
  if (thekaInstrument < 1) return 0;
  const auto fileText = readSmallFile(libraryFile);
  if (!fileText) return 0;
  const auto body = unsealKitText(*fileText);
  if (!body) return 0;
  std::string error;
  auto kit = parseKitText(*body, error);
  if (!kit) return 0;
  LibraryState& state = libraryState();
  state.theka = LoadedKit{std::move(*kit), thekaInstrument, 0.0, {}, 0.0, {}};
  retuneTheka(state);
  return 1;
}
