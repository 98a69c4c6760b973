// tonvex-kit: checks a readable tabla kit source and writes the sealed kit
// file the library loads.
//   tonvex-kit <source.kit> <output.nvy>
// The kit is parsed and every stroke rendered once; any error names the line
// and no output is written.
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tabla_kit.h"
#include "tabla_synth.h"

using namespace tonvex;

namespace {

bool strokesAreSound(const TablaKit& kit) {
  for (const auto& stroke : renderKitVoices(kit, 138.591))
    for (float s : stroke)
      if (!std::isfinite(s)) return false;
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: tonvex-kit <source.kit> <output.nvy>\n");
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  if (!in.is_open()) {
    std::fprintf(stderr, "%s: cannot read\n", argv[1]);
    return 1;
  }
  std::stringstream source;
  source << in.rdbuf();
  std::string error;
  const auto kit = parseKitText(source.str(), error);
  if (!kit) {
    std::fprintf(stderr, "%s: %s\n", argv[1], error.c_str());
    return 1;
  }
  if (!strokesAreSound(*kit)) {
    std::fprintf(stderr, "%s: a stroke renders to non-finite samples\n", argv[1]);
    return 1;
  }
  const std::string path = argv[2], partPath = path + ".part";
  {
    std::ofstream out(partPath, std::ios::binary);
    out << sealKitText(source.str());
    if (!out.flush()) {
      std::fprintf(stderr, "tonvex-kit: cannot write %s\n", partPath.c_str());
      return 1;
    }
  }
  std::error_code ec;
  std::filesystem::rename(partPath, path, ec);
  return ec ? 1 : 0;
}
