// Checking a typed stretch (see stretch.h).
#include "player/stretch.h"

#include <cmath>

#include "notation/text_utils.h"

namespace {

const char* const kOutside = " Point is outside the Composition. Please Reset.";

// The field's leading number; NaN when it is not a whole number, so that
// every comparison with it fails and it counts as outside.
double fWholeField(const std::string& text) {
  const double value = fNumericValue(text);
  return value == std::floor(value) ? value : std::nan("");
}

bool fWithin(double value, double low, double high) { return value >= low && value <= high; }

}  // namespace

int fPartLastRow(const PartExtent& part) {
  if (part.beats <= 0) return 0;
  return (part.matras + part.firstBeat - 2) / part.beats + 1;
}

int fPartLastBeat(const PartExtent& part) {
  if (part.beats <= 0) return 0;
  return (part.matras + part.firstBeat - 2) % part.beats + 1;
}

StretchCheck fCheckStretch(const StretchFields& fields, const PartExtent& part) {
  StretchCheck check;
  if (fields.fromRow.empty() || fields.fromBeat.empty() || fields.toBeat.empty()) {
    check.message = "Specify Starting and Ending Rows and Beats";
    return check;
  }
  const double fromRow = fWholeField(fields.fromRow), fromBeat = fWholeField(fields.fromBeat);
  const double toRow = fWholeField(fields.toRow), toBeat = fWholeField(fields.toBeat);
  const int lastRow = fPartLastRow(part), lastBeat = fPartLastBeat(part);
  const bool startInside = fWithin(fromRow, 1, lastRow) && fWithin(fromBeat, 1, part.beats) &&
                           !(fromRow == 1 && fromBeat < part.firstBeat) &&
                           !(fromRow == lastRow && fromBeat > lastBeat);
  if (!startInside) {
    check.message = std::string("Starting") + kOutside;
    return check;
  }
  const bool endInside = fWithin(toRow, 1, lastRow) && fWithin(toBeat, 1, part.beats) &&
                         !(toRow == lastRow && toBeat > lastBeat);
  if (!endInside) {
    check.message = std::string("Ending") + kOutside;
    return check;
  }
  if (toRow < fromRow || (toRow == fromRow && fromBeat > toBeat)) {
    check.message = "Starting Point Beyond Ending Point. Please Reset.";
    return check;
  }
  check.firstSlot = static_cast<int>(fromRow - 1) * part.beats + static_cast<int>(fromBeat);
  check.lastSlot = static_cast<int>(toRow - 1) * part.beats + static_cast<int>(toBeat);
  return check;
}
