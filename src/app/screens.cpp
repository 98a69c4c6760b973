// Fills the screen table from the screen modules.
#include "app/screens.h"

#include "browsing/browsing.h"
#include "composer/composer.h"
#include "control/screen_manager.h"
#include "control/screen_table.h"
#include "control/startup.h"
#include "exploration/exploration.h"
#include "platform/screen.h"
#include "player/player.h"
#include "quiz/quiz.h"
#include "sampler/sampler.h"
#include "scales/scales.h"
#include "workbench/workbench.h"

void sRegisterProgramScreens() {
  sRegisterScreen({kFormNadavik, "Nadavik", sNVControl, nullptr});
  sRegisterScreen({kFormReviewRagas, "ReviewRagas", sReviewTechnicalData, sBindReviewRagasEvents});
  sRegisterScreen({kFormScaleShifting, "ScaleShifting", sShiftScale, sBindScaleShiftingEvents});
  sRegisterScreen({kFormRagaSelection1, "RagaSelection1", sSelectRaga, sBindRagaSelection1Events});
  sRegisterScreen({kFormWorkshop, "Workshop", sWorkshop, sBindWorkshopEvents});
  sRegisterScreen({kFormPlayComposition1, "PlayComposition1", sPlayCompositions,
                   sBindPlayComposition1Events});
  sRegisterScreen({kFormRagaInfoSummary, "RagaInfoSummary", sReviewTechnicalData,
                   sBindRagaInfoSummaryEvents});
  sRegisterScreen({kFormQuiz, "Quiz", sTakeQuiz, sBindQuizEvents});
  sRegisterScreen({kFormNVSampler, "NVSampler", sNVSampler, sBindNVSamplerEvents});
  sRegisterScreen({kFormComposer, "Composer", sComposer, sBindComposerEvents});
  sRegisterScreen({kFormMainOperations, "MainOperations", sMainOperations,
                   sBindMainOperationsEvents});
  // The main window and the opening screen take their handlers now: the
  // main window's Load event is the start of everything.
  sBindNadavikEvents(platform::windowSystem().screen("Nadavik"));
  sBindOpeningScreenEvents(platform::windowSystem().screen("OpeningScreen"));
}
