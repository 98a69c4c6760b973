// Library set-up of the renderer: the call order of the application's
// start-up, fed from the seed bank (seed_bank.h).
#include "render_setup.h"

#include <optional>

#include "seed_bank.h"

#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace tonvex_render {
namespace {

bool loadAndTune(const std::string& setName, int instrumentType, int tonicId,
                 const std::vector<tonvex::SeedSpec>& seeds) {
  if (FWavFreeNoteSeedsMemory(setName) != 1) return false;
  for (int note = 0; note <= tonvex::kMaxNoteId; ++note) {
    const tonvex::SeedSpec& seed = seeds[size_t(note)];
    if (FWavLoadInstrNoteSeeds(setName, note, seed.samPerCyc, seed.fractional,
                               seed.samples.data()) != 1)
      return false;
  }
  // Every note at its just ratio: the 27 notes of the music set's columns
  // and, as the program tunes them, the notes outside by the octave.
  for (int note = 0; note <= tonvex::kMaxNoteId; ++note) {
    const double correction = tonvex::justCorrection(tonicId, instrumentType, note);
    if (correction != 0.0 && FWavTuneNote(setName, note, correction) != 1) return false;
  }
  return true;
}

}  // namespace

std::string setUpLibrary(const SetupOptions& o) {
  if (o.tonicId < 1 || o.tonicId > 12) return "tonic must be 1 to 12";
  if (FWavSetGlobalVariables("ce") != 1 || FWavSetCurrInstr("c") != 1)
    return "cannot declare the note sets";
  // The seeds from the build's bank; without one, made again (the same
  // seeds, only slower).
  std::optional<SeedBank> bank;
  if (!o.seedBankFile.empty()) bank = readSeedBank(o.seedBankFile);
  if (!bank) bank = designedSeedBank();
  if (!loadAndTune("c", tonvex::kInstrumentMain, o.tonicId, bank->sets[0]) ||
      !loadAndTune("e", tonvex::kInstrumentDrone, o.tonicId, bank->sets[1]))
    return "cannot load the seeds";
  if (FWavLoadDroneData("", o.tonicId + 21, o.droneType, "e", o.droneFactor, 1) != 1)
    return "cannot prepare the drone";
  if (!o.kitFile.empty() && FWavLoadThekaData(o.kitFile, 4) != 1)
    return "cannot load the tabla kit " + o.kitFile;
  return "";
}

}  // namespace tonvex_render
