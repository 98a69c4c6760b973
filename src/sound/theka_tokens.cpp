// Theka tokens of a composition part (see theka_tokens.h).
#include "sound/theka_tokens.h"

#include <cmath>
#include <cstdio>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "platform/store.h"
#include "sound/music_buffers.h"
#include "store/positioning.h"
#include "store/working_record_comp.h"

namespace {

// A fraction of a beat as single precision writes it: up to 7 significant
// digits, no trailing zeros ("0.5", "0.75").
std::string fFormatBeatFraction(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.7g", static_cast<double>(value));
  return text;
}


// The stroke token of a note at beat position p lasting d beats, in a cycle
// of `beats` beats (0: no wrapping).
//
// The token names the beat on which its first stroke sounds. A note that
// starts on a beat (x = 0) has its first stroke there, on beat i + 1; a note
// that starts inside beat i + 1 has its first stroke 1 - x beats in, on the
// next beat, i + 2 (after the last beat of the cycle, beat 1). Naming the
// beat the note started in instead, as tokens once did, played the earlier
// beat's bol on that later beat: durations "0.5 1.5" sounded bol 1 on beats
// 1 and 2 and never bol 2. So this deliberately differs from that older rule,
// which gave every token the beat i + 1; the stroke counts and offsets are
// as they were.
std::string fStrokeToken(float p, float d, std::int16_t beats) {
  const float whole = std::floor(p);
  const float x = p - whole;
  const float k = std::floor(d);
  const float y = d - k;
  int firstBeat = static_cast<int>(whole) + (x == 0.0f ? 1 : 2);
  if (beats > 0 && firstBeat > beats) firstBeat -= beats;
  const std::string beat = std::to_string(firstBeat);
  if (d >= 1.0f) {
    int count = static_cast<int>(k);
    if ((x == 0.0f && y > 0.0f) || (x != 0.0f && x + y > 1.0f)) ++count;
    return std::to_string(count) + "/" + beat + "/" +
           (x == 0.0f ? std::string("0") : fFormatBeatFraction(1.0f - x));
  }
  if (x == 0.0f) return "1/" + beat + "/0";
  if (x + d <= 1.0f) return std::string("0");
  return "1/" + beat + "/" + fFormatBeatFraction(1.0f - x);
}

}  // namespace

std::string fGetTalaStringForNote(float& position, float duration, std::int16_t beats) {
  std::string token = fStrokeToken(position, duration, beats);
  position += duration;
  if (beats > 0 && position >= beats) position -= beats;
  return token;
}

std::string fGetThekaStringForTalaString(const std::string& talaString, std::int16_t talaId,
                                         std::int16_t thekaType, platform::Recordset& recordset,
                                         std::int16_t beats) {
  NV_PROC("fGetThekaStringForTalaString");
  if (talaString == "0") return "0";
  const std::vector<std::string> parts = fSplitWords(talaString, "/");
  if (parts.size() != 3) return "0";
  const std::int32_t count = ZenvoVal(parts[0]);
  const std::int32_t firstBeat = ZenvoVal(parts[1]);
  std::string theka = parts[0] + "/";
  for (std::int32_t j = 0; j < count; ++j) {
    std::int32_t q = firstBeat + j;
    if (q > beats) q -= beats;
    sSetTablePKRecord3(recordset, talaId, thekaType, q);
    theka += (recordset.noMatch() ? std::string("0")
                                  : recordset.field("Theka Bol Id").asText()) +
             "/";
  }
  return theka + parts[2];
}

std::string fCreateThekaTokens(const std::string& matraDurations, std::int16_t talaId,
                               std::int16_t startingBeat, std::int16_t thekaType,
                               std::int16_t beats) {
  NV_PROC("fCreateThekaTokens");
  auto recordset =
      gDbA->openRecordset("ThekaTypeBolsForTaal", platform::RecordsetType::Table);
  float position = static_cast<float>(startingBeat - 1);
  std::vector<std::string> tokens;
  for (const std::string& word : fSplitWords(matraDurations, " ")) {
    const std::string strokes =
        fGetTalaStringForNote(position, static_cast<float>(fNumericValue(word)), beats);
    tokens.push_back(fGetThekaStringForTalaString(strokes, talaId, thekaType, *recordset, beats));
  }
  recordset->close();
  return fJoinWords(tokens, " ");
}

std::string fCreateTalaStringForCompFromT(std::int16_t part, std::int16_t thekaType) {
  NV_PROC("fCreateTalaStringForCompFromT");
  if (part < 1 || part > 2) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fCreateTalaStringForCompFromT");
    return "";
  }
  const CompPartRecord& p = gCompInfo[static_cast<std::size_t>(part - 1)];
  return fCreateThekaTokens(p.NotesDuration, p.TalaId, p.StartingBeat, thekaType, gFormBeatCount);
}
