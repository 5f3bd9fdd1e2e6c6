// Previews in a program that has no windows: its application object is the plain one, and Qt makes
// no pixmaps there.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>

#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "standalone/kernel/HostState.h"
#include "standalone/rendering/RenderWidget.h"

using namespace kuStandalone;

namespace {

TEST(PreviewWithoutWindows, IsRendered) {
  HostState::the().renderSetting = 1;
  kuVariantSet set("A");
  kuVariants::renderVariantSetPreview(&set, false, false, false);
  EXPECT_EQ(QImage::fromData(set.getPreview()).size(), QSize(264, 256));
}

TEST(PreviewWithoutWindows, IsEmptyWhereItWouldBeTakenFromAFrame) {
  const RenderWidget widget(QSize(8, 8));
  kuVariantSet set("A");
  set.setPreview("former");
  kuVariants::renderVariantSetPreview(&set, true, false, false);
  EXPECT_EQ(set.getPreview(), QByteArray());
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
