#include <gtest/gtest.h>

#include <QApplication>

#include "standalone/StandaloneHost.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;
  return RUN_ALL_TESTS();
}
