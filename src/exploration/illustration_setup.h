// Setting up the chosen item for playing in each mode: which phrases of
// gPhraseSet (or of the edited notation box) go into gPlaySet, at which
// tempo, and the first file built. No state of its own beyond gPlaySet,
// gPracticeSet and the prefetch and file options.
#pragma once

#include <string>

// Demo: every phrase of the item once, in stored order, at the stored tempo.
void sSetUpForDemoModeIllustrations();
// Learning: the phrase in the notation box alone, at the slider's tempo.
void sSetUpForLearningModeIllustration();
// Practice: the colon-separated segments of the notation box as typed, each
// taking its durations in turn from the item's timing.
void sSetUpForPracticeModeIllustrations1();
// One phrase given by another screen: gSelPhrase with gSelDurPhrase.
void sSetUpForPlayingSelectedPhrase();

// The notation box's segments in English: from Devanagari when that is the
// script in force, each word's grace pieces kept apart by "'".
std::string fPracticeSegmentInEnglish(const std::string& segment);
