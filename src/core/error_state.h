// The error now being handled, as the trap's reports read it, and the event
// boundary that turns a fault escaping a handler into the trap's actions.
#pragma once

#include <functional>
#include <string>

struct PendingError {
  long number = 0;
  std::string description;
  std::string source;
  long lastDllError = 0;
  std::string file;  // the file the fault concerns, when known
};

const PendingError& fPendingError();
void sSetPendingError(long number, const std::string& description, const std::string& source,
                      const std::string& file = "");

// Runs an event handler; a fault that escapes it goes to fIgnorable and, when
// not forgiven, to sProgramErrorExit.
void sRunTrapped(const std::function<void()>& handler);

// Numbers given to faults that do not carry one of their own.
constexpr long kErrProgram = 5;        // invalid use of a screen or control
constexpr long kErrInternal = 51;      // any other unexpected failure
