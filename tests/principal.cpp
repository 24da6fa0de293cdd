// Runs the tests that need the toolkit, offscreen.
#include <gtest/gtest.h>

#include <QApplication>

int main(int nombre, char **mots) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(nombre, mots);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&nombre, mots);
  return RUN_ALL_TESTS();
}
