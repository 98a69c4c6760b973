// Qt backend of the window system (see qt_window_system.h).
#include "platform/qt/qt_window_system.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>
#include <QFileDialog>
#include <QPushButton>
#include <QFontDatabase>
#include <QMessageBox>
#include <QDir>
#include <QProgressDialog>
#include <QScreen>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "platform/audio.h"
#include "platform/qt/qt_screen.h"
#include "platform/screendef.h"

namespace platform {

QtWindowSystem::QtWindowSystem(std::string screensDir) : screensDir_(std::move(screensDir)) {}

QtWindowSystem::~QtWindowSystem() = default;

QtWindowSystem& qtWindowSystem() { return static_cast<QtWindowSystem&>(windowSystem()); }

Screen& QtWindowSystem::screen(const std::string& name) {
  auto it = screens_.find(name);
  if (it != screens_.end()) return *it->second;
  ScreenParseError error;
  auto def = loadScreenDefinition(screensDir_ + "/" + name + ".screen", &error);
  if (!def)
    throw ProgramError("The screen definition of '" + name + "' cannot be used: " + error.message);
  auto screen = std::make_unique<QtScreen>(std::move(*def));
  Screen& result = *screen;
  screens_.emplace(name, std::move(screen));
  return result;
}

int QtWindowSystem::messageBox(const std::string& text, int style, const std::string& title) {
  return messageBoxWithDetail(text, style, title, "");
}

int QtWindowSystem::messageBoxWithDetail(const std::string& text, int style,
                                         const std::string& title, const std::string& detail) {
  if (detailedResponder_) return detailedResponder_(text, style, title, detail);
  if (responder_) return responder_(text, style, title);
  QMessageBox box;
  box.setWindowTitle(QString::fromStdString(title));
  box.setText(QString::fromStdString(text));
  if (!detail.empty()) box.setDetailedText(QString::fromStdString(detail));
  switch (style & 0x70) {
    case kMsgCritical: box.setIcon(QMessageBox::Critical); break;
    case kMsgQuestion: box.setIcon(QMessageBox::Question); break;
    case kMsgExclamation: box.setIcon(QMessageBox::Warning); break;
    case kMsgInformation: box.setIcon(QMessageBox::Information); break;
    default: break;
  }
  if ((style & 0x7) == kMsgYesNo) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? kAnswerYes : kAnswerNo;
  }
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
  return kAnswerOk;
}

int QtWindowSystem::askChoice(const std::string& text, const std::string& title,
                              const std::vector<std::string>& choices) {
  if (choiceResponder_) return choiceResponder_(text, choices);
  QMessageBox box;
  box.setWindowTitle(QString::fromStdString(title));
  box.setText(QString::fromStdString(text));
  box.setIcon(QMessageBox::Question);
  std::vector<QAbstractButton*> buttons;
  for (const std::string& choice : choices)
    buttons.push_back(box.addButton(QString::fromStdString(choice), QMessageBox::AcceptRole));
  box.exec();
  for (std::size_t i = 0; i < buttons.size(); ++i)
    if (box.clickedButton() == buttons[i]) return static_cast<int>(i);
  return -1;
}

std::string QtWindowSystem::chooseFileToOpen(const std::string& title, const std::string& folder,
                                             const std::string& nameFilter) {
  if (fileChooser_) return fileChooser_(title);
  return QFileDialog::getOpenFileName(nullptr, QString::fromStdString(title), QString::fromStdString(folder),
                                      QString::fromStdString(nameFilter))
      .toStdString();
}

float QtWindowSystem::screenWidth() const {
  QScreen* s = QGuiApplication::primaryScreen();
  return s ? float(s->geometry().width()) : 1366.0f;
}

float QtWindowSystem::screenHeight() const {
  QScreen* s = QGuiApplication::primaryScreen();
  return s ? float(s->geometry().height()) : 768.0f;
}

std::vector<std::string> QtWindowSystem::fontFamilies() const {
  std::vector<std::string> families;
  for (const QString& f : QFontDatabase::families()) families.push_back(f.toStdString());
  if (!notationFamily_.empty()) families.push_back(kNotationFontName);
  return families;
}

// Makes the font file available for this run. A font that can write
// Devanagari becomes the notation font.
bool QtWindowSystem::openDocument(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

// The save dialog; the file chooser a harness installs answers it too.
std::string QtWindowSystem::chooseFileToSave(const std::string& title, const std::string& folder,
                                             const std::string& proposedName, const std::string& nameFilter) {
  lastProposedSaveName_ = proposedName;
  if (fileChooser_) return fileChooser_(title);
  const QString start = QDir(QString::fromStdString(folder)).filePath(QString::fromStdString(proposedName));
  return QFileDialog::getSaveFileName(nullptr, QString::fromStdString(title), start, QString::fromStdString(nameFilter))
      .toStdString();
}

// The job runs on a thread of its own; this thread keeps the box alive,
// shows the job's progress in thousandths and passes Cancel on.
void QtWindowSystem::runWithProgress(const std::string& caption,
                                     const std::function<void(const ProgressReport&)>& job) {
  constexpr int kSteps = 1000;
  QProgressDialog box(QString::fromStdString(caption), QStringLiteral("Cancel"), 0, kSteps);
  box.setWindowModality(Qt::ApplicationModal);
  box.setMinimumDuration(300);
  std::atomic<int> done{0};
  std::atomic<bool> cancelled{false}, finished{false};
  std::thread worker([&] {
    job([&](double fraction) {
      done = static_cast<int>(std::clamp(fraction, 0.0, 1.0) * kSteps);
      return !cancelled.load();
    });
    finished = true;
  });
  while (!finished) {
    box.setValue(std::min(done.load(), kSteps - 1));
    if (box.wasCanceled()) cancelled = true;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  worker.join();
}

int QtWindowSystem::addFontResource(const std::string& path) {
  int id = QFontDatabase::addApplicationFont(QString::fromStdString(path));
  if (id < 0) return 0;
  QStringList families = QFontDatabase::applicationFontFamilies(id);
  for (const QString& family : families) {
    if (QFontDatabase::writingSystems(family).contains(QFontDatabase::Devanagari)) {
      notationFamily_ = family.toStdString();
      break;
    }
  }
  return static_cast<int>(families.size());
}

void QtWindowSystem::processEvents() { QCoreApplication::processEvents(); }

void QtWindowSystem::endProcess(int code) { std::_Exit(code); }

void QtWindowSystem::setDevanagariConverters(DevanagariConverters converters) {
  devanagari_ = std::move(converters);
}

void QtWindowSystem::setAudioDeviceFactory(AudioDeviceFactory factory) {
  audioFactory_ = std::move(factory);
}

void QtWindowSystem::setMessageBoxResponder(MessageBoxResponder responder) {
  responder_ = std::move(responder);
}

void QtWindowSystem::setChoiceResponder(ChoiceResponder responder) {
  choiceResponder_ = std::move(responder);
}

void QtWindowSystem::setFileChooser(FileChooser chooser) { fileChooser_ = std::move(chooser); }

void QtWindowSystem::setDetailedMessageBoxResponder(DetailedMessageBoxResponder responder) {
  detailedResponder_ = std::move(responder);
}

std::unique_ptr<AudioDevice> QtWindowSystem::createAudioDevice() const {
  return audioFactory_ ? audioFactory_() : nullptr;
}

}  // namespace platform
