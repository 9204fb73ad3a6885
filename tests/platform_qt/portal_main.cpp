#include <gtest/gtest.h>

#include <QGuiApplication>

#include "platform_qt/fake_portal.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const quill::portal_test::SessionBus bus;  // its address is in the environment before Qt looks for a bus
  const QGuiApplication app(argc, argv);
  return RUN_ALL_TESTS();
}
