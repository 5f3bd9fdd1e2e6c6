#include "Output.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Failure.h"

namespace {

/** A file that is opened must not come to stand where a standard stream was closed. */
void fillClosedStreams() {
  int descriptor = 0;
  while (descriptor >= 0 && descriptor <= STDERR_FILENO)
    descriptor = open("/dev/null", O_RDWR);
  if (descriptor > STDERR_FILENO) close(descriptor);
}

bool waitUntilWritable(int descriptor) {
  pollfd ready{descriptor, POLLOUT, 0};
  return poll(&ready, 1, -1) > 0 || errno == EINTR;
}

bool givenBack = false;
bool isThere = false;

}  // namespace

int writeAll(int descriptor, const std::string& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
    if (count >= 0) {
      written += static_cast<std::size_t>(count);
    } else if (errno != EINTR && !(errno == EAGAIN && waitUntilWritable(descriptor))) {
      return errno;
    }
  }
  return 0;
}

Output::Output() : _descriptor(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
  fillClosedStreams();
  dup2(STDERR_FILENO, STDOUT_FILENO);
}

Output::~Output() {
  if (_descriptor >= 0) close(_descriptor);
}

bool Output::giveBack() {
  givenBack = true;
  isThere = _descriptor >= 0 && dup2(_descriptor, STDOUT_FILENO) >= 0;
  return isThere;
}

bool Output::isGivenBack() { return givenBack; }

int Output::writeGivenBack(const std::string& bytes) {
  return isThere ? writeAll(STDOUT_FILENO, bytes) : EBADF;
}

bool Output::isTerminal() const { return isatty(_descriptor) == 1; }

void Output::write(const std::string& text) {
  const int error = writeAll(_descriptor, text);
  if (error == 0) return;
  throw Failure{ExitCode::OutputNotWritten, "cannot write", "standard output", std::strerror(error),
                error};
}
