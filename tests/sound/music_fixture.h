// What the music buffer and music file tests share: the sound test stores
// with the synthesis library started (seeds, drone and tabla kit), the
// temporary wave files in the test's directory, a playlist of one phrase,
// and the play length of a written wave file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/session.h"
#include "notation/vocabulary.h"
#include "sound/library_setup.h"
#include "sound/music_buffers.h"
#include "sound_test_support.h"
#include "tonvex/tonvex.h"

class MusicFileTest : public SoundStoreTest {
 protected:
  void SetUp() override {
    SoundStoreTest::SetUp();
    sInitScales();
    ASSERT_TRUE(fStartSoundLibrary());
    gWavA = file("A.wav").string();
    gWavB = file("B.wav").string();
    gWavC = file("C.wav").string();
    gWavFiles = {gWavA, gWavB, gWavC, ""};
    gCurrForm = nullptr;
    gNotationScript = 2;
    gCurrItemType = 1;
    gCurrPhraseKind = 1;
    gCurrMode = 1;
    gThekaMode = 2;
    gMusicBuffers = {};
  }
};

// gPlaySet holds the one phrase, with the cursor on it.
inline void sPlayOnePhrase(const std::string& notes, const std::string& durations) {
  gPlaySet = {};
  gPlaySet.Count = gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = 1;
  gPlaySet.NotePhrases = {notes};
  gPlaySet.DurPhrases = {durations};
  gPlaySet.BaseDurPhrases = {durations};
}

// Play length in milliseconds of a 16-bit mono wave file at the library's
// rate, from its header's data chunk size; -1 when it is no wave file.
inline double fWaveLengthMs(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  char riff[12];
  if (!in.read(riff, 12) || std::string(riff, 4) != "RIFF") return -1.0;
  char header[8];
  while (in.read(header, 8)) {
    std::uint32_t size = 0;
    for (int i = 0; i < 4; ++i) size |= std::uint32_t(std::uint8_t(header[4 + i])) << (8 * i);
    if (std::string(header, 4) == "data") return 1000.0 * size / (2.0 * tonvex::kSampleRate);
    in.seekg(size + (size & 1), std::ios::cur);
  }
  return -1.0;
}
