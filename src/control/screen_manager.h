// The screen manager: which screen is current, the parent chain, showing a
// screen laid out from the stored layout ratios, leaving screens, the shared
// menu check marks and the main-window selections.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Form ids of the screens.
constexpr std::int16_t kFormNadavik = 1;
constexpr std::int16_t kFormReviewRagas = 3;
constexpr std::int16_t kFormScaleShifting = 7;
constexpr std::int16_t kFormRagaSelection1 = 9;
constexpr std::int16_t kFormWorkshop = 13;
constexpr std::int16_t kFormPlayComposition1 = 14;
constexpr std::int16_t kFormRagaInfoSummary = 15;
constexpr std::int16_t kFormQuiz = 20;
constexpr std::int16_t kFormNVSampler = 22;
constexpr std::int16_t kFormComposer = 27;
constexpr std::int16_t kFormMainOperations = 28;

// The screen object of a form id (created once, kept for the process);
// nullptr for an id that does not occur.
platform::Screen* fFormById(std::int16_t formId);

void sSetCurrFormById();
void sShowForm(std::int16_t mode);
void sSetFormParameters();

// The background pictures nv1.jpg to nv8.jpg.
constexpr std::int16_t kPictureCount = 8;
// Makes picture gImageIndex the screen's background, then draws the number
// of the next one (1 to 8) from the program's generator, without reseeding
// it: callers reseed first where they want to.
void sShowNextPicture(platform::Screen& s);
// After a change of window size: the controls laid out again from the
// screen's ratios, and a keyboard on show with them.
void sResizeForm();
void sRevertToParentForm();
void sStructuredTermination(std::int16_t levels);

// The entry pattern every screen's entry procedure begins with: makes the
// screen of formId current with the current one as its parent, and shows it.
void sEnterForm(std::int16_t formId);

// The three events every screen defines for itself (Resize, Activate and
// the Unload of the close box), bound once when the screen is created. The
// main window takes only the first two: it has its own query-unload.
void sBindCommonScreenEvents(platform::Screen& screen);
void sBindResizeAndActivate(platform::Screen& screen);

void sEnableAllNVSelections();
void sDisableNVSelections();
void sEnableNVSelections();

void sMnuGraceNotesCheck();
void sMnuGraceNotesUncheck();
void sMnuKeyboardDisplayCheck();
void sMnuKeyboardDisplayUncheck();
void sMnuNotationCheck();
void sMnuNotationUncheck();
void sMnuNotationScriptCheck();
void sMnuNotationScriptUncheck();
void sMnuNotePalletCheck();
void sMnuNotePalletUncheck();
void sMnuRagaSortingModeCheck();
void sMnuRagaSortingModeUncheck();
void sMnuThekaCheck();
void sMnuThekaUncheck();
void sMnuTipsCheck();
void sMnuTipsUncheck();
void sMnuTonicNoteCheck();
void sMnuTonicNoteUncheck();
