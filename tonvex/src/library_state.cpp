// The single instance of the library's state and look-ups into it.
#include "library_state.h"

namespace tonvex {

LibraryState& libraryState() {
  static LibraryState state;
  return state;
}

NoteSet* findNoteSet(const std::string& name) {
  if (name.size() != 1) return nullptr;
  for (NoteSet& set : libraryState().sets)
    if (set.name == name[0]) return &set;
  return nullptr;
}

const NoteSeed* findSeed(const NoteSet& set, int32_t noteId) {
  if (noteId < 0 || noteId > kMaxNoteId) return nullptr;
  const auto& seed = set.notes[static_cast<size_t>(noteId)];
  return seed ? &*seed : nullptr;
}

}  // namespace tonvex
