#include "OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>
#include <cerrno>
#include <cstring>

#include "Failure.h"
#include "Output.h"

namespace {

/** Answers 0, or the error's number. */
int writeDirectly(const std::string& path, const std::string& content) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
  if (descriptor < 0) return errno;
  const int error = writeAll(descriptor, content);
  const int closed = close(descriptor) == 0 ? 0 : errno;
  return error ? error : closed;
}

/** What does not fit may be written in part, without a reason; the rest then tells it. */
bool writeWhole(QSaveFile& file, const std::string& content) {
  qint64 written = 0;
  while (written < static_cast<qint64>(content.size())) {
    const qint64 count =
        file.write(content.data() + written, static_cast<qint64>(content.size()) - written);
    if (count <= 0) return false;
    written += count;
  }
  return file.flush();
}

}  // namespace

OutputFile::OutputFile(std::string path) : _path(std::move(path)) {}

OutputFile::~OutputFile() = default;

bool OutputFile::isSpecial(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

void OutputFile::check(const std::string& path) {
  if (!isSpecial(path)) OutputFile(path).prepare({});
}

void OutputFile::prepare(const std::string& content) {
  if (isSpecial(_path)) {
    if (const int error = writeDirectly(_path, content)) fail(std::strerror(error));
    return;
  }
  _file = std::make_unique<QSaveFile>(QFile::decodeName(_path.c_str()));
  if (!_file->open(QIODevice::WriteOnly) || !writeWhole(*_file, content)) {
    fail(_file->errorString().toStdString());
  }
}

void OutputFile::put() {
  if (_file && !_file->commit()) fail(_file->errorString().toStdString());
}

void OutputFile::fail(const std::string& reason) const {
  throw Failure{ExitCode::OutputNotWritten, "cannot write", _path, reason};
}
