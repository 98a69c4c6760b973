// The playing chain (see play_chain.h).
#include "sound/play_chain.h"

#include "core/errors.h"
#include "core/session.h"
#include "keyboard/reed_labels.h"
#include "platform/audio.h"
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

// While a run loops, the first phrase of the next repeat is built while the
// last of this one sounds, and queued to follow it like any next phrase.
// With an odd number of phrases both would fall in the same buffer, so a
// repeat's phrases take the buffers of the positions this shift further on
// (0 or 1).
// State: the shift of the repeat sounding, and that of the next repeat once
// its first phrase has been queued (-1 while none has).
std::int16_t gRepeatShift = 0;
std::int16_t gNextRepeatShift = -1;

std::int16_t bufferFor(std::int16_t position) {
  return fBufferForPhrase(static_cast<std::int16_t>(position + gRepeatShift));
}

// Fills and builds the buffer of a phrase of the play set.
bool buildPhrase(std::int16_t position, std::int16_t buffer) {
  const std::int16_t saved = gPlaySet.Position;
  gPlaySet.Position = position;  // the notes list reads the phrase at the cursor
  gMusicBuffers[static_cast<std::size_t>(buffer)].Count = fCreateNotesList1(buffer);
  gPlaySet.Position = saved;
  return gBuildPhraseFile(buffer) != 0;
}

// Only the exploration screen loops a run of phrases.
bool loopingRun() { return gLooping && gCallbackContext == kContextMainOperations && gBufferRotation; }

// The first phrase is built afresh, after the last, so that the drone the
// library carries from file to file runs on in phase; so is a lone phrase
// built before the run (Learning). The files of a longer run built before
// it are played again as they are.
bool queueNextRepeat() {
  const std::int16_t first = gPlaySet.FirstPhrase;
  const int phrases = gPlaySet.LastPhrase - first + 1;
  const bool rebuild = gPrefetchMode == kPrefetchNext || phrases == 1;
  const auto shift = static_cast<std::int16_t>(rebuild ? (gRepeatShift + phrases) % 2 : 0);
  const std::int16_t buffer = fBufferForPhrase(static_cast<std::int16_t>(first + shift));
  if (rebuild && !buildPhrase(first, buffer)) return false;
  gNextRepeatShift = shift;
  sQueueMusicFile(gWavFiles[static_cast<std::size_t>(buffer)]);
  return true;
}

// At the end of a range: the next repeat, when one was queued and the run
// still loops, goes on in its buffers; any other run starts unshifted.
void settleRepeatShift() {
  gRepeatShift = gNextRepeatShift >= 0 && gLooping ? gNextRepeatShift : 0;
  gNextRepeatShift = -1;
}

// True once cMM has begun to sound the buffer's first note.
bool firstNoteSounds(platform::Screen& form, const MusicBuffer& buffer) {
  const long startMs = buffer.TimesMs.empty() ? 0 : static_cast<long>(buffer.TimesMs[0]);
  return form.hasControl("cMM") && form.control("cMM").device().position() > startMs;
}

// Says what plays and marks its first note. On the exploration screen, whose
// status step marks the notes, the mark waits until the device sounds the
// note (sMarkOwedFirstNote): a phrase joined to the last is heard as soon
// as it plays, one starting from silence only once the output has started
// (marking it at Play put the mark ahead of the sound by the output's
// start-up). The other owners, with no status step, mark it at once.
void showPhraseStart(platform::Screen& form, MusicBuffer& buffer) {
  call(gPlayScreenProcedures.displayPrompt);
  gFirstNoteOwed = gCallbackContext == kContextMainOperations;
  if (!gFirstNoteOwed) markFirstNote(form, buffer);
}

}  // namespace

bool gFirstNoteOwed = false;

bool fPlayMusicPhrases(platform::Screen& form) {
  NV_PROC("fPlayMusicPhrases");
  if (gPlaySet.Position > gPlaySet.LastPhrase) {
    gPlaySet.Position = gPlaySet.FirstPhrase;
    settleRepeatShift();
    reportRangeEnded();
    return true;
  }
  if (gBufferRotation) gCurrBuffer = bufferFor(gPlaySet.Position);
  if (gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount) return false;
  MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  gCurrMusicFile = gWavFiles[static_cast<std::size_t>(gCurrBuffer)];
  gFileOpened = 0;
  buffer.CurrNote = 1;
  showPhraseStart(form, buffer);
  sPlayMusicFile(gCurrMusicFile);
  sMarkOwedFirstNote(form);

  ++gPlaySet.Position;
  if (gPlaySet.Position > gPlaySet.LastPhrase) return !loopingRun() || queueNextRepeat();
  const std::int16_t next = bufferFor(gPlaySet.Position);
  if (gPrefetchMode == kPrefetchNext && !buildPhrase(gPlaySet.Position, next)) return false;
  if (gBufferRotation) sQueueMusicFile(gWavFiles[static_cast<std::size_t>(next)]);
  return true;
}

void sMarkOwedFirstNote(platform::Screen& form) {
  if (!gFirstNoteOwed || gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount) return;
  MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  if (!firstNoteSounds(form, buffer)) return;
  gFirstNoteOwed = false;
  markFirstNote(form, buffer);
}

void sTellPlayOwner(std::int16_t context, std::int16_t event) {
  if (context < 0 || context > kContextNone) return;
  const PlayOwnerController owner = gPlayScreenProcedures.owners[static_cast<std::size_t>(context)];
  if (owner != nullptr) owner(event);
}
