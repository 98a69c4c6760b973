// Library set-up of the renderer: the call order of the application's
// start-up, fed from seed_design.h.
#include "render_setup.h"

#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace tonvex_render {
namespace {

bool loadAndTune(const std::string& setName, int instrumentType, int tonicId) {
  if (FWavFreeNoteSeedsMemory(setName) != 1) return false;
  for (int note = 0; note <= tonvex::kMaxNoteId; ++note) {
    const tonvex::SeedSpec seed = tonvex::makeSeed(instrumentType, note);
    if (FWavLoadInstrNoteSeeds(setName, note, seed.samPerCyc, seed.fractional,
                               seed.samples.data()) != 1)
      return false;
  }
  const auto corrections = tonvex::onprCorrections(tonicId, instrumentType);
  for (int i = 0; i < tonvex::kOnprColumns; ++i) {
    const int note = tonicId + 2 + i;
    if (note <= tonvex::kMaxNoteId && corrections[size_t(i)] != 0.0 &&
        FWavTuneNote(setName, note, corrections[size_t(i)]) != 1)
      return false;
  }
  return true;
}

}  // namespace

std::string setUpLibrary(const SetupOptions& o) {
  if (o.tonicId < 1 || o.tonicId > 12) return "tonic must be 1 to 12";
  if (FWavSetGlobalVariables("ce") != 1 || FWavSetCurrInstr("c") != 1)
    return "cannot declare the note sets";
  if (!loadAndTune("c", tonvex::kInstrumentMain, o.tonicId) ||
      !loadAndTune("e", tonvex::kInstrumentDrone, o.tonicId))
    return "cannot load the seeds";
  if (FWavLoadDroneData("", o.tonicId + 21, o.droneType, "e", o.droneFactor, 1) != 1)
    return "cannot prepare the drone";
  if (!o.kitFile.empty() && FWavLoadThekaData(o.kitFile, 4) != 1)
    return "cannot load the tabla kit " + o.kitFile;
  return "";
}

}  // namespace tonvex_render
