// What is being played: the phrase sets (the item on show, the practice
// segments and the playlist the player walks through) and the three music
// buffers, each one phrase made ready for a wave file and for the display
// that follows it. Also the composition's beat grid that the buffers' times
// run on.
//
// State: gPhraseSet, gPracticeSet, gPlaySet, gMusicBuffers, gFormBeatCount,
// gRowsPerCycle, gCompStartBeat; all refilled for each item.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// A run of phrases. Phrase p (1-based, as Position counts) is entry p - 1 of
// the three arrays. A copy is a whole-record assignment.
struct PhraseSet {
  std::int16_t Count = 0;     // number of phrases
  std::int16_t Position = 0;  // 1-based cursor of the phrase now under way
  std::vector<std::string> NotePhrases;  // note phrase of each entry
  // Duration phrase used for the file, in hundredths of a second; an empty
  // string means one second for each note.
  std::vector<std::string> DurPhrases;
  std::vector<std::string> BaseDurPhrases;  // the timing script before the tempo factor
  std::int16_t FirstPhrase = 0;  // range to be played, 1-based
  std::int16_t LastPhrase = 0;
};

extern PhraseSet gPhraseSet;    // the phrases of the current item
extern PhraseSet gPracticeSet;  // the segments of the box in Practice; the workbench's phrases
extern PhraseSet gPlaySet;      // what the player walks through: a copy of one of the others

// One phrase made ready: what the notation box shows, the note codes and
// durations handed to the synthesis library, and the running times the
// display compares with the device's position.
struct MusicBuffer {
  std::string Text;          // the notation box's text, in the script below
  std::int16_t Script = 2;   // gNotationScript when Text was made: 1 Devanagari, 2 English
  // Word k of Text (1-based) starts at character WordStarts[k - 1] (1-based)
  // and is WordLengths[k - 1] long: read it with fGetWord1.
  std::vector<std::int16_t> WordStarts;
  std::vector<std::int16_t> WordLengths;
  std::int16_t CurrNote = 1;  // 1-based, the note now sounding
  std::int16_t Count = 0;     // notes in the phrase (stored by the caller of fCreateNotesList1)
  std::vector<std::int16_t> NoteCodes;    // note i + 1 at entry i; codes as fGetNoteCode gives
  std::vector<std::int32_t> DurationsMs;  // note i + 1 at entry i
  // TimesMs[i] is the start of note i + 1 and TimesMs[0] is 0; for a
  // composition outside Demo, entry i is the start of grid slot i + 1.
  std::vector<std::int32_t> TimesMs;
  std::int16_t BeatCount = 0;     // the phrase's total beats (compositions)
  std::string Caption;            // heading of a composition part
  std::int16_t StartingBeat = 0;  // beat of the tala cycle the part starts on, 1-based
  std::string Theka;              // theka token list, one token per note
  std::int16_t FirstNotationCell = 0;  // grid slots before the phrase's first note
};

constexpr int kMusicBufferCount = 3;  // 0: A.wav, 1: B.wav, 2: C.wav
extern std::array<MusicBuffer, kMusicBufferCount> gMusicBuffers;

// The composition's beat grid: beats in one cycle of its tala, rows of the
// grid, and the beat (1-based) on which the part being built starts.
extern std::int16_t gFormBeatCount;
extern std::int16_t gRowsPerCycle;
extern std::int16_t gCompStartBeat;
