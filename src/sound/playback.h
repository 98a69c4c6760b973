// Playing wave files on the current screen's media control cMM: opening,
// playing and closing a file, and routing the end of a file to the screen
// that owns the playing chain.
#pragma once

#include <cstdint>
#include <string>

// 0: no file is open for this play request; done notifications test it.
extern std::int16_t gFileOpened;
// The code delivered with the last done notification.
extern std::int16_t gNotifyCode;
extern bool gLooping;

// Opens and plays `file` when none is open; otherwise closes the open file
// and hands the end of playback on through sDoCallback.
void sPlayMusicFile(const std::string& file);
// Has cMM sound `file` straight after the file now playing, on the same
// open output, so that when the chain opens it in the done handler it is
// already sounding: no gap between phrases, and the drone in the files runs
// on. When the device cannot join it, nothing changes: the file is opened
// and played as ever, after a short break.
void sQueueMusicFile(const std::string& file);
// The looping form: a played-out file starts again while gLooping is set.
void sPlayMusicFile1(const std::string& file);
// Routes the end of a played file by gCallbackContext: the composition
// player hears event 19; the main operations screen, the workbench and the
// composer go on with the next phrase of the chain ("Error playing music
// phrases" when it cannot be built); other owners hear nothing.
void sDoCallback();
