// The configuring operations: declaring the note sets, choosing the current
// instrument, loading, freeing and tuning seeds. They change libraryState().
#include <cctype>
#include <cmath>

#include "library_state.h"
#include "tonvex/tonvex.h"

using namespace tonvex;

namespace {

constexpr int32_t kMinSpc = 8;
constexpr int32_t kMaxSpc = 20000;

bool isValidSetList(const std::string& names) {
  if (names.empty()) return false;
  for (size_t i = 0; i < names.size(); ++i) {
    if (!std::isalpha(static_cast<unsigned char>(names[i]))) return false;
    if (names.find(names[i]) != i) return false;  // each name once
  }
  return true;
}

}  // namespace

int16_t FWavSetGlobalVariables(const std::string& names) {
  if (!isValidSetList(names)) return 0;
  LibraryState& state = libraryState();
  state = LibraryState{};
  for (char c : names) state.sets.push_back(NoteSet{c, {}});
  return 1;
}

int16_t FWavSetCurrInstr(const std::string& setName) {
  if (findNoteSet(setName) == nullptr) return 0;
  libraryState().currInstr = setName[0];
  return 1;
}

int16_t FWavFreeNoteSeedsMemory(const std::string& setName) {
  NoteSet* set = findNoteSet(setName);
  if (set == nullptr) return 0;
  for (auto& seed : set->notes) seed.reset();
  return 1;
}

int16_t FWavLoadInstrNoteSeeds(const std::string& setName, int32_t noteId, int32_t samPerCyc,
                               double fractional, const int16_t* samples) {
  NoteSet* set = findNoteSet(setName);
  if (set == nullptr || samples == nullptr || noteId < 0 || noteId > kMaxNoteId) return 0;
  if (samPerCyc < kMinSpc || samPerCyc > kMaxSpc) return 0;
  if (!(fractional >= 0.0 && fractional < 1.0)) return 0;
  const std::span<const int16_t> run(samples, static_cast<size_t>(samPerCyc) + 1);
  set->notes[static_cast<size_t>(noteId)] = makeNoteSeed(run, samPerCyc, fractional);
  return 1;
}

int16_t FWavTuneNote(const std::string& setName, int32_t noteId, double spcDelta) {
  NoteSet* set = findNoteSet(setName);
  if (set == nullptr || noteId < 0 || noteId > kMaxNoteId) return 0;
  auto& seed = set->notes[static_cast<size_t>(noteId)];
  if (!seed || !std::isfinite(spcDelta)) return 0;
  const double stored = seed->storedSpc();
  const double tuned = seed->effectiveSpc() + spcDelta;
  if (tuned < 0.5 * stored || tuned > 2.0 * stored) return 0;
  seed->spcDelta += spcDelta;
  return 1;
}
