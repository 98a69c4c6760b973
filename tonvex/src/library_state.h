// What the library keeps between calls: the declared note sets with their
// seeds, the current instrument, the rendered drone cycle and the loaded tabla
// kit. One instance for the process, reached through libraryState().
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "note_seed.h"
#include "tabla_kit.h"
#include "tanpura.h"
#include "tonvex/tonvex.h"

namespace tonvex {

struct NoteSet {
  char name = 0;
  std::array<std::optional<NoteSeed>, kMaxNoteId + 1> notes;
};

// What a drone was rendered from; an equal key means the same sound.
struct DroneKey {
  char setName = 0;
  int32_t noteId = 0, droneType = 0;
  uint64_t strings = 0;  // hash of the four strings: seeds, tuning, timing
  bool operator==(const DroneKey&) const = default;
};

struct DroneSound {
  // kDroneVariants cycles of 3200 ms, each plucked a little differently,
  // seamless when repeated; peaks at 1.0.
  std::vector<float> cycle;
  double factor = 1.0;  // loudness factor given by the caller
  DroneKey key;
  std::array<TanpuraString, 4> strings;  // for drone files of other lengths
  float scale = 1.0f;                    // brought the rendered loop to peak 1.0
};

// Drones rendered before, most recent first, so that switching back to a
// tonic or drone type heard lately costs no rendering.
inline constexpr size_t kDroneCacheSize = 3;

struct LoadedKit {
  TablaKit kit;
  int32_t instrument = 0;
  double dayanHz = 0.0;                      // tuning the strokes were rendered at
  std::vector<std::vector<float>> strokes;  // one rendered buffer per kit voice
  // The strokes of the Sa before, kept so that switching back and forth
  // between two tonics renders nothing (about 1.7 MB).
  double previousHz = 0.0;
  std::vector<std::vector<float>> previousStrokes;
};

struct LibraryState {
  std::vector<NoteSet> sets;
    char currInstr = 0;
  std::optional<DroneSound> drone;
  std::vector<DroneSound> droneCache;
  // Where in the drone cycle the next music file's drone begins: each file
  // takes the drone on from where the file made before it left it.
  size_t dronePhase = 0;
  double droneSaHz = 0.0;  // the Sa the drone was built on; 0 before any
  std::optional<LoadedKit> theka;
};

LibraryState& libraryState();

// The declared set of that one-letter name, or nullptr.
NoteSet* findNoteSet(const std::string& name);

// A loaded seed of a set, or nullptr when the set or note is absent.
const NoteSeed* findSeed(const NoteSet& set, int32_t noteId);

}  // namespace tonvex
