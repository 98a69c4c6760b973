// The command line of tonvex-render, read and checked where it arrives: every
// number within the range the library accepts, the drone and tala known, and
// the output a new path or a regular file. Stateless.
#pragma once

#include <string>
#include <vector>

#include "render_setup.h"

namespace tonvex_render {

struct RenderArgs {
  std::string outFile;             // -o
  SetupOptions setup;              // --tonic, --drone, --drone-factor, --kit
  int droneCycles = 0;             // 1 to 100: a drone file only; 0: a phrase
  std::string gen;                 // generation tokens, or
  std::string notes;               // English note words
  std::vector<std::string> durations;  // milliseconds, each 1 to 60000; empty: 1000 each
  int droneMix = 1;                // 0 to 2; 0 with --drone none
  double level = 0.2;              // 0 to 1
  std::string tala;                // a built-in tala, or empty: no theka
  int beatMs = 700;                // 1 to 10000
  int startBeat = 1;               // 1 to the tala's beat count
};

// Reads the words that follow the program's name ("-o out.wav --tonic 5 ...").
// Answers "" on success, otherwise what is wrong, naming the option and the
// values it takes.
std::string readRenderArgs(const std::vector<std::string>& words, RenderArgs& args);

// What is wrong with the notes' durations ("" when nothing): each 1 to
// 60000 ms, 60 minutes and kMaxMusicNotes notes in all at most, the limit
// named. Checked again once notes without --durations get 1000 ms each.
std::string durationsProblem(const std::vector<std::string>& durations);

// Why `path` may not be written ("" when it may): only a new path or an
// existing regular file is replaced, never a device, a folder or a pipe (the
// library writes "<path>.part" and renames it over `path`).
std::string outputPathProblem(const std::string& path);

}  // namespace tonvex_render
