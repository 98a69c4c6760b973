// Run-time faults and the common error trap.
//
// Every procedure of substance names itself and traces its entry and exit
// (NV_PROC below). A run-time fault is raised with sRaiseError:
//  - a forgiven fault (6 overflow, 11 division by zero, 3075 query
//    expression) goes through fIgnorable, which logs it to "ignoerr.txt",
//    and sRaiseError returns: the caller skips the failing statement's effect
//    and goes on with the next one, as the trap's "resume next" would;
//  - any other fault throws ErrorTrap. It unwinds to the event boundary (one
//    catch around every event handler, installed at start-up), which calls
//    fIgnorable (3633 has its own message there) and sProgramErrorExit.
// Store and screen faults (platform::StoreError, platform::ProgramError) are
// mapped into the same classes at the boundary, or by the store helpers
// where a forgiven class must resume.
#pragma once

#include <stdexcept>
#include <string>

struct ErrorTrap : std::runtime_error {
  ErrorTrap(long errorNumber, const std::string& description, const std::string& errorSource)
      : std::runtime_error(description), number(errorNumber), source(errorSource) {}
  long number;
  std::string source;
};

// Error numbers the logic raises itself.
constexpr long kErrOverflow = 6;
constexpr long kErrSubscriptOutOfRange = 9;
constexpr long kErrDivisionByZero = 11;
constexpr long kErrTypeMismatch = 13;
constexpr long kErrQueryExpression = 3075;
constexpr long kErrEngineComponent = 3633;

// Raises run-time error `number`; returns only when the error is forgiven.
void sRaiseError(long number, const std::string& description,
                 const std::string& source = "Nadavik");

// Entry and exit of a procedure: sets gCurrProcName, sTrace(1) now and
// sTrace(2) when the scope ends normally. A scope left by a fatal fault skips
// sTrace(2), so the trace level drifts upward as the trap's own jump did.
class ProcScope {
 public:
  explicit ProcScope(const char* name);
  ~ProcScope();
  ProcScope(const ProcScope&) = delete;
  ProcScope& operator=(const ProcScope&) = delete;

 private:
  int uncaught_;
};

#define NV_PROC(name) ProcScope nvProcScope_(name)
