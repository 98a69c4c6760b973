// Fuzz target: tonvex's text arguments. The input is both one text for the
// token parsers (notes, durations, theka tokens, decimals) and, split at
// line ends, the words of a tonvex-render command line. A command line that
// is accepted holds every number in the range render_args.h gives, and the
// theka tokens worked out from it parse back with one token per note.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "render_args.h"
#include "theka_tokens.h"
#include "tokens.h"

namespace {

void check(bool ok) {
  if (!ok) __builtin_trap();
}

void parseTokens(std::string_view text) {
  tonvex::splitWords(text);
  if (const auto notes = tonvex::parseNoteTokens(text))
    for (const auto& n : *notes) check(n.mainNote >= 0 && n.mainNote <= 40 && n.graceNote <= 40);
  if (const auto durations = tonvex::parseDurationsMs(text))
    for (double d : *durations) check(d >= 0);
  if (const auto theka = tonvex::parseThekaTokens(text))
    for (const auto& t : *theka)
      for (int bol : t.bolIds) check(bol >= 0 && bol <= 20);
  tonvex::parseDecimal(text);
}

std::vector<std::string> lines(const std::string& text) {
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string word; std::getline(in, word);) words.push_back(word);
  return words;
}

void checkAccepted(const tonvex_render::RenderArgs& args) {
  check(args.beatMs >= 1 && args.beatMs <= 10000);
  check(args.level >= 0 && args.level <= 1);
  check(args.droneMix >= 0 && args.droneMix <= 2);
  check(args.droneCycles >= 0 && args.droneCycles <= 100);
  std::vector<double> durations;
  for (const auto& d : args.durations) {
    durations.push_back(std::atof(d.c_str()));
    check(durations.back() >= 1 && durations.back() <= 60000);
  }
  const auto cycle = tonvex_render::builtInTheka(args.tala);
  if (!cycle) return;
  check(args.startBeat >= 1 && std::size_t(args.startBeat) <= cycle->size());
  std::string joined;
  const auto theka = tonvex_render::thekaTokens(durations, args.beatMs, *cycle, args.startBeat);
  check(theka.size() == durations.size());
  for (const auto& token : theka) joined += token + " ";
  const auto parsed = tonvex::parseThekaTokens(joined);
  check(parsed && parsed->size() == theka.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  parseTokens(text);
  tonvex_render::RenderArgs args;
  if (tonvex_render::readRenderArgs(lines(text), args).empty()) checkAccepted(args);
  return 0;
}
