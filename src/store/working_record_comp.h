// The composition at hand in the working record: its heading from "Raga -
// Additional Information" and its parts from "Raga - Composition
// Notations", read when a composition, similar raga or film song is chosen.
// State: gTCompInfo, gCompInfo; sets gCurrCompIndex.
#pragma once

#include <array>
#include <cstdint>
#include <string>

// Heading of the composition at hand.
struct TCompInfoRecord {
  std::int16_t RagaId = 0;
  std::string Name;             // "Add Info"
  std::int16_t InfoType = 0;    // "Add Info Type"
  std::int32_t NotationIndex = 0;
};

// One part of the composition at hand. For a similar raga (phrase kind 7)
// part 1 holds the current raga's phrase and part 2 the other raga's, each
// in Notation and NotesDuration, with the name of that raga in Mukhada.
struct CompPartRecord {
  std::int32_t NotationIndex = 0;  // 0: the part is absent
  std::int16_t Part = 0;           // 1 Asthai, 2 Antara
  std::int16_t RagaId = 0;
  std::string Mukhada;
  std::string Text;
  std::string Syllables;
  std::string SyllableDuration;  // matras, one per syllable
  std::string Notation;
  std::string NotesDuration;     // matras (compositions) or hundredths of a second
  std::int16_t TalaId = 0;
  std::int16_t StartingBeat = 0;
  std::int16_t PlayingSpeed = 0;
};

constexpr int kCompPartCount = 3;  // Asthai, Antara; the third stays empty

extern TCompInfoRecord gTCompInfo;
extern std::array<CompPartRecord, kCompPartCount> gCompInfo;

// Reads the heading (gCurrRagaId, name, infoType) from the library store
// when dbSelector is 1, else from the user store, and makes its notation
// index gCurrCompIndex. A miss shows "Composition Not Available" and
// changes nothing.
void sDBToTCompInfo(std::int16_t dbSelector, std::int16_t infoType, const std::string& name);

// Reads the parts of notationIndex from the store dbSelector names, as
// gCurrPhraseKind asks: 8 (composition) both parts in full; 7 (similar
// raga) the one row's two phrases, the current raga's as part 1 and the
// other raga's as part 2 (see CompPartRecord); 9 (film song) part 1 only.
// An absent part gets NotationIndex 0.
void sDBToTCompData(std::int16_t dbSelector, std::int32_t notationIndex);

// Empties gTCompInfo and the two parts of gCompInfo.
void sInitializeCompT();
