// Unicode Devanagari for the key-map notation strings of the note vocabulary
// ("saa", "ro\", "ga\,", "saaM", ...), and back. Pure text functions; the
// screen backend uses them for controls in the notation font, so stored and
// compared text stays in the key map while the user sees and types
// Devanagari.
//
// Rendering of a note, syllable first:
//   saa ro ga ma p Qa ina  ->  सा रे ग म प ध नि
//   lower octave ","       ->  U+093C (dot below the consonant, written
//                              before the vowel sign)
//   upper octave "M"       ->  U+0902 anusvara (सां, the usual tar-saptak
//                              sign, and the font's own "M")
//   komal "\" (r g d n)    ->  U+0952 (line below)
//   tivra "\" (ma)         ->  U+0951 (stroke above)
// The marks follow the syllable in the order lower dot, vowel sign,
// anusvara, line or stroke: the order in which Noto Sans Devanagari, Noto
// Serif Devanagari and Lohit Devanagari place every combination cleanly.
// U+0323 and U+0307 are in none of these fonts; a dot below from a fallback
// font lands on the komal line and vanishes, so they are only accepted on
// input. No state.
#pragma once

#include <string>

// Key-map notation text to UTF-8. A run of letters, "\" and "," converts
// when it is made wholly of vocabulary strings (and lone "," separators);
// any other run, and every other character (blanks, "'", ":", ".1.",
// digits), passes through unchanged.
std::string fKeymapToUnicode(const std::string& keymapText);

// UTF-8 text, Devanagari or key-map letters, to key-map text. Each
// Devanagari note syllable with its marks becomes its vocabulary string.
// Accepted on input besides the marks above: रि/री for रे, नी for नि, the
// vowel sign ा on ग म प ध, bare स for सा; U+0323 or U+1CDD for the lower
// dot, and U+0931 (ऱ) and U+0929 (ऩ), the composed (NFC) forms of र and न
// with it; U+0901 or U+0307 for the upper dot; U+0331 or U+0332 for the
// komal line. A syllable whose marks make no note (komal Sa, tivra Re, two
// octave marks) and all other text pass through unchanged.
std::string fUnicodeToKeymap(const std::string& text);
