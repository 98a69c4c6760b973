// The illustration catalogue: everything that can be played for the current
// raga, as the entries of the lists of the current screen, and the text
// behind the Raga Info menu. An entry's first word names its kind and the
// text after the dash names a composition, so the wording is a format.
// No state of its own beyond gRagaNotesText.
#pragma once

#include <cstdint>

// cNVIllusList: scale, pakad, alap with its count, layakari and taan when
// the raga has them, then compositions, similar ragas and film songs of
// the library store. Made visible.
void sLoadSystemIllustratinsList();
// cUserIllusList: the user store's alap, layakari and taan classes with
// their counts and its compositions. -1 when any class was present, else 0.
std::int16_t fLoadUserIllustrationsList();
// cScaleList: the names of the user-defined scales. -1 when there are any;
// else 0 with the list left as it stands.
std::int16_t fLoadScalesList();
// gRagaNotesText: every field of the raga's technical data, beginning
// "Thata = ...; Jati = ...; Time = ..." and ending with the notes; "" for a
// raga the library lacks.
void sLoadRagaNotes();
