// tonvex-seeds: writes the seed and tuning records of the library store, and
// the seed bank that tonvex-render reads at start-up (seed_bank.h).
//   tonvex-seeds <output.rec> <seed bank>
// Rows: "Note Specifications" and "Sample Values" for the harmonium set "c"
// and the tanpura set "e" (notes 0 to 40 each), "ONPRSets" (just ratios of the
// 27 notes around each tonic, per instrument type) and "ONPR" (the SPC
// corrections of the 12 built-in music sets, per instrument type).
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "seed_bank.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

using namespace tonvex;

namespace {

const char* const kTonicNames[13] = {"",
                                     "White-7 (B)", "White-1 (C)", "Black-1 (C#)",
                                     "White-2 (D)", "Black-2 (D#)", "White-3 (E)",
                                     "White-4 (F)", "Black-3 (F#)", "White-5 (G)",
                                     "Black-4 (G#)", "White-6 (A)", "Black-5 (A#)"};

std::string number(double v) {
  char text[40];
  std::snprintf(text, sizeof text, "%.9g", v);
  return text;
}

void writeSet(std::ostream& out, int instrumentType, const char* setName) {
  for (int note = 0; note <= kMaxNoteId; ++note) {
    const SeedSpec seed = makeSeed(instrumentType, note);
    out << "[Note Specifications]\nInstr Name = " << setName << "\nNote Id = " << note
        << "\nSamPerCyc = " << seed.samPerCyc << "\nFractional Value = " << number(seed.fractional)
        << "\n\n";
    for (size_t i = 0; i < seed.samples.size(); ++i)
      out << "[Sample Values]\nInstr Name = " << setName << "\nNote Id = " << note
          << "\nSample Id = " << i << "\nSample Value = " << seed.samples[i] << "\n\n";
  }
}

void writeColumns(std::ostream& out, const std::array<double, kOnprColumns>& values) {
  for (int i = 0; i < kOnprColumns; ++i) {
    char column[3];
    std::snprintf(column, sizeof column, "%02d", i);
    out << column << " = " << number(values[size_t(i)]) << "\n";
  }
  out << "\n";
}

void writeTuning(std::ostream& out) {
  for (int type : {kInstrumentMain, kInstrumentDrone}) {
    for (int tonic = 1; tonic <= 12; ++tonic) {
      out << "[ONPRSets]\nTonicNoteId = " << tonic << "\nInstrumentType = " << type << "\n";
      writeColumns(out, onprRatios(type));
      out << "[ONPR]\nNPSetId = " << tonic << "\nInstrumentType = " << type
          << "\nNPSetName = NV Scale " << kTonicNames[tonic] << "\nTonicNoteId = " << tonic << "\n";
      writeColumns(out, onprCorrections(tonic, type));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: tonvex-seeds <output.rec> <seed bank>\n");
    return 2;
  }
  const std::string path = argv[1];
  const std::string partPath = path + ".part";
  {
    std::ofstream out(partPath);
    out << "# Seeds and tuning of the harmonium set \"c\" and the tanpura set \"e\".\n"
           "# Written by tonvex-seeds; do not edit.\n\n";
    writeSet(out, kInstrumentMain, "c");
    writeSet(out, kInstrumentDrone, "e");
    writeTuning(out);
    if (!out.flush()) {
      std::fprintf(stderr, "tonvex-seeds: cannot write %s\n", partPath.c_str());
      return 1;
    }
  }
  std::error_code ec;
  std::filesystem::rename(partPath, path, ec);
  if (ec) {
    std::fprintf(stderr, "tonvex-seeds: cannot rename to %s\n", path.c_str());
    return 1;
  }
  if (!tonvex_render::writeSeedBank(tonvex_render::designedSeedBank(), argv[2])) {
    std::fprintf(stderr, "tonvex-seeds: cannot write %s\n", argv[2]);
    return 1;
  }
  return 0;
}
