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
// The looping form: a played-out file starts again while gLooping is set.
void sPlayMusicFile1(const std::string& file);
// Routes the end of a played file by gCallbackContext.
void sDoCallback();
