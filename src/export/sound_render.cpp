// Phrase after phrase into wave files of the export's own names.
#include "export/sound_render.h"

#include <cstdio>
#include <filesystem>

#include "core/session.h"
#include "sound/composition_files.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"

namespace {

constexpr int kCompositionKind = 8;
constexpr int kScratchBuffer = 2;

int gExportWaveCount = 0;

std::string nextWaveName() { return gTempPath + "export-" + std::to_string(++gExportWaveCount) + ".wav"; }

// A composition's parts, built as the player builds them (A.wav, B.wav),
// then copied to the export's own names, so that the parts stay ready for
// the player's replay.
std::vector<std::string> compositionWaves() {
  std::vector<std::string> files;
  if (fCreateCompositionMusicFilesFromT() == 0) return files;
  const int parts = gCurrPhraseKind == 9 ? 1 : 2;
  for (int part = 0; part < parts; ++part) {
    files.push_back(nextWaveName());
    std::error_code error;
    std::filesystem::copy_file(gWavFiles[static_cast<std::size_t>(part)], files.back(),
                               std::filesystem::copy_options::overwrite_existing, error);
    if (error) {
      files.pop_back();
      sRemoveWaves(files);
      return {};
    }
  }
  return files;
}

// Every phrase of gPhraseSet through the spare buffer, as the player times
// and builds it; the playlist and buffer are put back.
std::vector<std::string> phraseWaves() {
  const PhraseSet savedPlaySet = gPlaySet;
  const MusicBuffer savedBuffer = gMusicBuffers[kScratchBuffer];
  const std::string savedBuildFile = gCurrBuildFile;
  std::vector<std::string> files;
  gPlaySet = gPhraseSet;
  for (std::int16_t p = 1; p <= gPhraseSet.Count; ++p) {
    gPlaySet.Position = p;
    MusicBuffer& b = gMusicBuffers[kScratchBuffer];
    b.Count = fCreateNotesList1(kScratchBuffer);
    gCurrBuildFile = nextWaveName();
    if (fCreateMusicFile(b.NoteCodes, b.DurationsMs, b.Count) == 0) {
      sRemoveWaves(files);
      files.clear();
      break;
    }
    files.push_back(gCurrBuildFile);
  }
  gPlaySet = savedPlaySet;
  gMusicBuffers[kScratchBuffer] = savedBuffer;
  gCurrBuildFile = savedBuildFile;
  return files;
}

}  // namespace

std::vector<std::string> fRenderItemWaves() {
  return gCurrPhraseKind == kCompositionKind || gCurrPhraseKind == 9 ? compositionWaves() : phraseWaves();
}

void sRemoveWaves(const std::vector<std::string>& files) {
  for (const std::string& f : files) std::remove(f.c_str());
}
