// A score as a standard MIDI file (type 1, 960 ticks a quarter note).
//
// Tracks: 0 the conductor (the raga's name as sequence name, a text event
// "Raga <name>", a marker at each item, the tempo map), 1 the melody on
// channel 1, 2 the tabla on channel 10 (General MIDI percussion), 3 the
// tanpura's strings on channels 2 and 3. Every track is named.
//
// Time: a phrase with a beat runs at its tempo (one beat, one quarter note),
// so its tabla strokes fall on whole quarter notes; a phrase without a beat
// (alap) runs at 120 a minute, its notes placed by their milliseconds.
// Items follow one another with kPauseBetweenItemsMs between them; the
// drone sounds under everything, in 3200 ms cycles as the program plays it.
//
// Tuning: each note is sent as the nearest equal-tempered key with a pitch
// bend just before it that moves it onto its just ratio to the tonic's Sa;
// the bend range is set to 2 semitones by RPN 0 at the start of each
// channel, so a General MIDI synthesizer plays the just pitch within 0.03
// cents. A grace note is a short note (30 to 70 ms, as the harmonium sounds
// it) at the start of its main note, which follows at once.
// Stateless.
#pragma once

#include <cstdint>
#include <vector>

#include "export/score.h"

constexpr int kMidiTicksPerQuarter = 960;
constexpr int kUnbeatedTempoBpm = 120;
constexpr int kPitchBendRangeSemitones = 2;

// The General MIDI percussion keys (channel 10) a theka bol is played with:
// one or two keys, the bayan's first. An unknown bol gives none.
std::vector<int> gmKeysForBol(int bolId);

// The just frequency in Hz of a note id (0 to 35, middle S 12) at a tonic
// (1 to 12): its ratio to the tonic's middle Sa, whose frequency is the
// program's equal-tempered Sa of that tonic.
double fJustNoteHz(int noteId, int tonicId);

// The bytes of the MIDI file.
std::vector<std::uint8_t> fMakeMidiFile(const Score& score);
