// Drawing the sampler's piece (see sample_selection.h).
//
// Every draw comes from the program's generator (core/random.h), reseeded
// from the clock where the sampler always reseeded it: before the raga and
// before the kind. A kind is drawn again until it lands on one the raga has
// (a count above 0), so a raga without alap, or the film songs that no raga
// has, are never drawn. An item whose stored notes turn out empty (a count
// that promised more than the rows hold) is not played: the whole draw
// starts again with another raga, at most once for each of the 70 ragas,
// after which the sampler says that it found nothing to play.
#include "sampler/sample_selection.h"

#include <cstddef>
#include <string>
#include <vector>

#include "control/raga_setup.h"
#include "control/screen_manager.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/random.h"
#include "core/session.h"
#include "exploration/exploration_state.h"
#include "exploration/illustration_setup.h"
#include "notation/durations.h"
#include "notation/phrase_forms.h"
#include "platform/screen.h"
#include "sound/play_chain.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

std::array<std::int16_t, 8> gSampleItemCounts{};
std::int16_t gSampleKind = 0;
std::int16_t gSampleItem = 0;

namespace {

constexpr std::int16_t kSamplerRagaCount = 70;  // the collection's ragas, not counted
constexpr std::int16_t kLibrary = 1;
constexpr std::int16_t kNotes = 1;
constexpr std::int16_t kDurations = 2;
constexpr std::int16_t kCompositionInfo = 2;  // Add Info Type of compositions
constexpr std::int16_t kFilmSongInfo = 3;
constexpr std::int16_t kTaanDurationKind = 6;

struct Piece {
  std::string notes;
  std::string durations;
  std::string description;
};

std::int16_t& countOf(std::int16_t kind) { return gSampleItemCounts[static_cast<std::size_t>(kind)]; }

// fAlapCount and its kin count a raga's phrases only when it has some.
std::int16_t fPhraseCount(std::int16_t (*has)(std::int16_t, std::int16_t),
                          std::int16_t (*count)(std::int16_t, std::int16_t)) {
  return has(gCurrRagaId, kLibrary) != 0 ? count(gCurrRagaId, kLibrary) : 0;
}

void sCountItems() {
  gSampleItemCounts.fill(0);
  countOf(kSampleScale) = 1;
  countOf(kSamplePakad) = 1;
  countOf(kSampleAlap) = fPhraseCount(fHasAlap, fAlapCount);
  countOf(kSampleComposition) = fAddInfoCount(kCompositionInfo);
  countOf(kSampleFilmSong) = fAddInfoCount(kFilmSongInfo);
  countOf(kSampleLayakari) = fPhraseCount(fHasLayakari, fLayakariCount);
  countOf(kSampleTaan) = fPhraseCount(fHasTaan, fTaanCount);
}

void sDrawKind() {
  sRandomize();
  do {
    gSampleKind = fRandomFrom1To(kSampleKindCount);
  } while (countOf(gSampleKind) <= 0);
}

void sSetItem(std::int16_t itemType, std::int16_t phraseKind) {
  gCurrItemType = itemType;
  gCurrPhraseKind = phraseKind;
}

Piece fAltPiece(std::int16_t altType, const char* description) {
  gSampleItem = fRandomFrom1To(countOf(gSampleKind));
  Piece piece{fGetFromT_AnALTPhraseUnSeg(kLibrary, altType, kNotes, gSampleItem), "",
              description + std::to_string(gSampleItem)};
  piece.durations = altType == 3 ? fCreateDurationPhrase(piece.notes, kTaanDurationKind)
                                 : fGetFromT_AnALTPhraseUnSeg(kLibrary, altType, kDurations, gSampleItem);
  return piece;
}

// A composition or film song: a random item of the raga's list, then a
// random part of a composition (part 1 when it has no Antara). A film
// song's durations are used as stored, in hundredths of a second, as the
// exploration screen plays them; a composition's are matras at its speed.
Piece fCompositionPiece(bool filmSong) {
  const std::int16_t infoType = filmSong ? kFilmSongInfo : kCompositionInfo;
  std::vector<std::string> names;
  fLoadList(names, infoType, 0);
  gSampleItem = fRandomFrom1To(static_cast<std::int16_t>(names.size()));
  if (names.empty()) return {};
  const std::string& name = names[static_cast<std::size_t>(gSampleItem - 1)];
  sSetItem(6, filmSong ? 9 : 8);
  sDBToTCompInfo(kLibrary, infoType, name);
  sDBToTCompData(kLibrary, gCurrCompIndex);
  std::int16_t part = filmSong ? 1 : fRandomFrom1To(2);
  if (gCompInfo[static_cast<std::size_t>(part - 1)].NotationIndex == 0) part = 1;
  const CompPartRecord& record = gCompInfo[static_cast<std::size_t>(part - 1)];
  Piece piece{gGraceNotes == 1 ? fRemoveGlides(record.Notation) : record.Notation,
              record.NotesDuration, ""};
  if (filmSong) {
    piece.description = "Playing Film Song '" + name + "'";
    return piece;
  }
  gBaseMatraMs = record.PlayingSpeed;
  piece.durations = fConvertMatraToDuration(record.NotesDuration, gBaseMatraMs);
  piece.description = std::string("Playing ") + (part == 1 ? "Astai " : "Antara ") +
                      "of composition '" + name + "'" + " (without theka)";
  return piece;
}

Piece fLoadPiece() {
  switch (gSampleKind) {
    case kSampleScale:
      sSetItem(1, 1);
      gSampleItem = 1;
      return {fGetFromT_ScalePhraseUnSeg(kNotes), fGetFromT_ScalePhraseUnSeg(kDurations),
              "Playing Aroha and Avroha"};
    case kSamplePakad:
      sSetItem(2, 3);
      gSampleItem = 1;
      return {fGetFromT_PakadPhraseUnSeg(kNotes), fGetFromT_PakadPhraseUnSeg(kDurations),
              "Playing Pakad"};
    case kSampleAlap: sSetItem(3, 4); return fAltPiece(1, "Playing Alap No. ");
    case kSampleComposition: return fCompositionPiece(false);
    case kSampleFilmSong: return fCompositionPiece(true);
    case kSampleLayakari: sSetItem(4, 5); return fAltPiece(2, "Playing Layakari pattern No. ");
    default: sSetItem(5, 6); return fAltPiece(3, "Playing Taan pattern No. ");
  }
}

// One whole draw; false when the piece drawn has no notes.
bool fDrawPiece(Piece& piece) {
  sRandomize();
  if (fSetupSeqRaga(fRandomFrom1To(kSamplerRagaCount)) == 0) return false;
  sSetupForCurrRaga();
  gCurrRagaName = fGetRagaName(gCurrRagaId);
  sCountItems();
  sDrawKind();
  piece = fLoadPiece();
  return piece.notes.find_first_not_of(' ') != std::string::npos;
}

}  // namespace

bool fSelectSample() {
  NV_PROC("fSelectSample");
  Piece piece;
  bool found = false;
  for (std::int16_t draw = 0; draw < kSamplerRagaCount && !found; ++draw) found = fDrawPiece(piece);
  if (!found) {
    sShowMessage("Nadavik found nothing to play among the ragas of the library store (mrA.nvy): their phrases are empty. Please reinstall Nadavik.");
    return false;
  }
  platform::Screen& form = *gCurrForm;
  sShowNextPicture(form);
  form.control("cRaga").setText(gCurrRagaName);
  form.control("cDesc").setText(piece.description);
  gSelPhrase = piece.notes;
  gSelDurPhrase = piece.durations;
  sSetUpForPlayingSelectedPhrase();
  if (!fPlayMusicPhrases(form)) {
    sShowMessage("Error playing music phrases");
    return false;
  }
  return true;
}
