// Validation and saving of the composer's work (see composer_save.h).
#include "composer/composer_save.h"

#include <cmath>
#include <vector>

#include "composer/composer_store.h"
#include "composer/row_images.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/lookups.h"
#include "store/positioning.h"
#include "store/queries.h"
#include "store/query_open.h"
#include "store/tala_beats.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

namespace {

constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kFalse = 0;
constexpr std::int16_t kUserStore = 2;
constexpr std::int16_t kNotes = 1;
constexpr std::int16_t kDurations = 2;
constexpr std::int16_t kLayakari = 2;
constexpr std::int16_t kTaan = 3;
constexpr std::int16_t kNewComposition = 4;
constexpr std::int16_t kMinBeatDuration = 10;   // hundredths of a second
constexpr std::int16_t kMaxBeatDuration = 500;

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }
std::string text(const char* name) { return ctl(name).text(); }

// A field's value by the leading-number rule, rounded to 16 bits.
std::int16_t fFieldValue(const char* name) { return fRoundToInt16(fNumericValue(text(name))); }

// A field holds a whole number from low to high (nothing after it).
bool fIsWholeNumberIn(const char* name, int low, int high) {
  const std::string value = fRmvTrailBlk(fRmvLeadBlk(text(name)));
  if (value.empty() || value.size() > 6 || value.find_first_not_of("0123456789") != std::string::npos) return false;
  const int number = std::stoi(value);
  return number >= low && number <= high;
}

// The text without blanks, line breaks and tabs.
std::string fWithoutWhiteSpace(std::string s) {
  std::erase_if(s, [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; });
  return s;
}

platform::Database& userStore() {
  if (!gDbB) sRaiseError(91, "Object variable or With block variable not set");
  return *gDbB;
}

// The phrases of the category in the user's record, each phrase's words
// (notes or durations, sub-phrase marks dropped), phrases apart by ",".
std::string fUserPhrasesWithCommas(std::int16_t category, std::int16_t which) {
  std::vector<std::string> phrases;
  for (std::int16_t p = 1; p <= fGetFromT_SegmentCount(kUserStore, category); ++p)
    phrases.push_back(fGetFromT_AnALTPhraseUnSeg(kUserStore, category, which, p));
  return fJoinWords(phrases, " , ");
}

std::int16_t fRowsFor(std::int16_t words) { return static_cast<std::int16_t>(words / kSlotsPerRow + 1); }

void sCutInto(const std::string& source, std::vector<std::string>& images) {
  images.assign(static_cast<std::size_t>(gRowImageCount), "");
  sCreateRowImagesFromSource(source, images);
}

std::int16_t fWordCount(const std::string& s) { return static_cast<std::int16_t>(fRowWords(s).size()); }

}  // namespace

std::int16_t fCheckBeatDuration() {
  if (fIsWholeNumberIn("cSpeed", kMinBeatDuration, kMaxBeatDuration)) return kTrue;
  sShowMessage("The beat duration must be a whole number of hundredths of a second from " +
               std::to_string(kMinBeatDuration) + " to " + std::to_string(kMaxBeatDuration) + ".");
  return kFalse;
}

std::int16_t fCheckCompData() {
  NV_PROC("fCheckCompData");
  for (const char* field : {"cTaal", "cMukhada", "cStartBeatAst", "cStartBeatAnt", "cSpeed"})
    if (text(field).empty()) return kFalse;
  return kTrue;
}

std::int16_t fCheckCompDataValues() {
  NV_PROC("fCheckCompDataValues");
  const std::int16_t beats = fGetBeatCountForTala(fGetTalaId(text("cTaal")));
  if (!fIsWholeNumberIn("cStartBeatAst", 1, beats) || !fIsWholeNumberIn("cStartBeatAnt", 1, beats)) {
    sShowMessage("The starting beats must be whole numbers from 1 to " + std::to_string(beats) +
                 ", the beats of Taal '" + text("cTaal") + "'.");
    return kFalse;
  }
  if (fCheckBeatDuration() == kFalse) return kFalse;
  if (gCurrAltType == kNewComposition && fFindUserComposition(userStore(), gCurrRagaId, text("cMukhada")) != 0) {
    sShowMessage("You already have a composition named '" + text("cMukhada") + "' for Raga " + gCurrRagaName +
                 ". Please give this one another Mukhada.");
    return kFalse;
  }
  return kTrue;
}

std::int16_t fCheckForComp(std::int16_t context) {
  NV_PROC("fCheckForComp");
  if (gTCompInfo.NotationIndex == 0) return kTrue;
  auto headers = userStore().openRecordset("Raga - Additional Information", platform::RecordsetType::Table);
  sSetTableIndexRecord(*headers, "CompositionId", static_cast<std::int64_t>(gTCompInfo.NotationIndex));
  if (!headers->noMatch()) return kTrue;
  const char* const endings[] = {" switch categoty?", " switch to another Raga?", " exit Composer?"};
  const std::string question = std::string("The composition you were working on has not been saved.") +
                               " Are you sure you want to" + endings[(context >= 1 && context <= 3 ? context : 3) - 1];
  return fAskYesNo(question) == platform::kAnswerYes ? kTrue : kFalse;
}

std::int16_t fVerifyCompPartSyllables() {
  NV_PROC("fVerifyCompPartSyllables");
  std::string syllables;
  for (std::int16_t r = 0; r < gRowImageCount && static_cast<std::size_t>(r) < gSylRowImages.size(); ++r)
    syllables += gSylRowImages[static_cast<std::size_t>(r)];
  syllables = fRmvAllChar(fWithoutWhiteSpace(syllables), "_");
  const std::string words = fWithoutWhiteSpace(text(gCompPart == 1 ? "cAsthai" : "cAntara"));
  return syllables == words ? kTrue : kFalse;
}

std::int16_t fLoadAndDisplayCompositionList() {
  NV_PROC("fLoadAndDisplayCompositionList");
  platform::Control& list = ctl("cRagaList");
  list.clear();
  sPatchSQLStr7(gCurrRagaId, kCompositionInfoType);
  auto rows = fOpenQuery(userStore(), gSQLStr7);
  if (rows)
    for (; !rows->eof(); rows->moveNext()) list.addItem(rows->field("Add Info").asText());
  if (list.listCount() == 0) {
    sShowMessage("No User-defined Compositions available");
    return kFalse;
  }
  ctl("Label1").setCaption("Select Composition");
  ctl("Label1").setVisible(true);
  list.setVisible(true);
  return kTrue;
}

void sSetInitialValuesInCompT() {
  NV_PROC("sSetInitialValuesInCompT");
  sInitializeCompT();
  gTCompInfo.RagaId = gCurrRagaId;
  gTCompInfo.Name = text("cMukhada");
  gTCompInfo.InfoType = kCompositionInfoType;
  gTCompInfo.NotationIndex = fNextUserCompositionIndex(userStore());
  const std::int16_t talaId = fGetTalaId(text("cTaal"));
  for (std::int16_t part : {1, 2}) {
    CompPartRecord& record = gCompInfo[static_cast<std::size_t>(part - 1)];
    record.NotationIndex = gTCompInfo.NotationIndex;
    record.Part = part;
    record.RagaId = gCurrRagaId;
    record.Mukhada = text("cMukhada");
    record.Text = text(part == 1 ? "cAsthai" : "cAntara");
    record.TalaId = talaId;
    record.StartingBeat = fFieldValue(part == 1 ? "cStartBeatAst" : "cStartBeatAnt");
    record.PlayingSpeed = fFieldValue("cSpeed");
  }
}

void sTToALTRowImages(std::int16_t category) {
  NV_PROC("sTToALTRowImages");
  // A raga without a row of this category leaves the record of the raga
  // read before it: that one is not this raga's.
  if (gTUserAlt[static_cast<std::size_t>(category - 1)].RagaId != gCurrRagaId)
    gTUserAlt[static_cast<std::size_t>(category - 1)] = TAltRecord{};
  const std::string notes = fUserPhrasesWithCommas(category, kNotes);
  gSlotsUsed = fWordCount(notes);
  gRowImageCount = fRowsFor(gSlotsUsed);
  sCutInto(notes, gNotesRowImages);
  gDurRowImages.assign(static_cast<std::size_t>(gRowImageCount), "");
  if (category == kTaan) return;
  std::string durations = fUserPhrasesWithCommas(category, kDurations);
  if (!durations.empty() && category == kLayakari) {
    std::int16_t speed = 0;
    durations = fConvertDurationToBeats(durations, speed);
    ctl("cSpeed").setText(std::to_string(speed));
  }
  gSlotsUsed = std::max(gSlotsUsed, fWordCount(durations));
  gRowImageCount = fRowsFor(gSlotsUsed);
  gNotesRowImages.resize(static_cast<std::size_t>(gRowImageCount));
  sCutInto(durations, gDurRowImages);
}

std::string fCreateCombinedSylDurPhrase() {
  NV_PROC("fCreateCombinedSylDurPhrase");
  std::string combined;
  if (!fCombineSylDurations(gSylRowImages, gDurRowImages, gRowImageCount, combined)) {
    sShowMessage("Syllable and Duration string element counts don't match");
    return "";
  }
  return combined;
}

std::int16_t fUpdateCompTFromRowImages() {
  NV_PROC("fUpdateCompTFromRowImages");
  CompPartRecord& part = gCompInfo[gCompPart == 2 ? 1 : 0];
  if (fVerifyCompPartSyllables() == kFalse) {
    platform::windowSystem().messageBox("Discrepancies found in syllables. Check and correct",
                                        platform::kMsgInformation, "Messaage");
    return kFalse;
  }
  part.NotesDuration = fCombineRowImages(gDurRowImages, gRowImageCount);
  if (part.NotesDuration.empty()) {
    sShowMessage("No Duration Specified");
    return kFalse;
  }
  part.Notation = fCombineRowImages(gNotesRowImages, gRowImageCount);
  if (part.Notation.empty()) {
    sShowMessage("No Notes Specified");
    return kFalse;
  }
  const std::int16_t notes = fWordCount(part.Notation);
  const std::int16_t durations = fWordCount(part.NotesDuration);
  if (notes != durations) {
    sShowMessage(notes <= durations ? "You cannot supply duration without note"
                                    : "You must supply duration for every note");
    return kFalse;
  }
  part.Syllables = fCombineRowImages(gSylRowImages, gRowImageCount);
  const std::string syllableDurations = fCreateCombinedSylDurPhrase();
  if (syllableDurations.empty()) return kFalse;
  part.SyllableDuration = syllableDurations;
  part.Text = text(gCompPart == 2 ? "cAntara" : "cAsthai");
  part.StartingBeat = fFieldValue(gCompPart == 2 ? "cStartBeatAnt" : "cStartBeatAst");
  part.PlayingSpeed = fFieldValue("cSpeed");
  return kTrue;
}

std::int16_t fUpdateALTTFromRowImages() {
  NV_PROC("fUpdateALTTFromRowImages");
  const std::string notes = fCombineRowImages(gNotesRowImages, gRowImageCount);
  if (notes.empty()) {
    sShowMessage("No notation defined");
    return kFalse;
  }
  std::string durations;
  if (gCurrAltType != kTaan) {
    durations = fCombineRowImages(gDurRowImages, gRowImageCount);
    if (gCurrAltType == kLayakari && fCheckBeatDuration() == kFalse) return kFalse;
    if (gCurrAltType == kLayakari) durations = fConvertBeatsToDuration(durations, fFieldValue("cSpeed"));
    const std::int16_t noteCount = fWordCount(notes);
    const std::int16_t durationCount = fWordCount(durations);
    if (noteCount != durationCount) {
      sShowMessage(noteCount >= durationCount
                       ? "Durations must be specified for every specified note. Please correct."
                       : "Durations cannot be specified for undefined notes. Please correct.");
      return kFalse;
    }
  }
  sLoadRagaALTInfoIntoT(gTUserAlt[static_cast<std::size_t>(gCurrAltType - 1)], gCurrAltType, gCurrRagaId,
                        notes, durations);
  return kTrue;
}

std::string fCreateALTDBStrFromT(std::int16_t category, std::int16_t kind) {
  NV_PROC("fCreateALTDBStrFromT");
  const TAltRecord& record = gTUserAlt[static_cast<std::size_t>(category - 1)];
  const std::vector<std::string>& segments = kind == kNotes ? record.SegmentNotes : record.SegmentDurations;
  std::string result;
  for (std::int16_t p = 0; p < record.PhraseCount; ++p) {
    if (p > 0) result += " ,";
    const auto first = static_cast<std::size_t>(record.PhraseFirstSegment[static_cast<std::size_t>(p)] - 1);
    const auto count = static_cast<std::size_t>(record.PhraseSegments[static_cast<std::size_t>(p)]);
    for (std::size_t s = first; s < first + count && s < segments.size(); ++s) {
      if (s > first) result += kind == kNotes ? " :" : " ";
      result += " " + segments[s];
    }
  }
  return result;
}

void sSaveMusicToDatabase() {
  NV_PROC("sSaveMusicToDatabase");
  if (gCurrAltType >= 1 && gCurrAltType <= 3) sSaveALTFromTToDB();
  if (gCurrAltType == 4 || gCurrAltType == 5) sSaveCompDataFromTToDB();
}

void sSaveCompDataFromTToDB() {
  NV_PROC("sSaveCompDataFromTToDB");
  // A part the store lacked comes back with index 0: both are written
  // under the composition's own index.
  for (std::int16_t part : {1, 2}) {
    CompPartRecord& record = gCompInfo[static_cast<std::size_t>(part - 1)];
    record.NotationIndex = gTCompInfo.NotationIndex;
    record.Part = part;
    record.RagaId = gTCompInfo.RagaId;
    record.Text = text(part == 1 ? "cAsthai" : "cAntara");
  }
  sWriteCompositionToStore(userStore(), gTCompInfo, gCompInfo);
}

void sSaveALTFromTToDB() {
  NV_PROC("sSaveALTFromTToDB");
  sWriteALTToStore(userStore(), gCurrRagaId, gCurrAltType, fCreateALTDBStrFromT(gCurrAltType, kNotes),
                   fCreateALTDBStrFromT(gCurrAltType, kDurations));
}
