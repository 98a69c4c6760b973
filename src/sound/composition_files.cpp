// Both parts of a composition into A.wav and B.wav (see
// composition_files.h).
#include "sound/composition_files.h"

#include "core/errors.h"
#include "core/session.h"
#include "sound/composition_prep.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"

namespace {

// Phrase `position` of gPhraseSet into buffer `buffer` and its file.
std::int16_t fBuildPart(std::int16_t position, std::int16_t buffer) {
  gPhraseSet.Position = position;
  gPlaySet = gPhraseSet;
  gMusicBuffers[static_cast<std::size_t>(buffer)].Count = fCreateNotesList1(buffer);
  return fPrepareToPlaySelection1(buffer);
}

}  // namespace

std::int16_t fCreateCompositionMusicFilesFromT() {
  NV_PROC("fCreateCompositionMusicFilesFromT");
  gWavOption = 1;
  sPreprocCompDataFromT();
  gPhraseSet.FirstPhrase = 1;
  gPhraseSet.LastPhrase = gPhraseSet.Count;
  if (fBuildPart(1, 0) == 0) return 0;
  if (gCurrPhraseKind != 9) {
    const std::int16_t built = fBuildPart(2, 1);
    gPhraseSet.Position = 1;
    if (built == 0) return 0;
  }
  return 1;
}
