// Controls in the notation font show Unicode Devanagari for the stored
// key-map words, and what the user types there comes back as key-map words.
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

TEST(NotationFont, ShowsDevanagariForKeymapWordsAndReadsTypedDevanagariAsKeymapWords) {
  const fs::path dir = fs::temp_directory_path() / ("nadavik-font-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  std::ofstream(dir / "Notation.screen") << "screen Notation id=0 caption=\"Notation\"\n"
                                            "label cNotation at=0.02,0.05 size=0.96,0.4 font=Shusha,20\n"
                                            "textbox cEdit at=0.02,0.55 size=0.96,0.3 font=Shusha,20\n"
                                            "label cEnglish at=0.02,0.9 size=0.5,0.05\n";
  platform::QtWindowSystem windows(dir.string());
  windows.setDevanagariConverters({fKeymapToUnicode, fUnicodeToKeymap});
  platform::setWindowSystem(&windows);
  sInitScales();
  // The Debian Devanagari font becomes the notation font (its absence is
  // seen by program_test).
  ASSERT_EQ(windows.addFontResource(NADAVIK_DATA_DIR "/Shusha.ttf"), 1);

  platform::Screen& screen = windows.screen("Notation");
  QWidget* area = static_cast<platform::QtScreen&>(screen).drawingArea();
  auto widget = [area](const char* name) { return area->findChild<QWidget*>(name); };
  std::string phrase;
  for (int id = 7; id <= 31; ++id) phrase += gNoteDev[id] + " ";
  phrase += ": " + gNoteDev[12] + "'" + gNoteDev[14];
  screen.control("cNotation").setCaption(phrase);
  EXPECT_EQ(screen.control("cNotation").caption(), phrase);
  auto* label = static_cast<QLabel*>(widget("cNotation"));
  EXPECT_EQ(label->text().toStdString(), fKeymapToUnicode(phrase));
  EXPECT_EQ(label->font().family().toStdString(), windows.notationFamily());
  screen.control("cEnglish").setCaption("S R G m P");
  EXPECT_EQ(static_cast<QLabel*>(widget("cEnglish"))->text(), "S R G m P");

  auto* edit = static_cast<QLineEdit*>(widget("cEdit"));
  edit->setText(QString::fromStdString(fKeymapToUnicode(gNoteDev[12] + " " + gNoteDev[13])));
  EXPECT_EQ(screen.control("cEdit").text(), gNoteDev[12] + " " + gNoteDev[13]);
  edit->setText("saa ro\\");  // key-map letters typed directly stay as they are
  EXPECT_EQ(screen.control("cEdit").text(), "saa ro\\");

  platform::setWindowSystem(nullptr);
  fs::remove_all(dir);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
