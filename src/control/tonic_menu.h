// The Tonic Note menu that several screens carry: twelve entries named after
// the harmonium's white and black keys (cMnuW1..W7, cMnuB1..B5), each
// picking one tonic id from 1 to 12.
#pragma once

#include <array>
#include <cstdint>

#include "core/session.h"
#include "platform/screen.h"

struct TonicMenuEntry {
  const char* control;
  std::int16_t tonic;
};

inline constexpr std::array<TonicMenuEntry, 12> kTonicMenuEntries = {{
    {"cMnuW7", 1}, {"cMnuW1", 2}, {"cMnuB1", 3}, {"cMnuW2", 4}, {"cMnuB2", 5}, {"cMnuW3", 6},
    {"cMnuW4", 7}, {"cMnuB3", 8}, {"cMnuW5", 9}, {"cMnuB4", 10}, {"cMnuW6", 11}, {"cMnuB5", 12},
}};

// A click on an entry sets gTonicChoice and raises `event` on the screen's
// controller.
inline void sBindTonicMenu(platform::Screen& s, void (*controller)(std::int16_t), std::int16_t event) {
  for (const TonicMenuEntry& entry : kTonicMenuEntries)
    s.on(entry.control, platform::EventKind::Click, [entry, controller, event](const platform::Event&) {
      gTonicChoice = entry.tonic;
      controller(event);
    });
}
