// The folder where music files are built (gTempPath, the program's own
// folder under the temporary folder), and the one message that tells the
// user when it cannot take them: missing, not writable, or full.
//
// A failed build used to be told at every level it passed through ("Error
// creating music file", "Error Preparing Music File", "Error Setting up for
// Illustration") and then once more, blaming the sound settings, when the
// missing file was played: four boxes, none naming the folder. Now each of
// those levels first asks fToldWaveFolderFault, and when the folder is the
// cause the user gets one message that names it and says what to do.
//
// State: what is known of the failure of the build under way (nothing yet,
// the folder is fine, or its fault has been told), forgotten when the next
// build begins.
#pragma once

#include <string>

// A build of a music file begins: makes the folder again if it has gone
// (a cleaner of the temporary folder may remove it while the program runs)
// and forgets what was known of the last build's failure.
void sBeginWaveBuild();

// Why `folder` (ending in "/") cannot take a music file now, as the
// system words it; "" when it can. Makes the folder when it is missing,
// writes and removes a probe file there, and counts a file system with
// less room than a long composition's file as full.
std::string fWaveFolderFault(const std::string& folder);

// The message that names the folder, the fault and what to do.
std::string fWaveFolderMessage(const std::string& folder, const std::string& fault);

// After a failure to build or play `file`: true when the file belongs in
// the music files' folder and that folder is the cause, which is then told
// once for the build under way; the caller shows no message of its own.
// False otherwise (the caller tells its own message).
bool fToldWaveFolderFault(const std::string& file);
