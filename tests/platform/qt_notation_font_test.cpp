// Controls in the notation font show Unicode Devanagari for the stored
// key-map words, and what the user types there comes back as key-map words.
// The test also leaves a picture of a notation box (qt_notation_font.png in
// the working folder) for a person to look at.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <filesystem>
#include <fstream>

#include "notation/devanagari.h"
#include "notation/vocabulary.h"
#include "platform/qt/qt_screen.h"
#include "platform/qt/qt_window_system.h"

namespace fs = std::filesystem;

namespace {

class NotationFont : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("nadavik-font-" + std::to_string(::getpid()));
    fs::create_directories(dir_);
    std::ofstream(dir_ / "Notation.screen")
        << "screen Notation id=0 caption=\"Notation\"\n"
           "label cNotation at=0.02,0.05 size=0.96,0.4 font=Shusha,20\n"
           "textbox cEdit at=0.02,0.55 size=0.96,0.3 font=Shusha,20\n"
           "label cEnglish at=0.02,0.9 size=0.5,0.05\n";
    windows_ = std::make_unique<platform::QtWindowSystem>(dir_.string());
    windows_->setDevanagariConverters({fKeymapToUnicode, fUnicodeToKeymap});
    platform::setWindowSystem(windows_.get());
    sInitScales();
  }
  void TearDown() override {
    windows_.reset();
    fs::remove_all(dir_);
  }

  platform::Screen& screen() { return windows_->screen("Notation"); }
  QWidget* widget(const char* name) {
    return static_cast<platform::QtScreen&>(screen()).drawingArea()->findChild<QWidget*>(name);
  }

  fs::path dir_;
  std::unique_ptr<platform::QtWindowSystem> windows_;
};

TEST_F(NotationFont, TheDebianDevanagariFontBecomesTheNotationFont) {
  ASSERT_EQ(windows_->addFontResource(NADAVIK_DATA_DIR "/Shusha.ttf"), 1);
  const auto families = windows_->fontFamilies();
  EXPECT_NE(std::find(families.begin(), families.end(), "Shusha"), families.end());
  EXPECT_EQ(windows_->addFontResource(dir_.string() + "/missing.ttf"), 0);
}

TEST_F(NotationFont, LabelsShowDevanagariAndKeepTheKeymapText) {
  windows_->addFontResource(NADAVIK_DATA_DIR "/Shusha.ttf");
  std::string phrase;
  for (int id = 7; id <= 31; ++id) phrase += gNoteDev[id] + " ";
  phrase += ": " + gNoteDev[12] + "'" + gNoteDev[14];
  platform::Control& notation = screen().control("cNotation");
  notation.setCaption(phrase);
  EXPECT_EQ(notation.caption(), phrase);
  auto* label = static_cast<QLabel*>(widget("cNotation"));
  EXPECT_EQ(label->text().toStdString(), fKeymapToUnicode(phrase));
  EXPECT_NE(label->text().toStdString().find("सा"), std::string::npos);
  EXPECT_EQ(label->font().family().toStdString(), windows_->notationFamily());

  screen().control("cEnglish").setCaption("S R G m P");
  EXPECT_EQ(static_cast<QLabel*>(widget("cEnglish"))->text(), "S R G m P");

  screen().setWidth(900);
  screen().setHeight(260);
  static_cast<platform::QtScreen&>(screen()).drawingArea()->window()->grab().save(
      "qt_notation_font.png");
}

TEST_F(NotationFont, WhatTheUserTypesInDevanagariReadsAsKeymapWords) {
  windows_->addFontResource(NADAVIK_DATA_DIR "/Shusha.ttf");
  auto* edit = static_cast<QLineEdit*>(widget("cEdit"));
  edit->setText(QString::fromStdString(fKeymapToUnicode(gNoteDev[12] + " " + gNoteDev[13])));
  EXPECT_EQ(screen().control("cEdit").text(), gNoteDev[12] + " " + gNoteDev[13]);
  edit->setText("saa ro\\");  // key-map letters typed directly stay as they are
  EXPECT_EQ(screen().control("cEdit").text(), "saa ro\\");
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
