// State of the Quiz screen that outlives one event: the stage, the kinds
// ticked, the kind of the sample at hand, the settings saved on entry and
// whether a sample is sounding.
#pragma once

#include <array>
#include <cstdint>

// The kinds of sample, as gQuizItems holds them.
constexpr std::int16_t kQuizScale = 1;  // aroha and avroha
constexpr std::int16_t kQuizPakad = 2;
constexpr std::int16_t kQuizAlap = 3;

extern std::int16_t gQuizStage;                // 1 choosing kinds, 2 taking samples
extern std::int16_t gQuizItemCount;            // kinds ticked, 0 to 3
extern std::array<std::int16_t, 4> gQuizItems; // the ticked kinds in order, from entry 1
extern std::int16_t gQuizItem;                 // kind of the sample at hand
extern std::int16_t gQuizSavedTheka;           // gThekaMode on entry
extern std::int16_t gQuizTheka;                // gThekaMode while a sample plays: 2
extern std::int16_t gSavedKeyboard;            // gKeyboardDisplay on entry
extern std::int16_t gQuizKeyboard;             // gKeyboardDisplay while a sample plays: 2
// True from the start of a sample's play until it has played out.
extern bool gQuizSamplePlaying;
