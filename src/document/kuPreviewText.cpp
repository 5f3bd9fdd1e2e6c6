#include "document/kuPreviewText.h"

#include <QBuffer>
#include <QDomElement>
#include <QGuiApplication>
#include <QImageReader>
#include <QPixmap>
#include <cstdio>

namespace {

constexpr int shortText = 80;

/**
 * Whether the picture may be decoded at all. A few bytes can claim a picture that fills the memory,
 * and many such previews would take the whole day.
 */
bool isModest(const QByteArray& file) {
  constexpr int longestSide = 4096;
  constexpr qint64 pixelsPerByte = 256;
  QBuffer buffer;
  buffer.setData(file);
  const QSize size = QImageReader(&buffer).size();
  if (size.isEmpty() || size.width() > longestSide || size.height() > longestSide) return false;
  return qint64(size.width()) * size.height() <= pixelsPerByte * file.size();
}

/** Decodes the picture once and drops it. */
void tryPicture(const QByteArray& file) {
  // Pixmaps need the application of a window system.
  if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()) || !isModest(file)) return;
  QPixmap().loadFromData(file);
}

void print(const QByteArray& text) {
  std::printf("\t%s\n", text.constData());
  std::fflush(stdout);
}

}  // namespace

QByteArray kuReadPreview(const QDomElement& element) {
  const QDomCDATASection section = element.firstChild().toCDATASection();
  if (section.isNull()) return QByteArray();
  const QByteArray text = section.data().toLatin1();
  if (text.size() < shortText) print(text);
  QByteArray file = QByteArray::fromBase64(text);
  tryPicture(file);
  return file;
}
