#include <gtest/gtest.h>

#include <QApplication>

#include "equation_world.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const int failed = RUN_ALL_TESTS();
  quill::test::EquationWorld::EndWarm();
  return failed;
}
