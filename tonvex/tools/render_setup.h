// Sets the library up for the renderer as the application does at start-up,
// but from the seed bank written at build time instead of the store: both sets loaded
// and tuned to the built-in music set of a tonic, the drone prepared, and a
// tabla kit loaded if one is named. Changes the library's state.
#pragma once

#include <string>

namespace tonvex_render {

struct SetupOptions {
  int tonicId = 3;          // 1 to 12
  int droneType = 1;        // 1 Pa, 2 Ma, 3 Ni
  double droneFactor = 1.0;
  std::string kitFile;      // empty: no theka
  std::string seedBankFile; // the build's seed bank; empty or unreadable: seeds made anew
};

// Returns an error text, empty on success.
std::string setUpLibrary(const SetupOptions& options);

}  // namespace tonvex_render
