#include <gtest/gtest.h>

#include <QProcess>

// The library may go whenever the application likes, and Python must not call what is gone.

namespace {

std::string outputOf(const char* when) {
  QProcess child;
  child.start(KU_UNLOAD_CHILD, {when, KU_VARIANTS_LIBRARY});
  EXPECT_TRUE(child.waitForFinished(60000)) << child.errorString().toStdString();
  EXPECT_EQ(child.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(child.exitCode(), 0);
  EXPECT_EQ(child.readAllStandardError().toStdString(), "");
  return child.readAllStandardOutput().toStdString();
}

TEST(LibraryModules, OfALibraryThatIsGoneBeforeTheStartAreNotThere) {
  EXPECT_EQ(outputOf("before"),
            "unloaded\n"
            "'kuVariants' in __import__('sys').builtin_module_names: False\n"
            "'selectVariantSet' in globals(): False\n");
}

TEST(LibraryModules, KeepTheirLibraryOnceTheyAreOffered) {
  EXPECT_EQ(outputOf("after"),
            "loaded\n"
            "'kuVariants' in __import__('sys').builtin_module_names: True\n"
            "'selectVariantSet' in globals(): True\n"
            "(selectVariantSet('Red'), kuVariantSetPtr().getName()): (None, '')\n");
}

}  // namespace
