// The play controls of a screen: cPlay, cStop, cStartLoop, cStopLoop and
// cReturn, shown and enabled to suit whether something is playing. Works on
// gCurrForm; controls the screen lacks are skipped. No state of its own.
#pragma once

// Makes cPlay, cStop, cStartLoop and cStopLoop visible.
void sDisplayPlayControlButtons();
// At rest: Play, Start Looping and Go Back usable; Stop and Stop Looping not.
void sEnablePlayStartButtons();
// While playing: only the stop that fits the run (Stop Looping while
// looping, Stop otherwise).
void sEnablePlayStopButtons();
