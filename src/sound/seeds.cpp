// Note seeds from the library store into the synthesis library. A seed is
// samples 0 to SamPerCyc of one period, in Sample Id order, with the exact
// period SamPerCyc + Fractional Value. Keeps no state.
#include "sound/seeds.h"

#include <limits>
#include <vector>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "platform/store.h"
#include "sound/step_result.h"
#include "store/positioning.h"
#include "store/queries.h"
#include "tonvex/tonvex.h"

namespace {

// Longest seed period accepted from the store, in samples: far beyond any
// note's, low enough that a damaged row cannot exhaust memory.
constexpr std::int64_t kMaxSeedSpc = 1 << 20;

// Fills samples from the note's "Sample Values" rows, from index 0 in order;
// rows not present leave 0. False when the rows do not fit: more of them
// than the buffer holds, or a value beyond 16 bits.
bool readSeedSamples(const std::string& setName, std::int32_t noteId,
                     std::vector<std::int16_t>& samples) {
  sPatchSQLStr12(setName, noteId);
  auto rs = gDbA->openRecordset(gSQLStr12, platform::RecordsetType::Snapshot);
  bool fits = true;
  for (std::size_t i = 0; fits && !rs->eof(); rs->moveNext(), ++i) {
    const std::int64_t value = rs->fieldAt(0).asInteger();  // the query's one column
    fits = i < samples.size() && value >= std::numeric_limits<std::int16_t>::min() &&
           value <= std::numeric_limits<std::int16_t>::max();
    if (fits) samples[i] = static_cast<std::int16_t>(value);
  }
  rs->close();
  return fits;
}

std::string fSeedLoadError(const std::string& setName, std::int32_t noteId) {
  return "Error Loading Seed Data For " + setName + std::to_string(noteId);
}

// Reads one note's samples and loads them into the library; a seed the store
// holds badly counts as refused. 1 on success, else 0 after the message.
std::int16_t fLoadSeed(const std::string& setName, std::int32_t noteId, std::int64_t samPerCyc,
                       double fractional) {
  std::int16_t result = 0;
  if (samPerCyc >= 0 && samPerCyc <= kMaxSeedSpc) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(samPerCyc) + 1, 0);
    if (readSeedSamples(setName, noteId, samples))
      result = FWavLoadInstrNoteSeeds(setName, noteId, static_cast<std::int32_t>(samPerCyc),
                                      fractional, samples.data());
  }
  return fStepFailed(result, fSeedLoadError(setName, noteId)) ? 0 : 1;
}

}  // namespace

std::int16_t fLoadNoteSeeds(const std::string& setName) {
  NV_PROC("fLoadNoteSeeds");
  if (fStepFailed(FWavFreeNoteSeedsMemory(setName), "Error Freeing Note Seeds Memory")) return 0;
  sPatchSQLStr11(setName);
  auto rs = gDbA->openRecordset(gSQLStr11, platform::RecordsetType::Snapshot);
  std::int16_t result = 1;
  for (; result == 1 && !rs->eof(); rs->moveNext())
    result = fLoadSeed(setName, static_cast<std::int32_t>(rs->field("Note Id").asInteger()),
                       rs->field("SamPerCyc").asInteger(),
                       rs->field("Fractional Value").asDouble());
  rs->close();
  return result;
}

std::int16_t fLoadIndividualNoteSeed(const std::string& setName, std::int32_t noteId) {
  NV_PROC("fLoadIndividualNoteSeed");
  auto rs = gDbA->openRecordset("Note Specifications", platform::RecordsetType::Table);
  sSetTablePKRecord2(*rs, setName, noteId);
  if (rs->noMatch()) {
    rs->close();
    sShowMessage(fSeedLoadError(setName, noteId));
    return 0;
  }
  const std::int64_t samPerCyc = rs->field("SamPerCyc").asInteger();
  const double fractional = rs->field("Fractional Value").asDouble();
  rs->close();
  return fLoadSeed(setName, noteId, samPerCyc, fractional);
}
