// A sample of the quiz: drawing a raga and a kind at random, playing it,
// and giving the screen back when it has played out. Works on gCurrForm,
// the Quiz screen. State: the quiz state and the selected phrase.
#pragma once

// Event 2 in stage 2: draws the raga and the kind of the next sample and
// loads its phrase into gSelPhrase and gSelDurPhrase, then plays it.
void sSelectQuizSample();

// Event 3: plays the sample at hand. The answer controls stay away, and the
// screen's controls disabled, until it has played out (event 19).
void sPlayQuizSample();

// Event 19: the sample has played out: the settings of the screen come
// back and the answer controls are offered.
void sQuizSamplePlayed();

// The sample's one phrase (gSelPhrase, gSelDurPhrase) set up in gPlaySet and
// built into A.wav, to play without theka and without keyboard.
void sSetUpForQuizModeIllustration();

// Go Back and the menus: usable between samples, not while one plays.
void sEnableF20Selections();
void sDisableF20Selections();
