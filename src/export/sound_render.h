// Rendering the item at hand to wave files for a sound export, through the
// program's own music-file path, so that the export holds exactly the mix
// the program plays: harmonium, drone, theka, tonic, tempo, grace notes and
// user scale as they are now. Runs on the screens' thread (the synthesis
// library is not shared with other threads); the files are the export's
// until it ends. No state of its own beyond a running file number.
#pragma once

#include <string>
#include <vector>

// Wave files of every phrase of the item loaded now, in order, in the
// program's music-file folder; a composition gives its two parts. Empty
// after the builder's own message when a file could not be made (the files
// made so far are removed).
std::vector<std::string> fRenderItemWaves();

// Removes wave files made by fRenderItemWaves.
void sRemoveWaves(const std::vector<std::string>& files);
