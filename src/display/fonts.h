// Fonts of notation controls for the script in force. The screen backend
// shows a control whose font is "Shusha" by turning its key-map text into
// Unicode Devanagari. No state of its own.
#pragma once

namespace platform {
class Control;
}

constexpr const char* kDevanagariFontName = "Shusha";
constexpr float kDevanagariFontSizePt = 16;
constexpr const char* kEnglishFontName = "Times New Roman";
constexpr float kEnglishFontSizePt = 12;

// sSetDevnagariFont when gNotationScript is 1, sSetEnglishFont when it is 2,
// nothing otherwise.
void sAdjustFont(platform::Control& control);

// "Shusha" 16 pt, or "Times New Roman" 12 pt. The screen interface has no
// bold property yet; both fonts are meant bold.
void sSetDevnagariFont(platform::Control& control);
void sSetEnglishFont(platform::Control& control);
