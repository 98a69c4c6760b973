// Stopping a run (see play_stop.h).
#include "sound/play_stop.h"

#include "core/errors.h"
#include "keyboard/reed_labels.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_chain.h"

void sStopMusicPhrases(platform::Screen& form) {
  NV_PROC("sStopMusicPhrases");
  gPlaySet.Position = static_cast<std::int16_t>(gPlaySet.Count + 1);
  gFirstNoteOwed = false;
  if (!form.hasControl("cMM")) return;
  platform::AudioDevice& mm = form.control("cMM").device();
  mm.notify = false;
  mm.wait = true;
  mm.command("Stop");
  mm.fileName = "";
  mm.command("Close");
  if (form.hasControl("cCurrentItem")) form.control("cCurrentItem").setText("");
}

void sStopCurrentPhrase(platform::Screen& form) {
  NV_PROC("sStopCurrentPhrase");
  if (form.hasControl("cMM")) form.control("cMM").device().command("Stop");
  sSetAllReedLabelColorToDefault(form);
}
