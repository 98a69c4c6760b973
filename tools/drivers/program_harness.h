// Runs the whole program in this process: real screens (Qt offscreen),
// real store files in a temporary program folder, the silent audio device
// on a virtual clock, and message boxes answered and recorded.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/qt/qt_window_system.h"

struct RecordedMessage {
  std::string text;
  std::string title;
};

class ProgramHarness {
 public:
  // Makes a program folder with the built data files (stores, sound
  // libraries, pictures, screens, font).
  ProgramHarness();
  ~ProgramHarness();

  const std::filesystem::path& folder() const { return folder_; }
  // The whole content of a file ("" when there is none).
  static std::string readFile(const std::filesystem::path& path);
  platform::VirtualClock& clock() { return clock_; }
  // Plays on other devices than the silent one on the virtual clock (the
  // real sound output, for checks by hand); before start().
  void setAudioDeviceFactory(platform::AudioDeviceFactory factory) {
    windows_->setAudioDeviceFactory(std::move(factory));
  }
  const std::vector<RecordedMessage>& messages() const { return messages_; }
  // The window system, for answering its file dialogs and choice boxes.
  platform::QtWindowSystem& windows() { return *windows_; }
  // The answer given to every Yes/No question from now on (kAnswerOk, the
  // default, is neither Yes nor No); other boxes are answered with OK.
  void answerQuestions(int answer) { questionAnswer_ = answer; }

  // Starts the program as a user would: the main window loads and the
  // opening screen is answered with OK (or Cancel).
  void start(bool pressOk = true, const std::string& commandLine = "");

  // Delivers an event of a control (or of the screen, control "") of the
  // named screen, as a click or timer would.
  void fire(const std::string& screen, const std::string& control, platform::EventKind kind,
            platform::Event event = {});
  // The close box of a window.
  void closeWindow(const std::string& screen);

  platform::Screen& screen(const std::string& name);
  bool mainWindowLoaded();

  // Runs the start-up out: the greeting's timer, then OK on the tips.
  void finishStartUp();

  // Lets queued events run (deferred window deletion and the like).
  void settle();

 private:
  std::filesystem::path folder_;
  platform::VirtualClock clock_;
  std::unique_ptr<platform::QtWindowSystem> windows_;
  std::vector<RecordedMessage> messages_;
  int questionAnswer_ = platform::kAnswerOk;
};
