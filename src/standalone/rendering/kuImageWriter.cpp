#include "host/rendering/kuImageWriter.h"

#include <QBuffer>

#include "standalone/kernel/HostState.h"
#include "standalone/rendering/ScenePictures.h"

using namespace kuStandalone;

struct kuImageWriter::Export {
  bool begun = false;
  int width = 0, height = 0;
  /** Samples per pixel; 0 takes what the render setting asks for. */
  int quality = 0;
  bool noProgress = false;
  /** Without effect: nothing is written that another file could stand in the place of. */
  bool noOverwriteMessage = false;
};

namespace {

std::string pngFile(const QImage& picture) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  picture.save(&file, "PNG");
  return file.data().toStdString();
}

}  // namespace

kuImageWriter::kuImageWriter() : _export(std::make_unique<Export>()) {
  ++HostState::the().exports.writers;
}

kuImageWriter::~kuImageWriter() { --HostState::the().exports.writers; }

void kuImageWriter::setNoProgress(bool none) { _export->noProgress = none; }

void kuImageWriter::setNoOverwriteMessage(bool none) { _export->noOverwriteMessage = none; }

void kuImageWriter::exportImageFastInit(int width, int height, int quality) {
  _export->begun = true;
  _export->width = width;
  _export->height = height;
  _export->quality = quality;
  PictureExports& exports = HostState::the().exports;
  ++exports.begun;
  exports.width = width;
  exports.height = height;
  exports.quality = quality;
  exports.noProgress = _export->noProgress;
  exports.noOverwriteMessage = _export->noOverwriteMessage;
}

std::string kuImageWriter::exportImageFast() {
  if (!_export->begun) return std::string();
  PictureSettings settings;
  settings.width = _export->width;
  settings.height = _export->height;
  settings.samples = _export->quality > 0 ? _export->quality : ScenePictures::samples();
  // A copy: the application may change its own while it is told.
  const Renderer::Progress progress =
      _export->noProgress ? Renderer::Progress() : HostState::the().exportProgress;
  if (progress && !progress(0)) return std::string();
  const QImage picture = ScenePictures::the().take(settings, progress);
  if (picture.isNull()) return std::string();
  if (progress) progress(1);
  ++HostState::the().exports.done;
  return pngFile(picture);
}

void kuImageWriter::exportImageFastTerminate() {
  if (!_export->begun) return;
  _export->begun = false;
  ++HostState::the().exports.ended;
}
