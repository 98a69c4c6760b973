// The screen table: one entry per form id with the screen's name, its
// controller and the procedure that binds its event handlers. The program's
// main() fills it from the screen modules, so that the screen manager can
// reach every screen without depending on the modules themselves.
#pragma once

#include <cstdint>
#include <string>

namespace platform {
class Screen;
}

using Controller = void (*)(std::int16_t event);
using ScreenBinder = void (*)(platform::Screen& screen);

struct ScreenEntry {
  std::int16_t formId = 0;
  std::string name;
  Controller controller = nullptr;
  ScreenBinder binder = nullptr;
};

// Registers a screen; later registrations of the same id replace earlier.
void sRegisterScreen(const ScreenEntry& entry);

// The entry of a form id, or nullptr for an id that does not occur.
const ScreenEntry* fScreenEntry(std::int16_t formId);

// Calls the controller of a form id with an event (nothing for an id
// without a controller).
void sCallController(std::int16_t formId, std::int16_t event);

// Creates every registered screen object and binds its events; called once
// at start-up.
void sCreateScreenObjects();
