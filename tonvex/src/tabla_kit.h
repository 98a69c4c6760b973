// A tabla kit: the modal parameters of each drum voice and, for each Theka
// Bol Id 1 to 20, the voices struck and where within the beat. Kits are kept
// in checksummed text files (clb.nvy, vlb.nvy) written at build time from the
// readable sources in tonvex/data by tonvex-kit. Stateless.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tonvex {

inline constexpr int kBolCount = 20;

// Bounds of every number of a kit. The parser refuses a line with a number
// outside them and names the line; the synthesiser clamps to them, so that a
// kit made in code can overflow neither a stroke's length nor its samples.
struct KitRange {
  double low, high;
  bool holds(double v) const { return v >= low && v <= high; }  // false for NaN
  double clamp(double v) const { return v >= low ? (v <= high ? v : high) : low; }
};
inline constexpr KitRange kDrumRatioRange{0.05, 8.0};      // dayan, bayan: times the middle Sa
inline constexpr KitRange kModeRatioRange{0.1, 32.0};      // times the drum's pitch
inline constexpr KitRange kAmplitudeRange{0.0, 10.0};      // of a mode or a click
inline constexpr KitRange kDecayMsRange{0.1, 10000.0};     // time constant
inline constexpr KitRange kTwinHzRange{0.0, 1000.0};
inline constexpr KitRange kGlideSemitonesRange{-24.0, 24.0};
inline constexpr KitRange kGlideMsRange{0.1, 10000.0};
inline constexpr KitRange kClickMsRange{0.1, 1200.0};      // at most the longest stroke
inline constexpr KitRange kLowpassHzRange{1.0, 20000.0};
inline constexpr KitRange kHitGainRange{0.001, 10.0};

struct KitMode {
  double ratio = 1.0;      // frequency as a multiple of the drum's pitch
  double amplitude = 0.0;  // initial amplitude
  double decayMs = 100.0;  // time constant of the exponential decay
  double twinHz = 0.0;     // split into two equal partials this far apart (beating)
};

struct KitVoice {
  std::string name;
  bool onBayan = false;         // pitched on the bass drum instead of the dayan
  std::vector<KitMode> modes;
  double glideSemitones = 0.0;  // pitch rise during the decay (bayan pressure)
  double glideMs = 0.0;         // time constant of that rise
  double clickMs = 0.0;         // noise burst at the stroke's start
  double clickAmplitude = 0.0;
  double clickLowpassHz = 0.0;
};

struct KitHit {
  int voice = 0;             // index into TablaKit::voices
  double beatFraction = 0.0; // when within the beat, 0 to 1
  double gain = 1.0;
};

struct KitBol {
  std::string name;
  std::vector<KitHit> hits;
};

struct TablaKit {
  std::string name;
  double dayanRatio = 2.0;  // dayan pitch as a multiple of the middle Sa
  double bayanRatio = 0.6;  // bayan pitch as a multiple of the middle Sa
  std::vector<KitVoice> voices;
  std::vector<KitBol> bols;  // index = Theka Bol Id - 1, all 20 present
};

// Parses kit text (comment lines "#", no checksum line). nullopt on any error
// (a malformed line, a number outside its range above); error then says which
// line and why.
std::optional<TablaKit> parseKitText(std::string_view text, std::string& error);

// The library file for kit text: the text followed by "checksum <hex>".
std::string sealKitText(std::string_view text);

// Checks and strips the checksum line of a library file; nullopt if it is
// missing or does not match.
std::optional<std::string_view> unsealKitText(std::string_view fileText);

}  // namespace tonvex
