// Fuzz target: arbitrary tabla kit text through the kit parser and, when a
// kit is accepted, through the synthesiser of its voices. Every number the
// parser accepts lies in its range, and every sample rendered is finite.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tabla_kit.h"
#include "tabla_synth.h"

namespace {

void check(bool ok) {
  if (!ok) __builtin_trap();
}

void checkRanges(const tonvex::TablaKit& kit) {
  check(tonvex::kDrumRatioRange.holds(kit.dayanRatio) && tonvex::kDrumRatioRange.holds(kit.bayanRatio));
  check(kit.bols.size() == tonvex::kBolCount);
  for (const tonvex::KitVoice& voice : kit.voices)
    for (const tonvex::KitMode& mode : voice.modes)
      check(tonvex::kAmplitudeRange.holds(mode.amplitude) && tonvex::kDecayMsRange.holds(mode.decayMs));
  for (const tonvex::KitBol& bol : kit.bols)
    for (const tonvex::KitHit& hit : bol.hits)
      check(hit.voice >= 0 && std::size_t(hit.voice) < kit.voices.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  tonvex::unsealKitText(text);
  std::string error;
  const auto kit = tonvex::parseKitText(text, error);
  if (!kit) {
    check(!error.empty());
    return 0;
  }
  checkRanges(*kit);
  for (const auto& samples : tonvex::renderKitVoices(*kit, 261.63))
    for (float s : samples) check(std::isfinite(s));
  return 0;
}
