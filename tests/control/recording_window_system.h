// A window system for tests of logic that shows message boxes or ends the
// process but needs no screens: it records the boxes and turns the end of
// the process into an exception the test can catch.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/screen.h"

struct ProcessEnded : std::runtime_error {
  explicit ProcessEnded(int exitCode) : std::runtime_error("process ended"), code(exitCode) {}
  int code;
};

struct ShownMessage {
  std::string text;
  int style;
  std::string title;
};

class RecordingWindowSystem : public platform::WindowSystem {
 public:
  std::vector<ShownMessage> messages;
  std::vector<std::string> choiceTexts;  // the texts of the choice boxes shown
  std::vector<int> choiceAnswers;        // answered in order; -1 once they run out
  std::string fileToOpen;                // what the file dialog answers

  platform::Screen& screen(const std::string& name) override {
    throw platform::ProgramError("no screens in this test: " + name);
  }
  int messageBox(const std::string& text, int style, const std::string& title) override {
    messages.push_back({text, style, title});
    return platform::kAnswerOk;
  }
  int askChoice(const std::string& text, const std::string&, const std::vector<std::string>&) override {
    choiceTexts.push_back(text);
    return choiceTexts.size() <= choiceAnswers.size() ? choiceAnswers[choiceTexts.size() - 1] : -1;
  }
  std::string chooseFileToOpen(const std::string&, const std::string&, const std::string&) override {
    return fileToOpen;
  }
  float screenWidth() const override { return 1366; }
  float screenHeight() const override { return 768; }
  std::vector<std::string> fontFamilies() const override { return {}; }
  int addFontResource(const std::string&) override { return 0; }
  bool openDocument(const std::string&) override { return false; }
  void processEvents() override {}
  [[noreturn]] void endProcess(int code) override { throw ProcessEnded(code); }
};
