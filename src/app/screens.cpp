// Fills the screen table from the screen modules.
#include "app/screens.h"

#include "browsing/browsing.h"
#include "composer/composer.h"
#include "control/screen_manager.h"
#include "control/screen_table.h"
#include "control/startup.h"
#include "core/messages.h"
#include "exploration/exploration.h"
#include "platform/screen.h"
#include "player/player.h"
#include "quiz/quiz.h"
#include "sampler/sampler.h"
#include "scales/scales.h"
#include "workbench/workbench.h"

namespace {

const ScreenEntry kProgramScreens[] = {
    {kFormNadavik, "Nadavik", sNVControl, nullptr},
    {kFormReviewRagas, "ReviewRagas", sReviewTechnicalData, sBindReviewRagasEvents},
    {kFormScaleShifting, "ScaleShifting", sShiftScale, sBindScaleShiftingEvents},
    {kFormRagaSelection1, "RagaSelection1", sSelectRaga, sBindRagaSelection1Events},
    {kFormWorkshop, "Workshop", sWorkshop, sBindWorkshopEvents},
    {kFormPlayComposition1, "PlayComposition1", sPlayCompositions, sBindPlayComposition1Events},
    {kFormRagaInfoSummary, "RagaInfoSummary", sReviewTechnicalData, sBindRagaInfoSummaryEvents},
    {kFormQuiz, "Quiz", sTakeQuiz, sBindQuizEvents},
    {kFormNVSampler, "NVSampler", sNVSampler, sBindNVSamplerEvents},
    {kFormComposer, "Composer", sComposer, sBindComposerEvents},
    {kFormMainOperations, "MainOperations", sMainOperations, sBindMainOperationsEvents},
};

}  // namespace

bool sRegisterProgramScreens() {
  try {
    for (const ScreenEntry& entry : kProgramScreens) {
      sRegisterScreen(entry);
      platform::windowSystem().screen(entry.name);  // reads the definition now
    }
    // The main window and the opening screen take their handlers now: the
    // main window's Load event is the start of everything.
    sBindNadavikEvents(platform::windowSystem().screen("Nadavik"));
    sBindOpeningScreenEvents(platform::windowSystem().screen("OpeningScreen"));
  } catch (const platform::ProgramError& e) {
    sShowMessage(std::string("Nadavik cannot start. ") + e.what() +
                 ". Please reinstall Nadavik.");
    return false;
  }
  return true;
}
