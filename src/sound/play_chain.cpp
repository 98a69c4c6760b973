// The playing chain (see play_chain.h).
#include "sound/play_chain.h"

#include "core/errors.h"
#include "core/session.h"
#include "keyboard/reed_labels.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/play_bols.h"
#include "sound/play_reeds.h"
#include "sound/play_state.h"
#include "sound/playback.h"

PlayScreenProcedures gPlayScreenProcedures;
PhraseFileBuilder gBuildPhraseFile = fPrepareToPlaySelection1;

namespace {

constexpr int kFirstNoteColor = 0x0000FF;

void call(void (*procedure)()) {
  if (procedure != nullptr) procedure();
}

void reportRangeEnded() {
  switch (gCallbackContext) {
    case kContextComposer:
      call(gPlayScreenProcedures.resetComposerNoteCells);
      sTellPlayOwner(kContextComposer, kEventRangeEnded);
      break;
    case kContextMainOperations:
    case kContextWorkbench:
    case kContextComposition:
      sTellPlayOwner(gCallbackContext, kEventRangeEnded);
      break;
    default:  // other owners do not hear of it
      break;
  }
}

// Shows the first note of the phrase about to sound, as its owner does.
void markFirstNote(platform::Screen& form, MusicBuffer& buffer) {
  switch (gCallbackContext) {
    case kContextComposer:
      if (form.hasControl("cNote", buffer.FirstNotationCell))
        form.control("cNote", buffer.FirstNotationCell).setForeColor(kFirstNoteColor);
      break;
    case kContextMainOperations:
      sSetAllReedLabelColorToDefault(form);
      if (gGraceNotes == 2)
        sPlayReeds1Alt(form);
      else
        sPlayReedsAlt(form);
      break;
    case kContextComposition:
      call(gPlayScreenProcedures.resetCompositionSlots);
      sPlayCurrBol1Alt(form);
      break;
    default:
      break;
  }
}

// Fills and builds the buffer of the phrase now at the cursor.
bool prefetchNextPhrase() {
  const std::int16_t next = fBufferForPhrase(gPlaySet.Position);
  gMusicBuffers[static_cast<std::size_t>(next)].Count = fCreateNotesList1(next);
  return gBuildPhraseFile(next) != 0;
}

}  // namespace

bool fPlayMusicPhrases(platform::Screen& form) {
  NV_PROC("fPlayMusicPhrases");
  if (gPlaySet.Position > gPlaySet.LastPhrase) {
    gPlaySet.Position = gPlaySet.FirstPhrase;
    reportRangeEnded();
    return true;
  }
  if (gBufferRotation) gCurrBuffer = fBufferForPhrase(gPlaySet.Position);
  if (gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount) return false;
  MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  gCurrMusicFile = gWavFiles[static_cast<std::size_t>(gCurrBuffer)];
  call(gPlayScreenProcedures.displayPrompt);
  gFileOpened = 0;
  buffer.CurrNote = 1;
  markFirstNote(form, buffer);

  sPlayMusicFile(gCurrMusicFile);
  ++gPlaySet.Position;
  if (gPlaySet.Position > gPlaySet.LastPhrase) return true;
  if (gPrefetchMode == kPrefetchNext && !prefetchNextPhrase()) return false;
  if (gBufferRotation)
    sQueueMusicFile(gWavFiles[static_cast<std::size_t>(fBufferForPhrase(gPlaySet.Position))]);
  return true;
}

void sTellPlayOwner(std::int16_t context, std::int16_t event) {
  if (context < 0 || context > kContextNone) return;
  const PlayOwnerController owner = gPlayScreenProcedures.owners[static_cast<std::size_t>(context)];
  if (owner != nullptr) owner(event);
}
