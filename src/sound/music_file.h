// Having a music buffer written to its wave file by the synthesis library:
// the note and duration lists in generation form, the lowest-note refusal,
// grace notes dropped from notes too short to hold them, and the theka for
// compositions. Reads the session's sound settings; keeps no state.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Makes the wave file gWavFiles[buffer] of a filled buffer (its Count notes),
// with the theka when the item is a composition (gCurrItemType 6, kind 8)
// and gThekaMode is 1. 1 on success; 0 after the message "Error Preparing
// Music File" (which follows the builder's own message).
std::int16_t fPrepareToPlaySelection1(std::int16_t buffer);

// Writes the first `count` notes into gCurrBuildFile (deleted first) without
// a theka. 1 on success; 0 after "Error in creating current musical
// illustration. Note value outside range." for a code below 3 (the notes
// S<, r<, R<), or after "Error creating music file" when the library fails
// or writes an empty file.
std::int16_t fCreateMusicFile(const std::vector<std::int16_t>& noteCodes,
                              const std::vector<std::int32_t>& durationsMs, std::int16_t count);

// The same with the theka tokens of the buffer mixed in, strokes beatMs
// apart, from beat gCompStartBeat of a gFormBeatCount-beat cycle; the
// library's failure message is "Music File Generation Failed".
std::int16_t fCreateMusicFileWithTaal1(std::int16_t count,
                                       const std::vector<std::int16_t>& noteCodes,
                                       const std::vector<std::int32_t>& durationsMs,
                                       const std::string& theka, std::int32_t beatMs,
                                       std::int16_t buffer);

// The library's note and duration lists of the first `count` notes, as both
// builders hand them over: each note's generation token (only the main note
// when the note lasts 250 ms or less), tokens separated by two blanks, and
// the durations in milliseconds separated by one. False, after the
// lowest-note message, for a code below 3.
struct GenerationLists {
  std::string notes;
  std::string durations;
};
bool fCreateGenerationLists(const std::vector<std::int16_t>& noteCodes,
                            const std::vector<std::int32_t>& durationsMs, std::int16_t count,
                            GenerationLists& lists);

// Generation token of a note code at the tonic gCurrTonicNoteId: each
// two-digit piece of the code shifted by tonic - 3 and written in two
// digits ("12" at tonic 5 is "14", 1214 gives "1416"). A three-digit code
// gets a leading "0" (112 is "01" "12"); 100 keeps only its first pair.
std::string fGetFnameForCurrTonicNote(std::int16_t noteCode);
