// Tests that need the toolkit run in one program with one application object and no screen.
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef Q_OS_WIN
  qputenv("QT_QPA_FONTDIR", "C:/Windows/Fonts");  // where the toolkit does not look without a screen
#endif
  QApplication application(argc, argv);
  QApplication::setApplicationName("The Title");
  QApplication::setApplicationVersion("2.5.7");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
