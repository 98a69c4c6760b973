// The working raga record: the current raga's store columns, cut once into
// segments and phrases when the raga becomes current, and read by every
// screen through the fGetFromT_ getters.
//
// State: gTRaga (scale, pakad and base data), gTAlt and gTUserAlt (alap,
// layakari and taan phrases of the library and the user store). They are
// replaced by sSetupForCurrRaga. The composition at hand (gTCompInfo,
// gCompInfo) lives in store/working_record_comp.h.
//
// Arrays are std::vector indexed from 0: element i holds segment (or
// phrase) number i + 1. The numbers stored in PhraseFirstToken and
// PhraseFirstSegment are 1-based, as the phrase readers count them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Base data of the current raga.
struct TRagaRecord {
  std::int16_t RagaId = 0;
  std::string Thata;  // a Null in the store keeps the previous raga's value
  std::int16_t ScaleSectionCount = 0;                  // always 1
  std::int16_t ScaleSegmentCount = 0;                  // always 2
  std::array<std::int16_t, 1> ScaleSectionStart{};     // always 1
  std::array<std::int16_t, 1> ScaleSectionEnd{};       // always 2
  std::array<std::string, 2> ScaleNotes;      // 0 AarohaAlt, 1 AvrohaAlt
  std::array<std::string, 2> ScaleDurations;  // 0 AaDuration, 1 AvDuration
  std::string Jati;
  std::string Vadi;
  std::string Samvadi;
  std::int16_t PakadSectionCount = 0;                  // always 1
  std::int16_t PakadSegmentCount = 0;                  // segments of the pakad
  std::array<std::int16_t, 1> PakadSectionStart{};     // always 1
  std::array<std::int16_t, 1> PakadSectionEnd{};       // PakadSegmentCount
  std::vector<std::string> PakadNotes;      // one per segment, blank-separated
  std::vector<std::string> PakadDurations;  // one per segment, hundredths of a second
  std::string AppropriateTime;
  std::int16_t DroneType = 0;
  std::int16_t OPRSetId = 0;
  std::string Notes;
};

// Alap (PhraseType 1), layakari (2) or taan (3) phrases of the raga in one
// store.
struct TAltRecord {
  std::int16_t RagaId = 0;  // 0: the store has no row of this type
  std::int16_t PhraseType = 0;
  std::int16_t PhraseCount = 0;
  std::int16_t SegmentCount = 0;  // all segments of all phrases
  // Per phrase: position of its first token in the whole column (a note, a
  // ":" and a "," each count one), its first segment, its segment count.
  std::vector<std::int16_t> PhraseFirstToken;
  std::vector<std::int16_t> PhraseFirstSegment;
  std::vector<std::int16_t> PhraseSegments;
  // Per segment, phrases one after the other; durations in hundredths of a
  // second, "" where the row has none (every taan).
  std::vector<std::string> SegmentNotes;
  std::vector<std::string> SegmentDurations;
};

constexpr int kAltRecordCount = 4;  // alap, layakari, taan; the fourth stays empty

extern TRagaRecord gTRaga;
extern std::array<TAltRecord, kAltRecordCount> gTAlt;      // from the library store
extern std::array<TAltRecord, kAltRecordCount> gTUserAlt;  // from the user store

// Loaders -------------------------------------------------------------------

// Loads the working record of gCurrRagaId: base data, then phrases. A raga
// missing from the library, or damaged there, shows its one message and
// leaves gTRaga empty (RagaId 0). The store rebuilds no sound:
// sSetupRagaAndSound (control/raga_setup.h) runs this and then renews the
// seeds for the raga's drone type.
void sSetupForCurrRaga();

// Fills gTRaga from "Raga - Technical Information" of gDbA.
void sDBToTBaseInfo();
// Copies the row of gCurrRagaId into gTRaga and cuts the pakad. A missing
// row (or store), or a row without one of the fields the raga is played from
// (drone type, scale and pakad with their durations), shows "The data of raga
// <id> is missing from the library. Please reinstall Nadavik." and empties
// gTRaga.
void sLoadRagaScalePakadInfo();

// Fills gTAlt from gDbA and gTUserAlt from gDbB ("Raga - ALT Phrases"). A
// missing row sets only the record's RagaId to 0; a taan never has
// durations.
void sDBToTALTInfo();

// Cuts one row's columns into the record: phrases at ",", segments at ":",
// and the duration words (one skipped after each phrase) shared out to the
// segments. An empty notes column leaves the record with no phrases.
void sLoadRagaALTInfoIntoT(TAltRecord& record, std::int16_t phraseType, std::int16_t ragaId,
                           const std::string& notesColumn, const std::string& durationsColumn);

// Getters ---------------------------------------------------------------------
// which: 1 notes, any other value durations. dbSelector: 1 gTAlt, any other
// value gTUserAlt. altType: PhraseType 1 to 3 (4 is the empty record).
// phraseNo: from 1. An altType or phraseNo out of range is run-time error 9
// (subscript out of range), which the common error trap reports.

std::string fGetFromT_ArohaPhrase(std::int16_t which);
std::string fGetFromT_AvrohaPhrase(std::int16_t which);
// Aroha and avroha joined by " : ", or by " ".
std::string fGetFromT_ScalePhraseSeg(std::int16_t which);
std::string fGetFromT_ScalePhraseUnSeg(std::int16_t which);
// The pakad's segments joined by " :" (no blank after the colon), or by " ".
std::string fGetFromT_PakadPhraseSeg(std::int16_t which);
std::string fGetFromT_PakadPhraseUnSeg(std::int16_t which);
// One phrase's segments joined by " : ", or by " ".
std::string fGetFromT_AnALTPhraseSeg(std::int16_t dbSelector, std::int16_t altType,
                                     std::int16_t which, std::int16_t phraseNo);
std::string fGetFromT_AnALTPhraseUnSeg(std::int16_t dbSelector, std::int16_t altType,
                                       std::int16_t which, std::int16_t phraseNo);
// Every phrase's segments joined by " ", the phrases joined by " ,".
std::string fGetFromT_AllALTPhrasesUnSeg(std::int16_t dbSelector, std::int16_t altType,
                                         std::int16_t which);
// PhraseCount of the record (phrases, in spite of the name).
std::int16_t fGetFromT_SegmentCount(std::int16_t dbSelector, std::int16_t altType);
