// Definitions of the session state with the values a process starts with.
// File names join directories with "/" where the original used "\".
#include "core/session.h"

#include "platform/store.h"

std::string gAppPath, gDataPath, gExeFile, gErrTraceFile;
std::string gCrLf, gSeparator, gStoreAPath, gStoreBPath, gTempPath;
std::string gWavA, gWavB, gWavC;
std::array<std::string, 4> gWavFiles;
std::string gDroneWavFile;
std::array<std::string, 5> gInstrLibFiles;
std::string gCurrBuildFile, gCurrMusicFile;

platform::Workspace* gWorkspace = nullptr;
std::unique_ptr<platform::Database> gDbA;
std::unique_ptr<platform::Database> gDbB;
std::int16_t gCurrDbSelector = 1;

void sCloseStores() {
  if (gDbA) gDbA->close();
  if (gDbB) gDbB->close();
}

std::int16_t gCurrRagaId = 0;
std::string gCurrRagaName;
std::int16_t gSelRagaId = 0;
std::string gSelRagaName;
std::int16_t gCurrTonicNoteId = 3;
std::int16_t gCurrMusicSetId = 3;
std::string gCurrMusicSetName;
std::int16_t gCurrItemType = 0;
std::int16_t gCurrPhraseKind = 0;
std::int32_t gCurrCompIndex = 0;
std::string gCurrCompName;
std::int16_t gCurrMode = 1;
std::string gSelPhrase;
std::string gSelDurPhrase;

std::int16_t gKeyboardDisplay = 1;
std::int16_t gNotationScript = 1;
std::int16_t gNotationDisplay = 1;
std::int16_t gNotePallet = 1;
std::int16_t gGraceNotes = 2;
std::int16_t gThekaMode = 1;
std::int16_t gSortingMode = 0;
std::int16_t gDevnagariOk = 0;

std::int16_t gTipCount = 0;
std::int16_t gLastTip = 0;
std::int16_t gTipSignal = 1;

std::int16_t gDelayC = 0, gDelayMO = 0, gDelayPC = 0, gDelayW = 0;

double gCurrDroneFactor = 1.0;
std::int32_t gCurrDroneType = 1;
std::int16_t gWavOption = 1;
std::int16_t gDroneMode = 1;
std::string gDroneSetName = "e";
std::string gSynthNames = "ce";
std::string gMainSetName = "c";
std::int32_t gSynthVolume = 1;
std::int32_t gThekaInstrument = 4;
std::int16_t gCompPart = 1;
std::int16_t gTonicChoice = 0;
std::int16_t gLabelIndex = 0;
std::int16_t gCurrAltType = 0;
std::int32_t gDroneCycles = 2;

// A fixed table, the same for the whole run, so it is set here rather than
// at start-up: 1.0 at the slider's middle value 9, slower to the left.
std::array<double, 19> gSpeedFactors = {0,   5.0,  3.33, 2.5, 2.0,  1.67, 1.43, 1.25, 1.11, 1.0,
                                        0.8, 0.67, 0.57, 0.5, 0.44, 0.4,  0.36, 0.33, 0};

std::int16_t gCloseReason = 0;
std::int16_t gTimerPurpose = 1;
std::int16_t gCallbackContext = 0;
std::int16_t gOpeningOk = 0;
float gMaxFormL = 0, gMaxFormT = 0, gMaxFormW = 0, gMaxFormH = 0;

std::int16_t gScriptLineCount = 0;
std::vector<std::string> gScriptLines;

platform::Screen* gCurrForm = nullptr;
platform::Screen* gPrevForm = nullptr;
platform::Screen* gMainMenuForm = nullptr;
std::int16_t gCurrFormId = 0;
std::array<std::int16_t, 28> gParentFormIds = {};
float gFormL = 0, gFormT = 0, gFormW = 0, gFormH = 0;
std::int16_t gFormState = 0;
std::int16_t gResizeEnabled = 0;
std::int16_t gInternalClose = 0;
std::int16_t gImageIndex = 6;
std::string gImageFile;

std::string gCurrProcName;
std::int16_t gTraceEnabled = 0;
std::int16_t gTraceOn = 0;
std::int16_t gTraceLevel = 0;
std::string gTraceIndent;
std::int16_t gIgnorableCount = 0;
std::int16_t gErrorTrapCount = 0;
std::string gErrDescription;
std::int32_t gErrNumber = 0;
std::string gErrSource;
std::int32_t gErrLastDll = 0;
