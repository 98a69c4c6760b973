// Reading and checking tonvex-render's command line (see render_args.h).
#include "render_args.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <map>
#include <sstream>

#include "theka_tokens.h"
#include "tonvex/tonvex.h"

namespace tonvex_render {
namespace {

// The library's limits on durations (see tonvex.h).
constexpr double kMinDurationMs = 1;
constexpr double kMaxDurationMs = 60000;
// The library takes at most this many theka strokes in one note (the count
// of a theka token, tokens.cpp); a short beat under a long note would give
// more, and the library would refuse the whole phrase.
constexpr int kMaxStrokesPerNote = 64;

bool wholeNumber(const std::string& text, int& out) {
  const char* end = text.data() + text.size();
  auto [p, ec] = std::from_chars(text.data(), end, out);
  return ec == std::errc() && p == end && !text.empty();
}

bool decimalNumber(const std::string& text, double& out) {
  const char* end = text.data() + text.size();
  auto [p, ec] = std::from_chars(text.data(), end, out);
  return ec == std::errc() && p == end && !text.empty() && std::isfinite(out);
}

std::string formatted(double v) {
  std::ostringstream text;
  text << v;
  return text.str();
}

// The option's whole number within low..high, or the problem.
std::string wholeIn(const std::map<std::string, std::string>& opt, const char* name, int low,
                    int high, int& out) {
  auto found = opt.find(name);
  if (found == opt.end()) return "";
  if (!wholeNumber(found->second, out) || out < low || out > high)
    return std::string(name) + " takes a whole number from " + std::to_string(low) + " to " +
           std::to_string(high) + ", not \"" + found->second + "\"";
  return "";
}

// A note of d ms holds at most floor(d / beatMs) + 1 strokes.
std::string checkStrokesPerNote(const std::vector<std::string>& durations, int beatMs) {
  double longest = durations.empty() ? 1000 : 0;  // the default duration
  for (const std::string& word : durations) longest = std::max(longest, std::stod(word));
  if (std::floor(longest / beatMs) + 1 <= kMaxStrokesPerNote) return "";
  return "--beat-ms " + std::to_string(beatMs) + " puts more than " +
         std::to_string(kMaxStrokesPerNote) + " theka strokes in a note of " + formatted(longest) +
         " ms; give a longer beat or shorter notes";
}

std::string decimalIn(const std::map<std::string, std::string>& opt, const char* name, double low,
                      double high, double& out) {
  auto found = opt.find(name);
  if (found == opt.end()) return "";
  if (!decimalNumber(found->second, out) || out < low || out > high)
    return std::string(name) + " takes a number from " + formatted(low) + " to " +
           formatted(high) + ", not \"" + found->second + "\"";
  return "";
}

std::string text(const std::map<std::string, std::string>& opt, const char* name) {
  auto found = opt.find(name);
  return found == opt.end() ? "" : found->second;
}

}  // namespace

std::string durationsProblem(const std::vector<std::string>& durations) {
  double total = 0;
  for (const std::string& word : durations) {
    double ms = 0;
    if (!decimalNumber(word, ms) || ms < kMinDurationMs || ms > kMaxDurationMs)
      return "--durations takes milliseconds from " + formatted(kMinDurationMs) + " to " +
             formatted(kMaxDurationMs) + " for each note, not \"" + word + "\"";
    total += ms;
  }
  if (total > tonvex::kMaxMusicMs)
    return "the notes last " + std::to_string(std::llround(total)) +
           " ms; a render lasts at most " + std::to_string(std::llround(tonvex::kMaxMusicMs)) +
           " ms (60 minutes)";
  if (durations.size() > size_t(tonvex::kMaxMusicNotes))
    return std::to_string(durations.size()) + " notes; a render holds at most " +
           std::to_string(tonvex::kMaxMusicNotes);
  return "";
}

namespace {

const char* const kOptions[] = {"-o",     "--tonic",     "--notes",      "--gen",
                                "--durations", "--drone", "--drone-mix", "--drone-factor",
                                "--level", "--tala",     "--kit",        "--beat-ms",
                                "--start-beat", "--drone-cycles"};

bool knownOption(const std::string& word) {
  for (const char* option : kOptions)
    if (word == option) return true;
  return false;
}

}  // namespace

std::string readRenderArgs(const std::vector<std::string>& words, RenderArgs& args) {
  std::map<std::string, std::string> opt;
  for (size_t i = 0; i < words.size(); i += 2) {
    if (!knownOption(words[i])) return "unknown option \"" + words[i] + "\"";
    if (i + 1 >= words.size()) return words[i] + " needs a value";
    if (!opt.emplace(words[i], words[i + 1]).second) return words[i] + " is given twice";
  }
  args = RenderArgs{};
  args.outFile = text(opt, "-o");
  if (args.outFile.empty()) return "-o names the wave file to write";

  std::string problem;
  if (!(problem = wholeIn(opt, "--tonic", 1, 12, args.setup.tonicId)).empty()) return problem;
  const std::string drone = opt.count("--drone") ? opt.at("--drone") : "pa";
  if (drone != "pa" && drone != "ma" && drone != "ni" && drone != "none")
    return "--drone takes pa, ma, ni or none, not \"" + drone + "\"";
  args.setup.droneType = drone == "ma" ? 2 : drone == "ni" ? 3 : 1;
  if (!(problem = decimalIn(opt, "--drone-factor", 0.5, 1.5, args.setup.droneFactor)).empty())
    return problem;
  args.setup.kitFile = text(opt, "--kit");
  if (!(problem = wholeIn(opt, "--drone-cycles", 1, 100, args.droneCycles)).empty()) return problem;
  if (args.droneCycles > 0) return "";

  args.gen = text(opt, "--gen");
  args.notes = text(opt, "--notes");
  std::istringstream durations(text(opt, "--durations"));
  for (std::string word; durations >> word;) args.durations.push_back(word);
  if (!(problem = durationsProblem(args.durations)).empty()) return problem;
  if (!(problem = wholeIn(opt, "--drone-mix", 0, 2, args.droneMix)).empty()) return problem;
  if (drone == "none") args.droneMix = 0;
  if (!(problem = decimalIn(opt, "--level", 0, 1, args.level)).empty()) return problem;

  args.tala = text(opt, "--tala");
  if (args.tala.empty()) return "";
  const auto cycle = builtInTheka(args.tala);
  if (!cycle) return "unknown tala \"" + args.tala + "\"; --tala takes " + builtInTalaNames();
  if (args.setup.kitFile.empty()) return "--tala needs --kit";
  if (!(problem = wholeIn(opt, "--beat-ms", 1, 10000, args.beatMs)).empty()) return problem;
  if (!(problem = checkStrokesPerNote(args.durations, args.beatMs)).empty()) return problem;
  return wholeIn(opt, "--start-beat", 1, static_cast<int>(cycle->size()), args.startBeat);
}

std::string outputPathProblem(const std::string& path) {
  std::error_code ec;
  const auto status = std::filesystem::symlink_status(path, ec);
  if (status.type() == std::filesystem::file_type::not_found ||
      status.type() == std::filesystem::file_type::regular)
    return "";
  if (ec) return "-o " + path + ": " + ec.message();
  return "-o " + path +
         " is not a regular file; give the name of a new file or of a wave file to replace";
}

}  // namespace tonvex_render
