// Reading and sealing of tabla kit text. The format, one statement a line:
//   tonvex-kit 1                      first line
//   name <text>
//   dayan <ratio>  /  bayan <ratio>   drum pitches relative to the middle Sa
//   voice <name> dayan|bayan          starts a voice; then its lines:
//   mode <ratio> <amplitude> <decayMs> <twinHz>
//   glide <semitones> <ms>
//   click <ms> <amplitude> <lowpassHz>
//   bol <id> <name> <voice>@<beatFraction>[*<gain>] ...
// Every number must lie within its range (tabla_kit.h); a line that breaks
// one is named with the number and the range.
// A library file adds a last line "checksum <8 hex digits>", the FNV-1a hash
// of every byte before it. Stateless.
#include "tabla_kit.h"

#include <cstdio>
#include <sstream>

namespace tonvex {
namespace {

uint32_t fnv1a(std::string_view bytes) {
  uint32_t h = 2166136261u;
  for (unsigned char c : bytes) h = (h ^ c) * 16777619u;
  return h;
}

std::optional<double> number(const std::string& word) {
  std::istringstream in(word);
  double v = 0.0;
  char rest = 0;
  if (!(in >> v) || (in >> rest)) return std::nullopt;
  return v;
}

std::string formatted(double v) {
  std::ostringstream text;
  text << v;
  return text.str();
}

struct Parser {
  TablaKit kit;
  std::string error;
  std::string problem;  // why the current line is refused, when more is known

  // Whether v lies in range; if not, the problem names it.
  bool within(double v, KitRange range, const char* what) {
    if (range.holds(v)) return true;
    problem = std::string(what) + " " + formatted(v) + " is out of range (" +
              formatted(range.low) + " to " + formatted(range.high) + ")";
    return false;
  }

  int voiceIndex(const std::string& name) const {
    for (size_t i = 0; i < kit.voices.size(); ++i)
      if (kit.voices[i].name == name) return int(i);
    return -1;
  }

  // Reads n numbers that follow the keyword; false if any is missing or bad.
  bool numbers(std::istringstream& in, std::vector<double>& out, size_t n) {
    out.clear();
    std::string word;
    while (in >> word) {
      auto v = number(word);
      if (!v) return false;
      out.push_back(*v);
    }
    return out.size() == n;
  }

  bool parseHit(const std::string& word, KitHit& hit) {
    const size_t at = word.find('@');
    if (at == std::string::npos) return false;
    hit.voice = voiceIndex(word.substr(0, at));
    const size_t star = word.find('*', at);
    auto fraction = number(word.substr(at + 1, star == std::string::npos ? star : star - at - 1));
    auto gain = star == std::string::npos ? std::optional<double>(1.0) : number(word.substr(star + 1));
    if (hit.voice < 0 || !fraction || !gain || *fraction < 0 || *fraction >= 1) return false;
    if (!within(*gain, kHitGainRange, "hit gain")) return false;
    hit.beatFraction = *fraction;
    hit.gain = *gain;
    return true;
  }

  bool parseBol(std::istringstream& in) {
    int id = 0;
    KitBol bol;
    if (!(in >> id >> bol.name) || id < 1 || id > kBolCount) return false;
    if (!kit.bols[size_t(id - 1)].hits.empty()) return false;
    std::string word;
    while (in >> word) {
      KitHit hit;
      if (!parseHit(word, hit)) return false;
      bol.hits.push_back(hit);
    }
    if (bol.hits.empty()) return false;
    kit.bols[size_t(id - 1)] = bol;
    return true;
  }

  bool parseVoiceLine(const std::string& keyword, std::istringstream& in) {
    if (kit.voices.empty()) return false;
    KitVoice& voice = kit.voices.back();
    std::vector<double> v;
    if (keyword == "mode") {
      if (!numbers(in, v, 4) || !within(v[0], kModeRatioRange, "mode ratio") ||
          !within(v[1], kAmplitudeRange, "mode amplitude") ||
          !within(v[2], kDecayMsRange, "mode decay ms") ||
          !within(v[3], kTwinHzRange, "mode twin Hz"))
        return false;
      voice.modes.push_back(KitMode{v[0], v[1], v[2], v[3]});
    } else if (keyword == "glide") {
      if (!numbers(in, v, 2) || !within(v[0], kGlideSemitonesRange, "glide semitones") ||
          !within(v[1], kGlideMsRange, "glide ms"))
        return false;
      voice.glideSemitones = v[0];
      voice.glideMs = v[1];
    } else if (keyword == "click") {
      if (!numbers(in, v, 3) || !within(v[0], kClickMsRange, "click ms") ||
          !within(v[1], kAmplitudeRange, "click amplitude") ||
          !within(v[2], kLowpassHzRange, "click low-pass Hz"))
        return false;
      voice.clickMs = v[0];
      voice.clickAmplitude = v[1];
      voice.clickLowpassHz = v[2];
    } else {
      return false;
    }
    return true;
  }

  bool parseLine(const std::string& line) {
    std::istringstream in(line);
    std::string keyword;
    in >> keyword;
    std::vector<double> v;
    if (keyword == "name") {
      std::getline(in >> std::ws, kit.name);
      return !kit.name.empty();
    }
    if (keyword == "dayan" || keyword == "bayan") {
      const char* what = keyword == "dayan" ? "dayan ratio" : "bayan ratio";
      if (!numbers(in, v, 1) || !within(v[0], kDrumRatioRange, what)) return false;
      (keyword == "dayan" ? kit.dayanRatio : kit.bayanRatio) = v[0];
      return true;
    }
    if (keyword == "voice") {
      KitVoice voice;
      std::string drum, extra;
      if (!(in >> voice.name >> drum) || (in >> extra) || voiceIndex(voice.name) >= 0) return false;
      if (drum != "dayan" && drum != "bayan") return false;
      voice.onBayan = drum == "bayan";
      kit.voices.push_back(voice);
      return true;
    }
    if (keyword == "bol") return parseBol(in);
    return parseVoiceLine(keyword, in);
  }

  bool complete() {
    for (const KitVoice& voice : kit.voices)
      if (voice.modes.empty() && voice.clickAmplitude <= 0) {
        error = "voice " + voice.name + " makes no sound";
        return false;
      }
    for (size_t i = 0; i < kit.bols.size(); ++i)
      if (kit.bols[i].hits.empty()) {
        error = "bol " + std::to_string(i + 1) + " is not defined";
        return false;
      }
    return true;
  }
};

}  // namespace

std::optional<TablaKit> parseKitText(std::string_view text, std::string& error) {
  Parser p;
  p.kit.bols.resize(kBolCount);
  std::istringstream in{std::string(text)};
  std::string line;
  int lineNo = 0;
  bool sawHeader = false;
  while (std::getline(in, line)) {
    ++lineNo;
    if (line.empty() || line[0] == '#' || line.find_first_not_of(" \t\r") == std::string::npos)
      continue;
    const bool ok = sawHeader ? p.parseLine(line) : line == "tonvex-kit 1";
    if (!ok) {
      error = "line " + std::to_string(lineNo) + ": " +
              (p.problem.empty() ? std::string("cannot read") : p.problem) + " in \"" + line +
              "\"";
      return std::nullopt;
    }
    sawHeader = true;
  }
  if (!sawHeader) {
    error = "no \"tonvex-kit 1\" header";
    return std::nullopt;
  }
  if (!p.complete()) {
    error = p.error;
    return std::nullopt;
  }
  return p.kit;
}

std::string sealKitText(std::string_view text) {
  std::string sealed(text);
  if (!sealed.empty() && sealed.back() != '\n') sealed += '\n';
  char line[32];
  std::snprintf(line, sizeof line, "checksum %08x\n", fnv1a(sealed));
  return sealed + line;
}

std::optional<std::string_view> unsealKitText(std::string_view fileText) {
  constexpr size_t kLineLength = 18;  // "checksum " + 8 hex digits + "\n"
  if (fileText.size() < kLineLength) return std::nullopt;
  const std::string_view body = fileText.substr(0, fileText.size() - kLineLength);
  if (sealKitText(body) != fileText) return std::nullopt;
  return body;
}

}  // namespace tonvex
