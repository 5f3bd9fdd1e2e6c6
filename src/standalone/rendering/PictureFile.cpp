#include "standalone/rendering/PictureFile.h"

#include <png.h>

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <atomic>
#include <mutex>

namespace kuStandalone {

namespace {

constexpr int maximalSide = 16384;
const QByteArray pngSignature("\x89PNG\r\n\x1a\n", 8);
const QByteArray jpegSignature("\xff\xd8\xff", 3);

bool fits(qint64 width, qint64 height) { return width <= maximalSide && height <= maximalSide; }

/** As long as one lives, Qt's warnings in this thread are dropped. */
class QuietQt {
 public:
  QuietQt() {
    const std::lock_guard<std::mutex> guard(_lock);
    if (_count++ == 0) _former = qInstallMessageHandler(handle);
    ++_inThisThread;
  }
  ~QuietQt() {
    const std::lock_guard<std::mutex> guard(_lock);
    --_inThisThread;
    if (--_count == 0) qInstallMessageHandler(_former);
  }
  QuietQt(const QuietQt&) = delete;
  QuietQt& operator=(const QuietQt&) = delete;

 private:
  static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (_inThisThread && type != QtFatalMsg) return;
    if (const QtMessageHandler former = _former) former(type, context, text);
  }

  static std::mutex _lock;
  static int _count;
  static std::atomic<QtMessageHandler> _former;
  static thread_local int _inThisThread;
};

std::mutex QuietQt::_lock;
int QuietQt::_count = 0;
std::atomic<QtMessageHandler> QuietQt::_former{nullptr};
thread_local int QuietQt::_inThisThread = 0;

/** The file without the chunks that are not of the picture itself; cut where one reaches out. */
QByteArray essence(const QByteArray& file) {
  QByteArray kept = pngSignature;
  for (qint64 at = kept.size(); at + 12 <= file.size();) {
    const qint64 size = qint64(qFromBigEndian<quint32>(file.constData() + at)) + 12;
    if (size > file.size() - at) break;
    const QByteArray type = file.mid(int(at) + 4, 4);
    if (type == "IHDR" || type == "PLTE" || type == "tRNS" || type == "IDAT" || type == "IEND")
      kept += file.mid(int(at), int(size));
    at += size;
  }
  return kept;
}

/** By libpng itself: Qt leaves it to write its errors to standard error. */
QImage decodePng(const QByteArray& file) {
  const QByteArray bytes = essence(file);
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  QImage image;
  if (!png_image_begin_read_from_memory(&png, bytes.constData(), size_t(bytes.size())))
    return image;
  png.format = PNG_FORMAT_RGBA;
  png.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
  if (fits(png.width, png.height))
    image = QImage(int(png.width), int(png.height), QImage::Format_RGBA8888);
  const bool whole = !image.isNull() && png_image_finish_read(&png, nullptr, image.bits(),
                                                              image.bytesPerLine(), nullptr);
  png_image_free(&png);
  return whole ? image : QImage();
}

QImage decodeJpeg(const QByteArray& file) {
  const QuietQt quiet;
  QBuffer device;
  device.setData(file);
  QImageReader reader(&device, "jpeg");
  reader.setAutoDetectImageFormat(false);
  const QSize size = reader.size();
  return fits(size.width(), size.height()) ? reader.read() : QImage();
}

}  // namespace

QImage decodePicture(const QByteArray& file) {
  if (file.startsWith(pngSignature)) return decodePng(file);
  return file.startsWith(jpegSignature) ? decodeJpeg(file) : QImage();
}

}  // namespace kuStandalone
