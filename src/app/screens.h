// The program's screen table: every screen with its form id, controller
// and event binder, and the two screens bound before start-up.
#pragma once

// Fills the screen table and reads every screen's definition file at once,
// so that a missing or damaged file is found before anything starts. Such a
// file gives one message that names it (and the line at fault) and what to
// do, and the answer false: the program must end.
bool sRegisterProgramScreens();
