// tonvex: the synthesis library of Nadavik.
//
// The library turns single-period waveform seeds into wave files: harmonium
// notes, a tanpura drone and a tabla theka. It keeps, between calls, the seed
// tables of the loaded note sets, the prepared drone cycle and the loaded
// tabla kit. All calls come from one thread; nothing here is thread-safe.
//
// Conventions shared by every operation:
//   * Result: 1 means success; any other value (0 here) means failure. A
//     failing generate operation never leaves a valid-looking output file:
//     files are written to "<outFile>.part" and renamed only when complete.
//     An outFile (or "<outFile>.part") that is there and is not a regular
//     file (a device, pipe, folder or link) fails: it is never replaced.
//   * Strings are passed as const std::string& (8-bit text); the library
//     never changes them.
//   * Output files are ordinary RIFF/WAVE, PCM, 16-bit signed, mono, 44100 Hz.
//     Their play length equals the sum of the given durations to within one
//     sample (the note starts are placed on the rounded running sums).
//   * Note numbers are absolute note numbers 0 to 40 (11 is C3, 130.81 Hz).
//
// Meaning of the four envelope constants that every music call passes
// (the application always passes 1000, 60, 80, 50):
//   peakPermille  1 to 1000   peak of a note's envelope, per mille of the
//                             note's level (1000 = full level)
//   attackMs      0 to 1000   time from silence to the peak; at most 40 % of
//                             a short note
//   sustainPct    0 to 100    level held after the attack bloom, percent of
//                             the peak, reached one attack time after the peak
//   releaseMs     0 to 1000   fade after the note's end; the fade overlaps the
//                             next note (a legato crossfade), and the last note
//                             fades within its own duration
//
// `level` (0 to 1) sets the melody's loudness: the harmonium peaks at
// 3 x level of full scale, at most 0.9 (0.2 gives 0.6). `droneMix` is
// 0 (no drone), 1 (drone under the melody, Demo and Learning) or 2 (a drone
// 1.6 times stronger, for Practice, where the learner sings over it).
// The drone of each music file begins where the drone of the music file
// written before it ended (a new drone from FWavLoadDroneData begins at the
// start of its cycle), and only the melody fades in and out at the file's
// edges: files played one after another in the order they were written
// join into one unbroken drone.
// `synthVolume` (1 to 4) multiplies the melody's gain; the application
// passes 1. Peaks of the mix above 0.8 of full scale are bent smoothly
// towards 0.97 (a soft limiter), so nothing ever clips.
#pragma once

#include <cstdint>
#include <string>

namespace tonvex {

// Sample rate of every file written, in samples per second.
inline constexpr int kSampleRate = 44100;
// Highest absolute note number a set holds (notes 0 to 40).
inline constexpr int kMaxNoteId = 40;
// Length of one drone cycle in milliseconds.
inline constexpr int kDroneCycleMs = 3200;
// Longest music file, in milliseconds of notes (60 minutes), and the most
// notes one file holds.
inline constexpr double kMaxMusicMs = 3600000.0;
inline constexpr int32_t kMaxMusicNotes = 200000;

}  // namespace tonvex

// Declares the names of the note sets the library will be asked to hold, run
// together as one-letter names: "ce" declares the main set "c" and the drone
// set "e". Empty or non-letter names fail. Clears all loaded data.
int16_t FWavSetGlobalVariables(const std::string& names);

// Chooses the set that music files are played from. It must be one of the
// declared names.
int16_t FWavSetCurrInstr(const std::string& setName);

// Forgets every seed of a declared set. A drone already prepared keeps
// sounding until the next FWavLoadDroneData.
int16_t FWavFreeNoteSeedsMemory(const std::string& setName);

// Copies one note's seed: samples[0..samPerCyc] (samPerCyc + 1 values) are one
// period of the waveform whose exact length is samPerCyc + fractional samples.
// samPerCyc 8 to 20000, fractional 0 <= f < 1, noteId 0 to 40. Replaces the
// note's previous seed and clears its tuning.
int16_t FWavLoadInstrNoteSeeds(const std::string& setName, int32_t noteId, int32_t samPerCyc,
                               double fractional, const int16_t* samples);

// Retunes a loaded note: its effective samples per cycle become the stored
// samPerCyc + fractional + spcDelta. Deltas of repeated calls add up; a new
// FWavLoadInstrNoteSeeds clears them. The result must stay within 0.5 to 2
// times the stored period.
int16_t FWavTuneNote(const std::string& setName, int32_t noteId, double spcDelta);

// Prepares the tanpura drone from the drone set: noteId is the drone set's note
// of the drone Sa (the upper S slot, which the drone set sounds one octave
// below the main set); droneType 1 Pa, 2 Ma, 3 Ni for the first string;
// droneFactor 0.3 to 1.7 is its loudness (0.5 to 1.5 nominally, with a margin
// for accumulated rounding); droneMode 1 or 2. path is not used (the seeds are
// already loaded). Also tunes the tabla's dayan to this Sa. The drone is
// three cycles, each plucked a little differently, played in turn; the same
// strings always give the same drone. Drones of the last three different
// strings (tonic, drone type, tuning) are kept, so switching back to one of
// them renders nothing.
int16_t FWavLoadDroneData(const std::string& path, int32_t noteId, int32_t droneType,
                          const std::string& droneSet, double droneFactor, int32_t droneMode);

// Loads a tabla kit file (format in tonvex/README.md, written at build time by
// tonvex-kit). A missing, truncated or altered file fails. thekaInstrument
// (1 or more) is remembered as the kit's number: music calls must name it.
int16_t FWavLoadThekaData(const std::string& libraryFile, int32_t thekaInstrument);

// Writes droneCycles (1 to 100) drone cycles of 3200 ms into outFile, the
// drone's varied cycles in turn. fileMode 1: a greeting, faded in and out;
// 2: a seamless loop, not faded at all (its last pluck's tails ring on into
// its start).
int16_t FWavGenerateDroneFile(int32_t droneCycles, const std::string& outFile, int32_t fileMode);

// Writes the notes in order. notes: blank-separated tokens (runs of blanks are
// accepted) of two digits (a note) or four digits (grace note then main note);
// durations: one decimal number of milliseconds per token, each 1 to 60000,
// kMaxMusicMs (60 minutes) in total at most. noteCount (1 to kMaxMusicNotes)
// must equal the number of tokens of both. The file is mixed in blocks and
// written as it is mixed, so its length costs no memory.
int16_t FWavGenerateMusicFile(int32_t noteCount, const std::string& notes,
                              const std::string& durations, const std::string& outFile,
                              int32_t droneMix, double level, int32_t synthVolume,
                              int32_t peakPermille, int32_t attackMs, int32_t sustainPct,
                              int32_t releaseMs);

// As FWavGenerateMusicFile, mixed with the loaded tabla kit, whose number
// thekaInstrument must be (the one given to FWavLoadThekaData). theka holds one
// token per note: "0", or "count/bol/.../bol/offset", the offset being the
// first stroke's distance from the note's start in beats; strokes follow at
// beatMs spacing (1 to 10000). Bol ids 1 to 20 (0 is a rest). startBeat and
// beatCount are checked (1 <= startBeat <= beatCount <= 64) but the tokens
// already say where the strokes fall.
int16_t FWavGenerateMusicFile1(int32_t noteCount, const std::string& notes,
                               const std::string& durations, int32_t startBeat,
                               int32_t beatCount, const std::string& theka,
                               int32_t thekaInstrument, int32_t beatMs,
                               const std::string& outFile, int32_t droneMix, double level,
                               int32_t synthVolume, int32_t peakPermille, int32_t attackMs,
                               int32_t sustainPct, int32_t releaseMs);

// Copies milliseconds startMs to startMs + lengthMs of a wave file this library
// wrote into outFile, with 5 ms fades at the cut ends. The source already holds
// its mix; droneMix (0 to 2) and level (0 to 1) are checked only. A range
// more than 1 ms beyond the source's end fails (up to 1 ms is trimmed).
int16_t FWavCreateSegmentFile(const std::string& sourceFile, int32_t startMs, int32_t lengthMs,
                              const std::string& outFile, int32_t droneMix, double level);
