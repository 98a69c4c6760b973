// The current raga's basic data on the current screen, and its scale or
// pakad in generation form. No state of its own.
#include "display/raga_display.h"

#include <array>
#include <memory>

#include "core/errors.h"
#include "core/session.h"
#include "display/fonts.h"
#include "display/notation_display.h"
#include "notation/generation.h"
#include "notation/phrase_forms.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/positioning.h"
#include "store/working_record.h"

namespace {

constexpr std::int16_t kScaleKind = 6;
constexpr std::int16_t kPakadKind = 7;

// The five notation boxes, in the order their texts are passed.
constexpr std::array<const char*, 5> kBasicBoxes = {"cAroha", "cAvroha", "cPakad", "cVadi",
                                                    "cSamvadi"};

struct BasicTexts {
  std::string aroha, avroha, pakad, vadi, samvadi;
};

// The row of gCurrRagaId in "Raga - Technical Information" of gDbA, or
// nullptr when it (or the store) is missing.
std::unique_ptr<platform::Recordset> currRagaRow() {
  if (!gDbA) return nullptr;
  auto raga = gDbA->openRecordset("Raga - Technical Information", platform::RecordsetType::Table);
  sSetTablePKRecord(*raga, static_cast<int>(gCurrRagaId));
  if (raga->noMatch()) return nullptr;
  return raga;
}

void showBasicData(const BasicTexts& texts) {
  if (gCurrForm == nullptr) return;
  platform::Screen& form = *gCurrForm;
  form.control("cRaga").setText(gCurrRagaName);
  const std::array<const std::string*, 5> phrases = {&texts.aroha, &texts.avroha, &texts.pakad,
                                                     &texts.vadi, &texts.samvadi};
  for (std::size_t i = 0; i < kBasicBoxes.size(); ++i) {
    platform::Control& box = form.control(kBasicBoxes[i]);
    sAdjustFont(box);
    sLoadNotation(box, *phrases[i]);
  }
  form.control("cRaga").setVisible(true);
  for (const char* box : kBasicBoxes) form.control(box).setVisible(true);
  for (int label = 2; label <= 7; ++label) {
    form.control("Label" + std::to_string(label)).setVisible(true);
  }
  form.control("cLine1").setVisible(true);
}

}  // namespace

void sDisplayFromT_RagaBasicData() {
  NV_PROC("sDisplayFromT_RagaBasicData");
  showBasicData({fGetFromT_ArohaPhrase(1), fGetFromT_AvrohaPhrase(1),
                 fGetFromT_PakadPhraseUnSeg(1), gTRaga.Vadi, gTRaga.Samvadi});
}

void sDisplayRagaBasicData() {
  NV_PROC("sDisplayRagaBasicData");
  BasicTexts texts;
  if (auto raga = currRagaRow()) {
    texts = {raga->field("AarohaAlt").asText(), raga->field("AvrohaAlt").asText(),
             fRemoveColons(raga->field("Pakad").asText()), raga->field("Vadi").asText(),
             raga->field("Samvadi").asText()};
    raga->close();
  }
  showBasicData(texts);
}

void sCreateRagaPhraseData(std::int16_t phraseKind, std::string& notesOut,
                           std::string& durationsOut) {
  NV_PROC("sCreateRagaPhraseData");
  notesOut.clear();
  durationsOut.clear();
  auto raga = currRagaRow();
  if (!raga || (phraseKind != kScaleKind && phraseKind != kPakadKind)) return;
  std::string notes;
  std::string durations;
  if (phraseKind == kScaleKind) {
    notes = raga->field("AarohaAlt").asText() + " " + raga->field("AvrohaAlt").asText();
    durations = raga->field("AaDuration").asText() + " " + raga->field("AvDuration").asText();
  } else {
    notes = raga->field("Pakad").asText();
    durations = raga->field("PakadDuration").asText();
  }
  raga->close();
  notesOut = fConvertNotePhraseToMusicGenerationFormat(fRemoveColons(notes));
  durationsOut = fConvertDurPhraseToMusicGenerationFormat(fRemoveColons(durations));
}
