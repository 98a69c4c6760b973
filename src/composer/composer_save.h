// What stands between the composer's slots and the user store: the row
// images made into phrases of the working record (gCompInfo for a
// composition, gTUserAlt for alap, layakari and taan), the checks on the
// way, the first record of a new composition, the list of the user's
// compositions, and saving. Reads the current screen's controls; every
// failure is a message box and a 0 result, never a change of the store.
// No state of its own beyond the working record.
#pragma once

#include <cstdint>
#include <string>

// -1 when the tala, mukhada, starting beats and beat duration are all
// filled in, else 0 (nothing beyond emptiness).
std::int16_t fCheckCompData();
// -1 when those values can make a composition, else 0 after a message: the
// starting beats whole beats of the tala, the beat duration 10 to 500
// hundredths of a second, and (for a new composition) no composition of
// the raga already named so.
std::int16_t fCheckCompDataValues();

// -1 when cSpeed holds a beat duration of 10 to 500 hundredths of a
// second, else 0 after a message.
std::int16_t fCheckBeatDuration();

// -1 when the composer may leave the composition in hand (none, or one
// saved at least once, or the user says Yes); context 1 new category, 2
// new raga, 3 exit.
std::int16_t fCheckForComp(std::int16_t context);

// -1 when the syllables in the slots spell the words of the part on show
// (blanks, line breaks and "_" aside, letter case counting).
std::int16_t fVerifyCompPartSyllables();

// The raga's compositions in cRagaList; 0 after "No User-defined
// Compositions available" when it has none.
std::int16_t fLoadAndDisplayCompositionList();

// The header and both parts of a new composition from the data fields.
void sSetInitialValuesInCompT();

// The row images of an alap, layakari or taan of the user store.
void sTToALTRowImages(std::int16_t category);

// The row images into the part on show (gCompPart) of gCompInfo, or into
// the category's record of gTUserAlt: -1, or 0 after a message.
std::int16_t fUpdateCompTFromRowImages();
std::int16_t fUpdateALTTFromRowImages();
// One duration for each syllable; "" after a message.
std::string fCreateCombinedSylDurPhrase();

// The store form of the category's phrases in gTUserAlt: phrases
// separated by a "," word, sub-phrases (notes only) by a ":" word; kind 1
// notes, 2 durations. Begins with a blank; "" when there are none.
std::string fCreateALTDBStrFromT(std::int16_t category, std::int16_t kind);

// Saves what the working record holds for gCurrAltType into the user store.
void sSaveMusicToDatabase();
void sSaveCompDataFromTToDB();
void sSaveALTFromTToDB();
