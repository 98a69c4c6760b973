// tonvex-render: writes a wave file of a note phrase through the library's
// operations, with drone and, optionally, a tala's theka. Usage in
// tonvex/README.md. Stateless apart from the library it sets up.
#include <cstdio>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "english_notes.h"
#include "render_setup.h"
#include "theka_tokens.h"
#include "tonvex/tonvex.h"

using namespace tonvex_render;

namespace {

const char* const kUsage =
    "usage: tonvex-render -o OUT.wav [--tonic 1-12] (--notes \"S R G'm\" | --gen \"12 14 1617\")\n"
    "         [--durations \"500 500 1000\"] [--drone pa|ma|ni|none] [--drone-mix 1|2]\n"
    "         [--drone-factor 0.5-1.5] [--level 0-1]\n"
    "         [--tala teentaal|ektaal|jhaptaal|rupak|keherwa|dadra --kit clb.nvy\n"
    "          [--beat-ms 700] [--start-beat 1]]\n"
    "       tonvex-render -o OUT.wav --drone-cycles N [--tonic 1-12] [--drone pa|ma|ni]\n";

std::vector<std::string> words(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> out;
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

std::string join(const std::vector<std::string>& parts) {
  std::string out;
  for (const auto& p : parts) out += (out.empty() ? "" : " ") + p;
  return out;
}

int fail(const std::string& message) {
  std::fprintf(stderr, "tonvex-render: %s\n%s", message.c_str(), kUsage);
  return 1;
}

// Generation tokens of the phrase, from --gen or from English --notes.
bool phraseTokens(const std::map<std::string, std::string>& opt, int tonicId,
                  std::vector<std::string>& tokens, std::string& error) {
  if (opt.count("--gen")) {
    tokens = words(opt.at("--gen"));
    return true;
  }
  for (const std::string& word : words(opt.count("--notes") ? opt.at("--notes") : "")) {
    if (word == ":" || word == ",") continue;  // segment and section breaks
    const auto token = generationToken(word, tonicId);
    if (!token) {
      error = "unknown or unplayable note \"" + word + "\"";
      return false;
    }
    tokens.push_back(*token);
  }
  return true;
}

int render(const std::map<std::string, std::string>& opt, int tonicId) {
  std::vector<std::string> tokens;
  std::string error;
  if (!phraseTokens(opt, tonicId, tokens, error)) return fail(error);
  if (tokens.empty()) return fail("no notes given");
  std::vector<std::string> durations = words(opt.count("--durations") ? opt.at("--durations") : "");
  if (durations.empty()) durations.assign(tokens.size(), "1000");
  if (durations.size() != tokens.size()) return fail("one duration is needed for each note");
  const int count = int(tokens.size());
  const int droneMix = opt.count("--drone") && opt.at("--drone") == "none"
                           ? 0 : std::atoi(opt.count("--drone-mix") ? opt.at("--drone-mix").c_str() : "1");
  const double level = std::atof(opt.count("--level") ? opt.at("--level").c_str() : "0.2");
  const std::string& out = opt.at("-o");
  if (!opt.count("--tala")) {
    if (FWavGenerateMusicFile(count, join(tokens), join(durations), out, droneMix, level, 1, 1000,
                              60, 80, 50) != 1)
      return fail("the library could not write " + out);
    return 0;
  }
  const auto cycle = builtInTheka(opt.at("--tala"));
  if (!cycle) return fail("unknown tala " + opt.at("--tala"));
  const int beatMs = std::atoi(opt.count("--beat-ms") ? opt.at("--beat-ms").c_str() : "700");
  const int startBeat = std::atoi(opt.count("--start-beat") ? opt.at("--start-beat").c_str() : "1");
  std::vector<double> durationsMs;
  for (const auto& d : durations) durationsMs.push_back(std::atof(d.c_str()));
  const auto theka = thekaTokens(durationsMs, beatMs, *cycle, startBeat);
  if (FWavGenerateMusicFile1(count, join(tokens), join(durations), startBeat, int(cycle->size()),
                             join(theka), 4, beatMs, out, droneMix, level, 1, 1000, 60, 80, 50) != 1)
    return fail("the library could not write " + out);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::map<std::string, std::string> opt;
  for (int i = 1; i + 1 < argc; i += 2) opt[argv[i]] = argv[i + 1];
  if (argc % 2 == 0 || !opt.count("-o")) return fail("wrong arguments");
  SetupOptions setup;
  setup.tonicId = std::atoi(opt.count("--tonic") ? opt.at("--tonic").c_str() : "3");
  const std::string drone = opt.count("--drone") ? opt.at("--drone") : "pa";
  setup.droneType = drone == "ma" ? 2 : drone == "ni" ? 3 : 1;
  if (opt.count("--drone-factor")) setup.droneFactor = std::atof(opt.at("--drone-factor").c_str());
  if (opt.count("--kit")) setup.kitFile = opt.at("--kit");
  if (opt.count("--tala") && setup.kitFile.empty()) return fail("--tala needs --kit");
  const std::string error = setUpLibrary(setup);
  if (!error.empty()) return fail(error);
  if (opt.count("--drone-cycles")) {
    if (FWavGenerateDroneFile(std::atoi(opt.at("--drone-cycles").c_str()), opt.at("-o"), 1) != 1)
      return fail("the library could not write " + opt.at("-o"));
    return 0;
  }
  return render(opt, setup.tonicId);
}
