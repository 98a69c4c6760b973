// Rows of the layout tables taken from a screen definition file
// (screens/<Name>.screen): one NVForms row for the screen and one
// NVFormControls row per control, in file order, holding the control's
// position and size as ratios of the window. The file is read with the
// screen backend's own parser; no state.
#pragma once

#include <string>

#include "record_file.h"

namespace nvstore {

// Parses a screen definition text into rows of NVForms and NVFormControls.
// A screen declared without an id has no layout rows (the result is empty).
RecordFile screenLayoutRows(const std::string& text, const std::string& fileName);

RecordFile readScreenFile(const std::string& path);

}  // namespace nvstore
