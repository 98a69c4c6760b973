// State of the Workshop screen that outlives one event: the mode, the
// pattern in force, what a click on a key or in the list means, the
// question dialogue's stage and the token it is building, and how the
// media control's notifications are handled.
#pragma once

#include "core/session.h"  // gLabelIndex
#include <array>
#include <cstdint>
#include <string>

extern std::int16_t gWBMode;          // 0 none, 1 Major Scale, 2 Note Scales, 3 Raga Notes, 4 Notes Quiz
extern std::int16_t gPatternSource;   // 0 none yet, 1 standard, 2 the user's
extern std::int16_t gStdPatternIndex; // 0 to 7
extern std::int16_t gWBKeyAction;     // 1 pick scale notes, 2 hear the note, 3 meend, 4 define by ear
extern std::int16_t gWBListUse;       // 1 thatas, 3 ragas, 4 user patterns
extern std::int16_t gSliderMoved;     // -1 when cSlider moved since the last set-up
extern std::int16_t gWBPlayKind;      // 1 drone only, 2 music
extern std::int16_t gNoteLength;      // duration word of a single note, and cTimer1's interval (ms)
extern std::array<std::string, 2> gMeendNotes;
extern std::string gWBNotation;       // the phrase's notation in English
extern std::string gWBShownNotation;  // the same, as last shown
extern std::string gRagaScalePhrase;  // the raga's aroha and avroha, in mode 3
extern std::int16_t gDefPatternMode;  // 1 by the dialogue, 2 by ear (the menu)

// The question dialogue in Frame2.
extern std::int16_t gOptionStage;  // 1 to 11
extern std::int16_t gCountPage;    // which pair of counts stage 6 offers
extern std::string gSpecStart, gSpecDir, gSpecKind;
extern std::int32_t gSpecCount;

// The seven menus whose enabled state a single play records and gives back:
// cMnuMusPat, cMnuKebDis, cMnuNotScr, cMnuTonNot, cMnuHel, cMnuGraNot, cMnuSyn.
extern std::array<bool, 7> gMenuBarItemStatus;

// The note the notes quiz asks for, in English; "" before the first.
extern std::string gQuizNote;
