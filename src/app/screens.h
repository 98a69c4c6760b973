// The program's screen table: every screen with its form id, controller
// and event binder, and the two screens bound before start-up.
#pragma once

void sRegisterProgramScreens();
