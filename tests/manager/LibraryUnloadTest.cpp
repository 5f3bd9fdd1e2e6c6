#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>

// The library's static objects register with a host that was there before them and outlives them.

TEST(LibraryUnloadTest, LibraryHearsTheHostWhileItIsLoadedAndLeavesNothingBehind) {
  QProcess probe;
  probe.start(KU_UNLOAD_PROBE, {KU_VARIANTS_LIBRARY});
  ASSERT_TRUE(probe.waitForFinished(60000)) << probe.errorString().toStdString();
  EXPECT_EQ(probe.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(probe.exitCode(), 0);
  EXPECT_EQ(probe.readAllStandardError().toStdString(), "");
  const std::string loaded =
      "clearAllVariants/1\nnodeVariantChanged/1\nmaterialVariantChanged/1\nlightVariantChanged/1\n"
      "overlayVariantChanged/1\ntransformVariantChanged/0\nvariantSetChanged/1\n"
      "variantGroupChanged/1\nloaded: received, SelectVariant, SelectVariantSet\n"
      "unloaded\n"
      "clearAllVariants/1\nafter: nobody\n";
  EXPECT_EQ(probe.readAllStandardOutput().toStdString(),
            "clearAllVariants/1\nbefore: nobody\n" + loaded + loaded);
}
