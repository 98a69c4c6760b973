// Row images of the composer (see row_images.h).
#include "composer/row_images.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "notation/text_utils.h"

std::vector<std::string> gNotesRowImages;
std::vector<std::string> gDurRowImages;
std::vector<std::string> gSylRowImages;
std::int16_t gRowImageCount = 0;
std::int16_t gFirstDisplayRow = 1;
std::int16_t gSlotsUsed = 0;
std::int16_t gCurrNotationSlot = 0;

namespace {

constexpr std::int16_t kMaxSpeed = 10000;

std::string fJoined(const std::vector<std::string>& words) { return fJoinWords(words, " "); }

// A sum of beats rounded to three decimals, as a 32-bit float: thirds
// written as 0.33 and 0.67 then add up to whole beats.
float fRoundedSum(float sum) { return static_cast<float>(std::lround(sum * 1000.0f)) / 1000.0f; }

// A 32-bit float in the default number format (seven significant digits).
std::string fFormatSingle(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.7g", static_cast<double>(value));
  return fFormatNumber(std::strtod(text, nullptr));
}

// Every word of rows 0 to count - 1, in order, with `edit` applied to the
// words of row `row` (from 1) before they join the rest; then the whole is
// cut into rows again, and count follows the rows when they grew.
template <class Edit>
void sRewriteRows(std::vector<std::string>& images, std::int16_t& count, std::int16_t row, Edit edit) {
  std::vector<std::string> words;
  for (std::int16_t r = 1; r <= count && static_cast<std::size_t>(r) <= images.size(); ++r) {
    std::vector<std::string> rowWords = fRowWords(images[static_cast<std::size_t>(r - 1)]);
    if (r == row) edit(rowWords);
    words.insert(words.end(), rowWords.begin(), rowWords.end());
  }
  sCreateRowImagesFromSource(fJoined(words), images);
  std::size_t used = images.size();
  while (used > 0 && images[used - 1].empty()) --used;
  count = static_cast<std::int16_t>(std::max<std::size_t>(static_cast<std::size_t>(count), used));
}

}  // namespace

std::vector<std::string> fRowWords(const std::string& text) {
  std::vector<std::string> words;
  std::string word;
  for (char c : text) {
    if (c != ' ') {
      word += c;
    } else if (!word.empty()) {
      words.push_back(word);
      word.clear();
    }
  }
  if (!word.empty()) words.push_back(word);
  return words;
}

void sCreateRowImagesFromSource(const std::string& source, std::vector<std::string>& images) {
  const std::vector<std::string> words = fRowWords(source);
  const std::size_t rows = (words.size() + kSlotsPerRow - 1) / kSlotsPerRow;
  if (images.size() < rows) images.resize(rows);
  for (std::size_t r = 0; r < images.size(); ++r) {
    const std::size_t first = r * kSlotsPerRow;
    const std::size_t last = std::min(words.size(), first + kSlotsPerRow);
    images[r] = first < last ? fJoined({words.begin() + static_cast<std::ptrdiff_t>(first),
                                        words.begin() + static_cast<std::ptrdiff_t>(last)})
                             : std::string();
  }
}

std::string fEliminateUnderscores(const std::string& text) {
  std::vector<std::string> words = fRowWords(text);
  std::erase(words, std::string("_"));
  return fJoined(words);
}

std::string fCombineRowImages(const std::vector<std::string>& images, std::int16_t count) {
  const std::size_t rows = std::min(images.size(), static_cast<std::size_t>(std::max<std::int16_t>(count, 0)));
  return fEliminateUnderscores(fJoined({images.begin(), images.begin() + static_cast<std::ptrdiff_t>(rows)}));
}

void sInsertBlankSlotInRowImages(std::vector<std::string>& images, std::int16_t& count,
                                 std::int16_t row, std::int16_t position) {
  sRewriteRows(images, count, row, [position](std::vector<std::string>& words) {
    const std::size_t at = std::min(words.size(), static_cast<std::size_t>(std::max<std::int16_t>(position, 1) - 1));
    words.insert(words.begin() + static_cast<std::ptrdiff_t>(at), "_");
  });
}

void sDeleteSlotInRowImages(std::vector<std::string>& images, std::int16_t& count,
                            std::int16_t row, std::int16_t position) {
  sRewriteRows(images, count, row, [position](std::vector<std::string>& words) {
    if (position >= 1 && static_cast<std::size_t>(position) <= words.size())
      words.erase(words.begin() + (position - 1));
  });
}

std::string fCreateExpandedSylString(const std::string& syllables, const std::string& sylDurations,
                                     const std::string& noteDurations) {
  const std::vector<std::string> syls = fRowWords(syllables);
  const std::vector<std::string> sylDurs = fRowWords(sylDurations);
  const std::vector<std::string> noteDurs = fRowWords(noteDurations);
  if (noteDurs.empty() || syls.empty()) return "";
  auto value = [](const std::vector<std::string>& words, std::size_t i) {
    return i < words.size() ? static_cast<float>(fNumericValue(words[i])) : 0.0f;
  };
  float noteSum = value(noteDurs, 0);
  float sylSum = value(sylDurs, 0);
  std::string result = syls[0];
  std::size_t next = 1;
  for (std::size_t n = 1; n < noteDurs.size(); ++n) {
    noteSum = fRoundedSum(noteSum + value(noteDurs, n));
    if (noteSum <= sylSum || next >= syls.size()) {
      result += " _";
      continue;
    }
    result += " " + syls[next];
    sylSum = fRoundedSum(sylSum + value(sylDurs, next));
    ++next;
  }
  return result;
}

bool fCombineSylDurations(const std::vector<std::string>& sylImages,
                          const std::vector<std::string>& durImages, std::int16_t count,
                          std::string& result) {
  result.clear();
  double sum = 0;
  bool first = true;
  for (std::int16_t r = 0; r < count; ++r) {
    const auto entry = static_cast<std::size_t>(r);
    std::string durations = entry < durImages.size() ? durImages[entry] : "";
    if (r == count - 1) durations = fEliminateUnderscores(durations);
    const std::vector<std::string> syls = fRowWords(entry < sylImages.size() ? sylImages[entry] : "");
    const std::vector<std::string> durs = fRowWords(durations);
    if (syls.size() < durs.size()) {
      result.clear();
      return false;
    }
    for (std::size_t w = 0; w < durs.size(); ++w) {
      const double value = durs[w] == "_" ? 0 : fNumericValue(durs[w]);
      if (first) {
        sum = value;
        first = false;
        continue;
      }
      if (syls[w] != "_") {
        result += " " + fFormatNumber(sum);
        sum = value;
      } else {
        sum += value;
      }
    }
  }
  result += " " + fFormatNumber(sum);
  return true;
}

std::string fConvertDurationToBeats(const std::string& durations, std::int16_t& speed) {
  const std::vector<std::string> words = fRowWords(durations);
  // A comma among the first words would make the speed 0; it is skipped.
  speed = kMaxSpeed;
  for (std::size_t i = 0; i < std::min<std::size_t>(words.size(), 10); ++i) {
    if (words[i] == ",") continue;
    const std::int32_t value = ZenvoVal(words[i]);
    if (value > 0 && value < speed) speed = static_cast<std::int16_t>(value);
  }
  std::vector<std::string> beats;
  for (const std::string& word : words)
    beats.push_back(word == "," ? word : fFormatSingle(static_cast<float>(ZenvoVal(word)) / static_cast<float>(speed)));
  return fJoined(beats);
}

std::string fConvertBeatsToDuration(const std::string& beats, std::int16_t speed) {
  std::vector<std::string> durations;
  for (const std::string& word : fRowWords(beats)) {
    if (word == "_") continue;
    durations.push_back(word == "," ? word : std::to_string(fRoundToInt16(fNumericValue(word) * speed)));
  }
  return fJoined(durations);
}
