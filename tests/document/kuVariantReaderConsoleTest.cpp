// Reading in a program that has no windows: its application object is the plain one, and Qt ends a
// process that makes a pixmap there.

#include <gtest/gtest.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>

#include "document/kuVariantReader.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

namespace {

QByteArray pictureFile() {
  QImage picture(16, 16, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  picture.save(&file, "PNG");
  return file.data();
}

TEST(ReaderWithoutWindows, KeepsThePreview) {
  const QByteArray file = pictureFile();
  const QByteArray text = "<Variants><VariantSet name='A'><Preview><![CDATA[" + file.toBase64() +
                          "]]></Preview></VariantSet></Variants>";
  kuVariantReader().read(text.constData());
  ASSERT_TRUE(kuVariants::findVariantSet("A"));
  EXPECT_FALSE(file.isEmpty());
  EXPECT_EQ(kuVariants::findVariantSet("A")->getPreview(), file);
  kuVariants::clearVariantSets();
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
