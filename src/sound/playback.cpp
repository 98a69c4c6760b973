// Playing wave files on cMM (see playback.h). Open and Close block; Play
// returns at once and the device's done notification, whose handler calls
// sPlayMusicFile again, closes the file.
#include "sound/playback.h"

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_chain.h"
#include "sound/wave_folder.h"

std::int16_t gFileOpened = 0;
std::int16_t gNotifyCode = 0;
bool gLooping = false;

namespace {

platform::AudioDevice& mediaControl() { return gCurrForm->control("cMM").device(); }

// A file the device refuses ends the run as if its range had ended, after
// telling the user why, so that the screen gets its Play button back. A
// music file that could not be built for want of its folder has been told
// as such: the sound settings are not to blame.
void endRunOnRefusedFile(const platform::AudioDevice& mm, const std::string& file) {
  if (!fToldWaveFolderFault(file))
    sShowMessage("Nadavik could not play the sound file '" + file + "': " + mm.errorMessage() +
                 ". Please check your sound settings, then press Play again.");
  gLooping = false;
  gPlaySet.Position = static_cast<std::int16_t>(gPlaySet.LastPhrase + 1);
  sDoCallback();
}

void openAndPlay(platform::AudioDevice& mm, const std::string& file) {
  mm.notify = false;
  mm.wait = true;
  mm.shareable = false;
  mm.deviceType = "WaveAudio";
  mm.fileName = file;
  if (!mm.command("Open")) {
    endRunOnRefusedFile(mm, file);
    return;
  }
  mm.notify = true;
  mm.wait = false;
  mm.from = 0;
  mm.to = mm.length();
  ++gFileOpened;
  mm.command("Play");
}

void closeFile(platform::AudioDevice& mm) {
  mm.notify = false;
  mm.wait = true;
  mm.fileName = "";
  mm.command("Close");
}

}  // namespace

void sPlayMusicFile(const std::string& file) {
  NV_PROC("sPlayMusicFile");
  platform::AudioDevice& mm = mediaControl();
  if (gFileOpened == 0) {
    openAndPlay(mm, file);
    return;
  }
  closeFile(mm);
  sDoCallback();
}

void sQueueMusicFile(const std::string& file) {
  NV_PROC("sQueueMusicFile");
  platform::AudioDevice& mm = mediaControl();
  mm.fileName = file;
  mm.command("Queue");
}

void sPlayMusicFile1(const std::string& file) {
  NV_PROC("sPlayMusicFile1");
  platform::AudioDevice& mm = mediaControl();
  if (gFileOpened == 0) {
    openAndPlay(mm, file);
  } else if (gLooping) {
    mm.notify = true;
    mm.wait = false;
    mm.command("Seek to start");
    mm.from = 0;
    mm.to = mm.length();
    mm.command("Play");
  } else {
    closeFile(mm);
  }
}

void sDoCallback() {
  NV_PROC("sDoCallback");
  switch (gCallbackContext) {
    case kContextComposition:
      sTellPlayOwner(kContextComposition, kEventRangeEnded);
      break;
    case kContextPlaySet:
    case kContextWorkbench:
    case kContextComposer:
    case kContextMainOperations:
      if (gCurrForm != nullptr && !fPlayMusicPhrases(*gCurrForm) &&
          !fToldWaveFolderFault(gCurrBuildFile))
        sShowMessage("Error playing music phrases");
      break;
    default:  // the other owners play single files and need no next step
      break;
  }
}
