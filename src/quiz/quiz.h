// Quiz: the Quiz screen (form id 20), a game of recognising ragas by ear.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open, 20 leave.
void sTakeQuiz(std::int16_t event);
void sInitTakeQuiz();
void sTerminateTakeQuiz();
void sBindQuizEvents(platform::Screen& screen);
