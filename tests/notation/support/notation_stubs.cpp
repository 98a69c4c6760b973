// Error trap and the session variables the notation library reads, for its
// tests, fuzz target and benchmarks. The program itself gets these from the
// control library.
#include "support/notation_stubs.h"

#include <array>
#include <memory>
#include <string>

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"

std::int16_t gNotationScript = 2;
std::int16_t gGraceNotes = 2;
std::int16_t gCurrTonicNoteId = 3;
std::int16_t gCurrRagaId = 0;
platform::Screen* gCurrForm = nullptr;
std::unique_ptr<platform::Database> gDbA;
std::array<double, 19> gSpeedFactors = {0,   5.0, 3.33, 2.5, 2.0,  1.67, 1.43, 1.25, 1.11, 1.0,
                                        0.8, 0.67, 0.57, 0.5, 0.44, 0.4, 0.36, 0.33, 0};

std::vector<long>& forgivenErrors() {
  static std::vector<long> errors;
  return errors;
}

void sRaiseError(long number, const std::string& description, const std::string& source) {
  if (number == kErrOverflow || number == kErrDivisionByZero || number == kErrQueryExpression) {
    forgivenErrors().push_back(number);
    return;
  }
  throw ErrorTrap(number, description, source);
}

ProcScope::ProcScope(const char*) : uncaught_(0) {}
ProcScope::~ProcScope() = default;
