// Qt backend of the window system: creates screens from their definition
// files, shows message boxes, provides fonts, and converts the notation
// font's text for display.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/screen.h"

namespace platform {

class QtScreen;

// Converts text of controls whose font is the Devanagari notation font
// ("Shusha"): the logic keeps the stored key-map words; the screen shows
// Unicode Devanagari and turns what the user types back into key-map words.
struct DevanagariConverters {
  std::function<std::string(const std::string&)> toUnicode;
  std::function<std::string(const std::string&)> toKeymap;
};

// The family name the logic uses for the Devanagari notation font.
inline constexpr const char* kNotationFontName = "Shusha";

// Makes the media controls' audio devices.
using AudioDeviceFactory = std::function<std::unique_ptr<AudioDevice>()>;

// Answers message boxes instead of showing them (tests).
using MessageBoxResponder =
    std::function<int(const std::string& text, int style, const std::string& title)>;

// The same with the box's detailed text (empty when the box has none).
using DetailedMessageBoxResponder = std::function<int(
    const std::string& text, int style, const std::string& title, const std::string& detail)>;

// Answers the choice boxes and file dialogs instead of showing them (tests).
using ChoiceResponder = std::function<int(const std::string& text, const std::vector<std::string>& choices)>;
using FileChooser = std::function<std::string(const std::string& title)>;

class QtWindowSystem : public WindowSystem {
 public:
  // screensDir holds the <Name>.screen definition files.
  explicit QtWindowSystem(std::string screensDir);
  ~QtWindowSystem() override;

  Screen& screen(const std::string& name) override;
  int messageBox(const std::string& text, int style, const std::string& title) override;
  int messageBoxWithDetail(const std::string& text, int style, const std::string& title,
                           const std::string& detail) override;
  int askChoice(const std::string& text, const std::string& title,
                const std::vector<std::string>& choices) override;
  std::string chooseFileToOpen(const std::string& title, const std::string& folder,
                               const std::string& nameFilter) override;
  std::string chooseFileToSave(const std::string& title, const std::string& folder, const std::string& proposedName,
                               const std::string& nameFilter) override;
  void runWithProgress(const std::string& caption, const std::function<void(const ProgressReport&)>& job) override;
  float screenWidth() const override;
  float screenHeight() const override;
  std::vector<std::string> fontFamilies() const override;
  int addFontResource(const std::string& path) override;
  bool openDocument(const std::string& path) override;
  void processEvents() override;
  [[noreturn]] void endProcess(int code) override;

  void setDevanagariConverters(DevanagariConverters converters);
  void setAudioDeviceFactory(AudioDeviceFactory factory);
  void setMessageBoxResponder(MessageBoxResponder responder);
  // Takes the place of the plain responder for every box, detailed or not.
  void setDetailedMessageBoxResponder(DetailedMessageBoxResponder responder);
  void setChoiceResponder(ChoiceResponder responder);
  void setFileChooser(FileChooser chooser);
  // The name the last save dialog proposed, for a harness to check.
  const std::string& lastProposedSaveName() const { return lastProposedSaveName_; }

  // Used by the controls.
  const DevanagariConverters& devanagari() const { return devanagari_; }
  std::unique_ptr<AudioDevice> createAudioDevice() const;
  // The real family behind the notation font name, "" when none is loaded.
  const std::string& notationFamily() const { return notationFamily_; }

 private:
  std::string screensDir_;
  std::map<std::string, std::unique_ptr<QtScreen>> screens_;
  DevanagariConverters devanagari_;
  AudioDeviceFactory audioFactory_;
  MessageBoxResponder responder_;
  DetailedMessageBoxResponder detailedResponder_;
  ChoiceResponder choiceResponder_;
  FileChooser fileChooser_;
  std::string lastProposedSaveName_;
  std::string notationFamily_;
};

// The Qt window system of this process (the one set by setWindowSystem).
QtWindowSystem& qtWindowSystem();

}  // namespace platform
