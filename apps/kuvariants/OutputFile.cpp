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
#include "standalone/kernel/SystemError.h"

namespace {

/** Answers 0, or the error's number. */
int writeDirectly(const std::string& path, const std::string& content) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
  if (descriptor < 0) return errno;
  const int error = writeAll(descriptor, content);
  const int closed = close(descriptor) == 0 ? 0 : errno;
  return error ? error : closed;
}

/** Goes on after a part was written: only the next attempt tells why there is no more room. */
bool writeWhole(QSaveFile& file, const std::string& content) {
  qint64 written = 0;
  const qint64 size = static_cast<qint64>(content.size());
  while (written < size) {
    const qint64 count = file.write(content.data() + written, size - written);
    if (count <= 0) return false;
    written += count;
  }
  return file.flush();
}

}  // namespace

OutputFile::OutputFile(std::string path) : _path(std::move(path)) {}

OutputFile::~OutputFile() = default;

bool OutputFile::isStandardOutput(const std::string& path) {
  return path == "/dev/stdout" || path == "/dev/fd/1" || path == "/proc/self/fd/1";
}

bool OutputFile::isSpecial(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

void OutputFile::check(const std::string& path) {
  if (!isSpecial(path)) OutputFile(path).prepare({});
}

void OutputFile::prepare(const std::string& content) {
  if (isStandardOutput(_path)) {
    writeToStandardOutput(content);
    return;
  }
  if (isSpecial(_path)) {
    if (const int error = writeDirectly(_path, content)) fail(std::strerror(error), error);
    return;
  }
  _file = std::make_unique<QSaveFile>(QFile::decodeName(_path.c_str()));
  if (!_file->open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeWhole(*_file, content)) {
    failAsFile();
  }
}

void OutputFile::writeToStandardOutput(const std::string& content) const {
  // Before it is given back it leads to standard error, and what stands behind that is not ours.
  if (!Output::isGivenBack()) fail("standard output has the result alone");
  if (const int error = Output::writeGivenBack(content)) fail(std::strerror(error), error);
}

void OutputFile::put() {
  if (_file && !_file->commit()) failAsFile();
}

void OutputFile::fail(const std::string& reason, int systemError) const {
  throw Failure{ExitCode::OutputNotWritten, "cannot write", _path, reason, systemError};
}

void OutputFile::failAsFile() const {
  const int systemError = kuStandalone::systemErrorOf(*_file);
  fail(_file->errorString().toStdString(), systemError);
}
