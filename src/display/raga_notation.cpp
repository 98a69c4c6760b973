// The raga's notation boxes (vadi, samvadi, aroha, avroha, pakad), filled
// from the library store in the current script.
#include "display/notation_display.h"

#include <array>

#include "core/errors.h"
#include "core/session.h"
#include "display/fonts.h"
#include "notation/phrase_forms.h"
#include "platform/screen.h"
#include "platform/store.h"

namespace {

struct NotationBox {
  const char* control;
  const char* field;
};

constexpr std::array<NotationBox, 5> kRagaBoxes = {{
    {"cVadi", "Vadi"},
    {"cSamvadi", "Samvadi"},
    {"cAroha", "AarohaAlt"},
    {"cAvroha", "AvrohaAlt"},
    {"cPakad", "Pakad"},
}};

}  // namespace

void sAdjustNotation() {
  NV_PROC("sAdjustNotation");
  if (!gDbA || gCurrForm == nullptr) return;
  auto raga = gDbA->openRecordset("Raga - Technical Information", platform::RecordsetType::Table);
  raga->setIndex("PrimaryKey");
  raga->seek("=", {platform::Value(static_cast<int>(gCurrRagaId))});
  if (!raga->noMatch()) {
    for (const NotationBox& box : kRagaBoxes) {
      platform::Control& control = gCurrForm->control(box.control);
      sAdjustFont(control);
      std::string phrase = raga->field(box.field).asText();
      if (std::string(box.field) == "Pakad") phrase = fRemoveColons(phrase);
      sLoadNotation(control, phrase);
    }
  }
  raga->close();
}
