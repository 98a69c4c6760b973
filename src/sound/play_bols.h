// Marking the sounding cell of the composition grid: the cells cNote of the
// composition screen, one per beat slot, follow the current music buffer's
// current note. No state of its own.
#pragma once

namespace platform {
class Screen;
}

// Restores the previous cell and marks the current one red, while the
// current note lies within the grid (gRowsPerCycle x gFormBeatCount slots).
void sPlayCurrBol1Alt(platform::Screen& form);
