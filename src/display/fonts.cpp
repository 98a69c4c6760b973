// Notation fonts by script.
#include "display/fonts.h"

#include "core/session.h"
#include "platform/screen.h"

void sSetDevnagariFont(platform::Control& control) {
  control.setFontName(kDevanagariFontName);
  control.setFontSize(kDevanagariFontSizePt);
}

void sSetEnglishFont(platform::Control& control) {
  control.setFontName(kEnglishFontName);
  control.setFontSize(kEnglishFontSizePt);
}

void sAdjustFont(platform::Control& control) {
  if (gNotationScript == 1) sSetDevnagariFont(control);
  if (gNotationScript == 2) sSetEnglishFont(control);
}
