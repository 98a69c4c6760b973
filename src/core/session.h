// Session state: the variables that live for the whole process and mean the
// same to every part of the program. Each module that owns further state
// declares it in its own header.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace platform {
class Screen;
class Database;
class Workspace;
}  // namespace platform

// Paths and files.
extern std::string gAppPath;        // directory of the program
extern std::string gDataPath;       // directory of the read-only data files
extern std::string gExeFile;
extern std::string gErrTraceFile;   // errtrace.txt in the state folder
extern std::string gCrLf;
extern std::string gSeparator;      // " - "
extern std::string gStoreAPath;     // library store mrA.nvy
extern std::string gStoreBPath;     // user store mrB.nvy
extern std::string gTempPath;       // temporary directory, with a trailing separator
extern std::string gWavA, gWavB, gWavC;
extern std::array<std::string, 4> gWavFiles;
extern std::string gDroneWavFile;
extern std::array<std::string, 5> gInstrLibFiles;
extern std::string gCurrBuildFile;  // wave file being built
extern std::string gCurrMusicFile;  // wave file now playing

// Stores.
extern platform::Workspace* gWorkspace;
extern std::unique_ptr<platform::Database> gDbA;  // library store, read-only
extern std::unique_ptr<platform::Database> gDbB;  // user store, writable
extern std::int16_t gCurrDbSelector;              // 1 gDbA, 2 gDbB

// Closes both stores and gives up their files at once. Called on every way
// out (the stop sequence, the halt after a fatal error, the end of main), so
// that no store is left for the destructors of static objects, whose order
// nothing fixes. The handles stay: a later use is the "store closed" fault,
// never a use of freed memory. Closing twice is harmless.
void sCloseStores();

// The raga, tonic and item at hand.
extern std::int16_t gCurrRagaId;
extern std::string gCurrRagaName;
extern std::int16_t gSelRagaId;
extern std::string gSelRagaName;
extern std::int16_t gCurrTonicNoteId;   // 1 to 12
extern std::int16_t gCurrMusicSetId;    // above 12: user-defined
extern std::string gCurrMusicSetName;
extern std::int16_t gCurrItemType;      // 1 aroha .. 7 similar raga, 0 none
extern std::int16_t gCurrPhraseKind;    // 1 aroha .. 9 film song
extern std::int32_t gCurrCompIndex;
extern std::string gCurrCompName;
extern std::int16_t gCurrMode;          // 1 Demo, 2 Learning, 3 Practice
// The selected phrase of a screen played as one phrase through the chain
// (the quiz's sample, the workbench's pattern), notes and durations.
extern std::string gSelPhrase;
extern std::string gSelDurPhrase;
// The category at hand. Raga Exploration: 6 scale, 7 pakad, 1 alap,
// 2 layakari, 3 taan, 5 composition. Composer: 1 alap, 2 layakari, 3 taan,
// 4 new composition, 5 existing composition.
extern std::int16_t gCurrAltType;

// Display choices.
extern std::int16_t gKeyboardDisplay;   // 1 show, 2 hide
extern std::int16_t gNotationScript;    // 1 Devanagari, 2 English
extern std::int16_t gNotationDisplay;   // 0 hide, 1 show
extern std::int16_t gNotePallet;        // 1 raga notes, 2 all notes
extern std::int16_t gGraceNotes;        // 1 none, 2 use them
extern std::int16_t gThekaMode;         // 1 theka, 2 none
extern std::int16_t gSortingMode;       // raga grid sort 0..5
extern std::int16_t gDevnagariOk;       // -1 font usable, 0 not

// Tips.
extern std::int16_t gTipCount;
extern std::int16_t gLastTip;
extern std::int16_t gTipSignal;

// Per-screen playing delays (ms lead per note).
extern std::int16_t gDelayC, gDelayMO, gDelayPC, gDelayW;

// Sound defaults.
extern double gCurrDroneFactor;
extern std::int32_t gCurrDroneType;
extern std::int16_t gWavOption;
extern std::int16_t gDroneMode;
extern std::string gDroneSetName;
extern std::string gSynthNames;
extern std::string gMainSetName;
extern std::int32_t gSynthVolume;
extern std::int32_t gThekaInstrument;
extern std::int16_t gCompPart;
// Tonic id (1 to 12) last chosen in a Tonic Note menu: the Raga Exploration
// screen, the composition player and the workbench set it, and the exploration screen
// takes it up when the player hands a new tonic back.
extern std::int16_t gTonicChoice;
// The key label (cL, a reed number) just clicked on a screen that takes
// notes from the keyboard's labels: the workbench and the scale shifting.
extern std::int16_t gLabelIndex;
extern std::int32_t gDroneCycles;

// Slider value to playing-speed factor; entries 0 and 18 stay 0.
extern std::array<double, 19> gSpeedFactors;

// Start and stop.
extern std::int16_t gCloseReason;       // 1 Exit button, 2 close box
extern std::int16_t gTimerPurpose;      // main window cTimer: 1 start, 2 stop
extern std::int16_t gCallbackContext;   // who receives the end of playback

// Callback contexts: which screen owns the playing chain (gCallbackContext).
constexpr std::int16_t kContextScaleShifting = 1;
constexpr std::int16_t kContextComposition = 3;
constexpr std::int16_t kContextPlaySet = 4;
constexpr std::int16_t kContextQuiz = 6;
constexpr std::int16_t kContextWorkbench = 8;
constexpr std::int16_t kContextSampler = 9;
constexpr std::int16_t kContextComposer = 11;
constexpr std::int16_t kContextMainOperations = 12;
constexpr std::int16_t kContextNone = 13;
extern std::int16_t gOpeningOk;
extern float gMaxFormL, gMaxFormT, gMaxFormW, gMaxFormH;

// Command line.
extern std::int16_t gScriptLineCount;
extern std::vector<std::string> gScriptLines;  // from 1; entry 0 unused

// Screens (owned by the screen manager).
extern platform::Screen* gCurrForm;
extern platform::Screen* gPrevForm;
extern platform::Screen* gMainMenuForm;
extern std::int16_t gCurrFormId;
extern std::array<std::int16_t, 28> gParentFormIds;  // by form id - 1
extern float gFormL, gFormT, gFormW, gFormH;
extern std::int16_t gFormState;        // 0 normal, 1 minimised, 2 maximised
extern std::int16_t gResizeEnabled;
extern std::int16_t gInternalClose;
extern std::int16_t gImageIndex;
extern std::string gImageFile;

// Trace and errors.
extern std::string gCurrProcName;
extern std::int16_t gTraceEnabled;
extern std::int16_t gTraceOn;
extern std::int16_t gTraceLevel;
extern std::string gTraceIndent;
extern std::int16_t gIgnorableCount;
extern std::int16_t gErrorTrapCount;
extern std::string gErrDescription;
extern std::int32_t gErrNumber;
extern std::string gErrSource;
extern std::int32_t gErrLastDll;
