#include "standalone/rendering/PictureFile.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <QStringList>

using namespace kuStandalone;

namespace {

QImage stripes(QImage::Format format = QImage::Format_RGBA8888) {
  QImage image(8, 4, QImage::Format_RGBA8888);
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 8; ++x)
      image.setPixelColor(x, y, QColor(x * 30, y * 60, 200, y % 2 == 1 ? 255 : 100));
  }
  return image.convertToFormat(format);
}

QByteArray fileOf(const QImage& image, const char* format) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&file, format));
  return file.data();
}

QByteArray changed(QByteArray file, int at, char by = 1) {
  file[at] = char(file[at] ^ by);
  return file;
}

/** Decodes, and fails if anything was printed. */
QImage quietly(const QByteArray& file) {
  ::testing::internal::CaptureStderr();
  ::testing::internal::CaptureStdout();
  const QImage image = decodePicture(file);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  return image;
}

}  // namespace

TEST(PictureFile, APngComesBackInEachOfItsPixels) {
  EXPECT_EQ(quietly(fileOf(stripes(), "PNG")), stripes());
}

TEST(PictureFile, EachKindOfPngHasItsPixels) {
  for (const QImage::Format format :
       {QImage::Format_RGB888, QImage::Format_RGBA64, QImage::Format_Grayscale8,
        QImage::Format_Grayscale16, QImage::Format_Indexed8, QImage::Format_Mono}) {
    const QImage image = stripes(format);
    EXPECT_EQ(quietly(fileOf(image, "PNG")), image.convertToFormat(QImage::Format_RGBA8888))
        << format;
  }
}

TEST(PictureFile, ProfilesAndGammaOfAPngAreIgnored) {
  QImage image = stripes();
  image.setColorSpace(QColorSpace::AdobeRgb);
  QByteArray file = fileOf(image, "PNG");
  EXPECT_TRUE(file.contains("iCCP"));
  EXPECT_EQ(quietly(file), stripes());
  // A gamma of 1, right behind the header.
  const QByteArray linear("\0\0\0\x04gAMA\0\x01\x86\xa0\x31\xe8\x96\x5f", 16);
  EXPECT_EQ(quietly(fileOf(stripes(), "PNG").insert(33, linear)), stripes());
}

TEST(PictureFile, ABrokenRemarkInAPngDoesNoHarm) {
  const QByteArray remark("\0\0\0\x04tEXtabcdefgh", 16);
  EXPECT_EQ(quietly(fileOf(stripes(), "PNG").insert(33, remark)), stripes());
}

TEST(PictureFile, AJpegComesBackNearly) {
  const QImage image = quietly(fileOf(stripes(QImage::Format_RGB888), "JPG"));
  ASSERT_EQ(image.size(), QSize(8, 4));
  EXPECT_NEAR(qBlue(image.pixel(4, 2)), 200, 20);
}

TEST(PictureFile, APngOfWhichAnyByteOfThePictureIsWrongIsNone) {
  const QByteArray file = fileOf(stripes(), "PNG");
  const int header = 8, data = file.indexOf("IDAT") - 4, end = file.indexOf("IEND") - 4;
  for (int at = header; at < header + 25; ++at)
    EXPECT_TRUE(quietly(changed(file, at)).isNull()) << at;
  for (int at = data; at < end; ++at)
    EXPECT_TRUE(quietly(changed(file, at)).isNull()) << at;
}

TEST(PictureFile, APngThatEndsBeforeItsDataDoesIsNone) {
  const QByteArray file = fileOf(stripes(), "PNG");
  for (int size = 0; size < file.indexOf("IEND") - 4; ++size)
    EXPECT_TRUE(quietly(file.left(size)).isNull()) << size;
}

TEST(PictureFile, NothingIsPrintedOfABrokenJpeg) {
  const QByteArray file = fileOf(stripes(QImage::Format_RGB888), "JPG");
  for (int at = 0; at < file.size(); ++at) {
    quietly(changed(file, at, '\x55'));
    quietly(file.left(at));
  }
  EXPECT_TRUE(quietly(file.left(20)).isNull());
  EXPECT_TRUE(quietly(QByteArray("\xff\xd8\xff\xe0", 4)).isNull());
}

TEST(PictureFile, OtherFormatsAreNone) {
  for (const char* format : {"BMP", "PPM", "XPM", "XBM"})
    EXPECT_TRUE(quietly(fileOf(stripes(), format)).isNull()) << format;
  EXPECT_TRUE(quietly("GIF89a").isNull());
  EXPECT_TRUE(quietly("").isNull());
}

TEST(PictureFile, APictureOfMoreThan16384PixelsASideIsNone) {
  for (const char* format : {"PNG", "JPG"}) {
    QImage longest(16384, 1, QImage::Format_RGB888), longer(16385, 1, QImage::Format_RGB888),
        higher(1, 16385, QImage::Format_RGB888);
    for (QImage* image : {&longest, &longer, &higher})
      image->fill(Qt::white);
    EXPECT_EQ(quietly(fileOf(longest, format)).size(), QSize(16384, 1)) << format;
    EXPECT_TRUE(quietly(fileOf(longer, format)).isNull()) << format;
    EXPECT_TRUE(quietly(fileOf(higher, format)).isNull()) << format;
  }
}

TEST(PictureFile, QtSpeaksToWhomItDidBefore) {
  static QStringList told;
  const QtMessageHandler own = [](QtMsgType, const QMessageLogContext&, const QString& text) {
    told += text;
  };
  const QtMessageHandler former = qInstallMessageHandler(own);
  decodePicture(QByteArray("\xff\xd8\xff\xe0", 4));
  qWarning("afterwards");
  EXPECT_EQ(qInstallMessageHandler(former), own);
  EXPECT_EQ(told, QStringList{"afterwards"});
}
