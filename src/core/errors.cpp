// Raising run-time faults and the procedure scope (see errors.h).
#include "core/errors.h"

#include <exception>

#include "core/error_state.h"
#include "core/session.h"
#include "core/trace.h"

void sRaiseError(long number, const std::string& description, const std::string& source) {
  sSetPendingError(number, description, source);
  if (number == kErrOverflow || number == kErrDivisionByZero || number == kErrQueryExpression) {
    fIgnorable();
    return;
  }
  throw ErrorTrap(number, description, source);
}

ProcScope::ProcScope(const char* name) : uncaught_(std::uncaught_exceptions()) {
  gCurrProcName = name;
  sTrace(1);
}

ProcScope::~ProcScope() {
  if (std::uncaught_exceptions() == uncaught_) sTrace(2);
}
