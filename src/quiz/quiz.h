// Quiz: the Quiz screen (form id 20), a game of recognising ragas by ear.
// The user ticks the kinds of sample (aroha-avroha, pakad, alap); each new
// sample is a random raga of the library's first 70 and a random kind of
// those ticked, played over the drone; the user guesses from the list of
// ragas or asks what it was, and can explore the raga at once.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen; every call makes the quiz the owner of the
// playing (gCallbackContext 6). Events: 0 open; 1 a click in cRagaList;
// 2 cOK (stage 1: take the ticked kinds; stage 2: draw a new sample and
// play it); 3 play the sample (cPlay, and event 2); 4 I will Guess; 5 What
// is it?; 6 explore the raga; 7 notation on or off; 8 script; 9 drone
// louder or softer; 19 the sample has played out; 20 leave. Others do
// nothing.
void sTakeQuiz(std::int16_t event);
void sInitTakeQuiz();
void sTerminateTakeQuiz();
void sBindQuizEvents(platform::Screen& screen);
