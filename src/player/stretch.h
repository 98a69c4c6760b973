// Checking the stretch a learner types in Practice mode (first row and
// beat, last row and beat) against the part on show, and the grid slots it
// covers. Pure arithmetic on the texts of the four fields; no state.
#pragma once

#include <cstdint>
#include <string>

struct StretchFields {
  std::string fromRow, fromBeat, toRow, toBeat;
};

// Where the part on show lies on the grid: its first beat in row 1, the
// beats of its tala, and its length in matras (slots).
struct PartExtent {
  int firstBeat = 1;
  int beats = 16;
  int matras = 0;
};

struct StretchCheck {
  std::string message;  // "" when the stretch is good
  int firstSlot = 0;    // 1-based slots across the grid
  int lastSlot = 0;
};

// The part's last row and beat: those of the slot of its last matra. (A
// part that fills its last row to the end ends in that row: the empty row
// the grid keeps below it cannot be asked for, since the part's file holds
// no sound there to cut. For the same reason the part's own matras are
// taken, not the grid's stored count of the Antara, which also holds its
// starting beat.) A part without beats (no tala) ends on row 0, beat 0, so
// that every stretch lies outside it.
int fPartLastRow(const PartExtent& part);
int fPartLastBeat(const PartExtent& part);

// Reads each field by its leading number (text that starts with none reads
// 0) and answers the first fault, in this order: a blank first row, first
// beat or last beat ("Specify Starting and Ending Rows and Beats"); a start
// outside the part ("Starting Point is outside the Composition. Please
// Reset."); an end outside it ("Ending Point ..."); a start after the end
// ("Starting Point Beyond Ending Point. Please Reset."). A number that is
// not whole lies outside. A blank last row reads as row 0, outside.
StretchCheck fCheckStretch(const StretchFields& fields, const PartExtent& part);
