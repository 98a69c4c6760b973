// The labels on the reeds: the note names that fall on each key at the
// current tonic, in the script in force, and their resting colours.
//
// Resting colours, so that a learner reads the keyboard at a glance:
// - the middle Sa (reed tonic + 9) is written in white on a dark blue
//   marker, whether the tonic falls on a white or a black key (white text
//   on a cream key could not be read);
// - on the screen that shows a raga (gRagaNotesScreen), the notes of that
//   raga (gRagaNoteClasses) stand on a pale green marker. Marking the
//   raga's own notes is our addition to the harmonium of the keyboard
//   display; the keyboards of other screens do not mark them;
// - every other label takes the colour of its key.
// The sounding note (red) and its grace note (pink) are painted over these
// and give way to them again.
//
// State: gReedOffset, which turns a reed number into a note id at the
// current tonic (note id = reed + gReedOffset); gRagaNoteClasses and
// gRagaNotesScreen.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace platform {
class Screen;
}

extern std::int16_t gReedOffset;
// The raga's notes by pitch class: entry k is set when the note k semitones
// above Sa (note id mod 12) belongs to the raga at hand.
extern std::array<bool, 12> gRagaNoteClasses;
// The screen whose keyboard marks them; nullptr for none.
extern const platform::Screen* gRagaNotesScreen;

constexpr int kTonicMarkerColor = 0x802000;   // dark blue behind the middle Sa
constexpr int kRagaNoteMarkerColor = 0xB0EEB0;  // pale green behind the raga's notes

// Makes form the screen that marks the raga's notes, and fills
// gRagaNoteClasses from the notes of an English phrase (blank-separated
// words, grace pairs joined by "'", segment and section marks allowed); a
// word that is no note adds nothing.
void sSetRagaNoteClasses(const platform::Screen& form, const std::string& englishPhrase);

// The resting colours of reed n's label on a screen at the current tonic.
int fReedLabelBackColor(const platform::Screen& form, std::int32_t reed);
int fReedLabelTextColor(std::int32_t reed);

// Recomputes gReedOffset from gCurrTonicNoteId and writes the note names on
// the reeds gFirstReed to gLastReed: Devanagari in the notation font
// "Shusha" (gNotationScript 1) or English in "Times New Roman" (2), in
// their resting colours.
void sUpdateReedLabelsAlt(platform::Screen& form);

// Gives every label, 0 to 40, its resting background: no mark remains.
void sSetAllReedLabelColorToDefault(platform::Screen& form);
