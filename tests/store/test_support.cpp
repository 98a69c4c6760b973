// Stand-ins for the program's control layer in the store tests: the error
// trap (fatal numbers throw ErrorTrap, forgiven ones are counted and
// return), a silent ProcScope, the session state the store reads, and the
// drone's sAdjustDroneType, which only counts its calls.
#include "tests/store/test_support.h"

#include <memory>

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"

std::unique_ptr<platform::Database> gDbA;
std::unique_ptr<platform::Database> gDbB;
std::int16_t gCurrDbSelector = 0;
std::int16_t gSortingMode = 0;
std::int16_t gCurrRagaId = 0;
std::int16_t gCurrFormId = 0;
std::int16_t gFirstReed = 0;
std::int16_t gLastReed = 0;
std::int16_t gCompListMode = 0;

int gTestDroneAdjustments = 0;

long gTestForgivenCount = 0;
long gTestLastForgiven = 0;

void sRaiseError(long number, const std::string& description, const std::string& source) {
  if (number == kErrOverflow || number == kErrDivisionByZero || number == kErrQueryExpression) {
    ++gTestForgivenCount;
    gTestLastForgiven = number;
    return;
  }
  throw ErrorTrap(number, description, source);
}

void sAdjustDroneType(platform::Recordset&) { ++gTestDroneAdjustments; }

ProcScope::ProcScope(const char*) : uncaught_(0) {}
ProcScope::~ProcScope() = default;
