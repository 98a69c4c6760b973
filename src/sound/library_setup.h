// Setting up the synthesis library at start-up and the drone greeting.
// Reads gSynthNames, gMainSetName, gInstrLibFiles, gThekaInstrument,
// gDroneCycles and gDroneWavFile; keeps no state.
#pragma once

// Declares the note sets, chooses the main set, loads and tunes the seeds
// for the current music set, and loads the tabla kit of gThekaInstrument.
// The first failure shows its message and gives false.
bool fStartSoundLibrary();

// Writes gDroneCycles drone cycles into gDroneWavFile as a greeting (faded
// in and out). False after "Error in generating drone file".
bool fGenerateGreetingDrone();
