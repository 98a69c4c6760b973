// What an export writes, taken from the program when the export starts and
// owned by the export from then on: the raga, the tonic and drone in force,
// and each item's phrases as timed notes and tabla strokes. Sound, MIDI and
// the notation sheet are all made from this one copy, so that a tonic or
// tempo change while an export runs in the background does not touch it.
// Plain records, no state.
#pragma once

#include <string>
#include <vector>

// One note as the harmonium plays it. Note ids are those of the note
// vocabulary (0 to 35, the middle S is 12) at the tonic of the score.
struct ScoreNote {
  int noteId = 12;
  int graceNoteId = -1;  // the grace note sounded at the note's start, -1 none
  int startMs = 0;       // from the start of its phrase
  int durationMs = 0;
};

// A tabla stroke: one of the library's theka bols (1 Dha .. 20 Dhet).
struct ScoreStroke {
  int startMs = 0;  // from the start of its phrase
  int bolId = 0;
};

struct ScorePhrase {
  std::string notation;  // the phrase's note words, as shown (English words)
  std::vector<ScoreNote> notes;
  std::vector<ScoreStroke> strokes;  // empty when played without theka
  int beatMs = 0;                    // length of one beat; 0 for a phrase without a beat (alap)
  int lengthMs() const { return notes.empty() ? 0 : notes.back().startMs + notes.back().durationMs; }
};

// A composition part on its tala grid, for the notation sheet.
struct ScoreCompositionPart {
  std::string caption;     // "Asthai", "Antara"
  std::string syllables;   // syllable words
  std::string syllableBeats;  // beats of each syllable
  std::string notation;    // note words
  std::string noteBeats;   // beats of each note
  int talaId = 0;
  int startingBeat = 1;
};

struct ScoreItem {
  std::string title;  // "Pakad", "Alap 2", a composition's name
  std::vector<ScorePhrase> phrases;
  std::vector<ScoreCompositionPart> parts;  // a composition's parts; empty otherwise
  std::vector<std::string> waves;  // for a sound export: the phrases' wave files, in order
};

// The raga's particulars for the sheet's header.
struct ScoreRagaInfo {
  std::string thata, vadi, samvadi, jati, time;
  std::string aroha, avroha, pakad;  // note words
};

struct Score {
  std::string ragaName;
  ScoreRagaInfo info;
  int tonicId = 3;    // 1 to 12; 3 puts the middle S at C#3
  int droneType = 1;  // first tanpura string: 1 lower Pa, 2 lower Ma, 3 lower Ni
  int script = 2;     // notation script of the sheet: 1 Devanagari, 2 English
  std::vector<ScoreItem> items;
};

// Silence between two items of a whole-raga export.
constexpr int kPauseBetweenItemsMs = 1500;
