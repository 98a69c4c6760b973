// tonvex-render: writes a wave file of a note phrase through the library's
// operations, with drone and, optionally, a tala's theka. Usage in
// tonvex/README.md. Stateless apart from the library it sets up.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "english_notes.h"
#include "render_args.h"
#include "render_setup.h"
#include "theka_tokens.h"
#include "tonvex/tonvex.h"

using namespace tonvex_render;

namespace {

const char* const kUsage =
    "usage: tonvex-render -o OUT.wav [--tonic 1-12] (--notes \"S R G'm\" | --gen \"12 14 1617\")\n"
    "         [--durations \"500 500 1000\" (1-60000 each)] [--drone pa|ma|ni|none]\n"
    "         [--drone-mix 0-2] [--drone-factor 0.5-1.5] [--level 0-1]\n"
    "         [--tala TALA --kit clb.nvy\n"
    "          [--beat-ms 1-10000 (700)] [--start-beat 1-beats (1)]]\n"
    "       tonvex-render -o OUT.wav --drone-cycles 1-100 [--tonic 1-12] [--drone pa|ma|ni]\n"
    "OUT.wav is a new file, or a regular file that is replaced. TALA is one of\n"
    "teentaal ektaal jhaptaal rupak keherwa dadra chautaal jhoomra tilwada\n"
    "deepchandi dhamar sooltaal.\n";

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
bool phraseTokens(const RenderArgs& args, std::vector<std::string>& tokens, std::string& error) {
  if (!args.gen.empty()) {
    tokens = words(args.gen);
    return true;
  }
  for (const std::string& word : words(args.notes)) {
    if (word == ":" || word == ",") continue;  // segment and section breaks
    const auto token = generationToken(word, args.setup.tonicId);
    if (!token) {
      error = "unknown or unplayable note \"" + word + "\"";
      return false;
    }
    tokens.push_back(*token);
  }
  return true;
}

// The seed bank the build wrote beside the data files: ../nadavik from the
// program in the build folder, ../share/nadavik once installed; "" when
// there is none (the seeds are then made anew).
std::string seedBankBesideProgram() {
  std::error_code ec;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return "";
  for (const char* folder : {"../nadavik", "../share/nadavik"}) {
    const auto path = program.parent_path() / folder / "tonvex-seeds.bank";
    if (std::filesystem::is_regular_file(path, ec)) return path.string();
  }
  return "";
}

int render(const RenderArgs& args) {
  std::vector<std::string> tokens;
  std::string error;
  if (!phraseTokens(args, tokens, error)) return fail(error);
  if (tokens.empty()) return fail("no notes given");
  std::vector<std::string> durations = args.durations;
  if (durations.empty()) durations.assign(tokens.size(), "1000");
  if (durations.size() != tokens.size()) return fail("one duration is needed for each note");
  if (const std::string problem = durationsProblem(durations); !problem.empty()) return fail(problem);
  const int count = int(tokens.size());
  const std::string& out = args.outFile;
  if (args.tala.empty()) {
    if (FWavGenerateMusicFile(count, join(tokens), join(durations), out, args.droneMix, args.level,
                              1, 1000, 60, 80, 50) != 1)
      return fail("the library could not write " + out);
    return 0;
  }
  const auto cycle = builtInTheka(args.tala);
  std::vector<double> durationsMs;
  for (const auto& d : durations) durationsMs.push_back(std::atof(d.c_str()));
  const auto theka = thekaTokens(durationsMs, args.beatMs, *cycle, args.startBeat);
  if (FWavGenerateMusicFile1(count, join(tokens), join(durations), args.startBeat,
                             int(cycle->size()), join(theka), 4, args.beatMs, out, args.droneMix,
                             args.level, 1, 1000, 60, 80, 50) != 1)
    return fail("the library could not write " + out);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  RenderArgs args;
  if (argc < 2) return fail("no arguments");
  std::string problem = readRenderArgs({argv + 1, argv + argc}, args);
  if (problem.empty()) problem = outputPathProblem(args.outFile);
  if (!problem.empty()) return fail(problem);
  args.setup.seedBankFile = seedBankBesideProgram();
  const std::string error = setUpLibrary(args.setup);
  if (!error.empty()) return fail(error);
  if (args.droneCycles > 0) {
    if (FWavGenerateDroneFile(args.droneCycles, args.outFile, 2) != 1)  // a drone to loop
      return fail("the library could not write " + args.outFile);
    return 0;
  }
  return render(args);
}
