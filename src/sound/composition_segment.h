// The stretch of a composition part that the learner practises, and the
// record of what the wave files on disk were made for.
//
// State: CS, four records of which three are used (0 the Asthai's whole
// file A.wav, 1 the Antara's B.wav, 2 the stretch's C.wav, 3 unused), and
// gSegmentBounds, the stretch's first and last grid slot. Slot 1 is beat 1
// of row 1 of the grid; a part's first note stands on slot StartingBeat.
#pragma once

#include <array>
#include <cstdint>

struct CompositionFileState {
  std::int16_t Part = 0;  // 1 Asthai, 2 Antara
  float Tempo = 0.0f;     // the tempo factor the file was made at
  std::int16_t FRow = 0;  // the stretch (record 2 only): first row and beat,
  std::int16_t FBeat = 0; // last row and beat, 1-based
  std::int16_t TRow = 0;
  std::int16_t TBeat = 0;
};

constexpr int kCompositionFileStates = 4;
constexpr std::size_t kStretchState = 2;
extern std::array<CompositionFileState, kCompositionFileStates> CS;
// First and last slot of the chosen stretch, 1-based across the grid
// (room for three values; two are used).
extern std::array<std::int16_t, 3> gSegmentBounds;

// Kind 2: the whole parts' records get their parts and the present tempo;
// kind 3: the stretch's record is emptied. Other kinds do nothing.
void sInitCS(std::int16_t kind);

// Writes the present tempo into records 0 to 2; with kind 3 also the part
// on show (gCompPart) and the texts of cFRow, cFBeat, cTRow, cTBeat of the
// current screen, rounded, into record 2.
void sUpdateCS(std::int16_t kind);

// -1 when C.wav does not fit the screen's present part, tempo or stretch
// fields (each field's text compared with the stored number), else 0.
std::int16_t fNewCompSegment();

// Where the stretch lies in the whole part's file, in milliseconds, and how
// far into the part's slots it begins. Pure arithmetic: products in whole
// numbers first, then times the tempo factor, rounded halves to even.
struct StretchCut {
  std::int32_t startMs = 0;
  std::int32_t lengthMs = 0;
  std::int16_t firstNote = 0;  // slots of the part before the stretch
  std::int16_t count = 0;      // slots in the stretch
};
StretchCut fStretchCut(std::int16_t firstSlot, std::int16_t lastSlot, std::int16_t startingBeat,
                       std::int16_t baseMatraMs, double factor);

// Cuts slots gSegmentBounds out of the part on show's whole file into C.wav
// (FWavCreateSegmentFile) and makes music buffer 2 its timing: the part's
// slot times from the stretch's first slot, less the cut's start. Makes 2
// the current buffer and clears gBufferRotation. -1 when ready; 0 when the
// synthesis library refused the cut (buffer 2 as it was, no message).
std::int16_t fCreateCompSegmentMusicFile();
