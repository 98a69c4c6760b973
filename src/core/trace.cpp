// The trace file, the error trap's reports and the orderly halt.
//
// "errtrace.txt" receives the trace lines and the report of a fatal error;
// "ignoerr.txt" the report of each forgiven error. Both are opened and
// closed for each write, so that a crash loses nothing.
#include "core/trace.h"

#include <ctime>
#include <filesystem>
#include <fstream>

#include "core/error_state.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "platform/screen.h"
#include "platform/store.h"

namespace {

constexpr std::uintmax_t kTraceLimitBytes = 2000000;
const char* const kSupportEmail = "support@nadavik.org";

PendingError gPending;

std::string formatNow(const char* format) {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char buffer[96];
  std::strftime(buffer, sizeof buffer, format, &local);
  return buffer;
}

bool isForgiven(long number) {
  return number == kErrOverflow || number == kErrDivisionByZero || number == kErrQueryExpression;
}

// The detailed text of the fatal error's box: the cause, the file it
// concerns when known, and where the report was written.
std::string fFatalErrorDetail() {
  std::string detail = "Error " + std::to_string(gErrNumber) + ": " + gErrDescription + "\n";
  if (!gPending.file.empty()) detail += "File: " + gPending.file + "\n";
  detail += "Report: " + gErrTraceFile;
  return detail;
}

void writeErrorLines(std::ofstream& out) {
  out << fDateTimeLine() << "\n";
  out << "Called form '" << gCurrProcName << "'\n";
  out << gErrDescription << "\n" << gErrNumber << "\n" << gErrSource << "\n" << gErrLastDll << "\n";
}

}  // namespace

void sTraceLine(const std::string& line) {
  if (gErrTraceFile.empty()) return;
  std::ofstream(gErrTraceFile, std::ios::app) << line << "\n";
}

std::string fDateTimeLine() {
  // The long date, then blanks to the next 14-character print zone, then
  // the long time.
  std::string line = formatNow("%A, %B %d, %Y");
  do line += ' ';
  while (line.size() % 14 != 0);
  return line + formatNow("%I:%M:%S %p");
}

const PendingError& fPendingError() { return gPending; }

void sSetPendingError(long number, const std::string& description, const std::string& source,
                      const std::string& file) {
  gPending = {number, description, source, 0, file};
}

void sTrace(std::int16_t mode) {
  if (gTraceEnabled == 0 || gTraceOn == 0) return;
  std::error_code ec;
  auto size = std::filesystem::file_size(gErrTraceFile, ec);
  std::ofstream out(gErrTraceFile, std::ios::app);
  if (!ec && size > kTraceLimitBytes) {
    sShowMessage(std::string("Nadavik seems to be caught in a loop. Please invoke the Task Manager "
                             "by pressing Ctrl-Alt-Del and terminate the Task in Task List. Email "
                             "the file ErrTrace.txt in the Nadavik program folder to Zenvo at ") +
                 kSupportEmail + " for debugging the problem. Thank you.");
    platform::windowSystem().endProcess(1);
  }
  if (mode == 1) {
    ++gTraceLevel;
    gTraceIndent += "    ";
    out << gTraceIndent << "Entering " << gCurrProcName << "(" << gTraceLevel << ")\n";
  } else if (mode == 2) {
    out << gTraceIndent << "Exiting" << "(" << gTraceLevel << ")\n";
    if (gTraceIndent.size() >= 4) {
      gTraceIndent.resize(gTraceIndent.size() - 4);
      --gTraceLevel;
    }
  }
}

void sFillErrorParam() {
  gCurrProcName = "sFillErrorParam";
  sTrace(1);
  gErrDescription = gPending.description;
  gErrNumber = static_cast<std::int32_t>(gPending.number);
  gErrSource = gPending.source;
  gErrLastDll = static_cast<std::int32_t>(gPending.lastDllError);
  sTrace(2);
}

std::int16_t fIgnorable() {
  gCurrProcName = "fIgnorable";
  sTrace(1);
  sFillErrorParam();
  std::int16_t answer = 0;
  if (isForgiven(gErrNumber)) {
    answer = -1;
    ++gIgnorableCount;
    // The forgiven errors are kept beside the trace file, in the state folder.
    const auto folder = std::filesystem::path(gErrTraceFile).parent_path();
    std::ofstream out(folder / "ignoerr.txt", std::ios::app);
    out << "\n" << "Ignorable Error No. " << gIgnorableCount << "\n";
    writeErrorLines(out);
  } else if (gErrNumber == kErrEngineComponent) {
    sShowMessage(std::string("you have encountered a program error that requires you to carry out "
                             "another preparatory step. Please contact Zenvo Inc.") +
                 " at " + kSupportEmail + ". You will be supplied with the necessary information.");
    sHaltProgramExecution();
  }
  sTrace(2);
  return answer;
}

void sProgramErrorExit() {
  {
    std::ofstream out(gErrTraceFile, std::ios::app);
    out << "\n";
    if (gErrorTrapCount > 5) {
      out << "Error trap loop encountered. Stopping program.\n";
      out.close();
      platform::windowSystem().endProcess(1);
    }
    writeErrorLines(out);
  }
  // The box keeps its required wording, which names sFillErrorParam and
  // asks to try again even when the cause is lasting (a damaged or
  // unwritable store); what went wrong and where is in its detailed text.
  // One correction: the file is named by its whole path, since it lives in
  // the user's state folder (~/.local/state/nadavik), not beside the program.
  sShowMessageWithDetail(
      "A program error has occured in procedure '" + gCurrProcName +
          "'. Program execution will be halted, and error trace will be appended to file '" +
          gErrTraceFile + "'. Please e-mail that file to " +
          kSupportEmail + " and try running Nadavik again.",
      fFatalErrorDetail());
  ++gErrorTrapCount;
  sHaltProgramExecution();
}

namespace {
HaltProcedure gHaltProcedure = nullptr;
int gExitStatus = 0;
}  // namespace

int fExitStatus() { return gExitStatus; }

void sSetExitStatus(int status) { gExitStatus = status; }

void sSetHaltProcedure(HaltProcedure procedure) { gHaltProcedure = procedure; }

void sHaltProgramExecution() {
  if (gHaltProcedure != nullptr) {
    gHaltProcedure();
  } else {
    std::error_code ec;
    if (!gCurrMusicFile.empty()) std::filesystem::remove(gCurrMusicFile, ec);
  }
  // The run's own temporary folder goes with the greeting drone and every
  // other wave file in it (a second copy, refused before it has one, has
  // nothing to remove).
  std::error_code ec;
  if (!gTempPath.empty()) std::filesystem::remove_all(gTempPath, ec);
  gExitStatus = 1;
  // The screens' unload handlers have had the stores; the program ends now.
  sCloseStores();
}

void sRunTrapped(const std::function<void()>& handler) {
  long number = 0;
  std::string description, source, file;
  try {
    handler();
    return;
  } catch (const ErrorTrap& e) {
    number = e.number;
    description = e.what();
    source = e.source;
  } catch (const platform::StoreError& e) {
    number = e.number;
    description = e.what();
    source = "DAO.Database";
    file = e.file;
  } catch (const platform::ProgramError& e) {
    number = kErrProgram;
    description = e.what();
    source = "Nadavik";
  } catch (const std::exception& e) {
    number = kErrInternal;
    description = e.what();
    source = "Nadavik";
  }
  sSetPendingError(number, description, source, file);
  if (fIgnorable() == 0 && number != kErrEngineComponent) sProgramErrorExit();
}
