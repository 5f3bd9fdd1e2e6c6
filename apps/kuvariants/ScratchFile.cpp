#include "ScratchFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "Failure.h"

namespace {

[[noreturn]] void fail() {
  const int error = errno;
  throw Failure{ExitCode::OutputNotWritten, "cannot write", "file in memory", std::strerror(error),
                error};
}

}  // namespace

ScratchFile::ScratchFile() : _descriptor(memfd_create("kuvariants", MFD_CLOEXEC)) {
  if (_descriptor < 0) fail();
}

ScratchFile::~ScratchFile() { close(_descriptor); }

std::string ScratchFile::path() const { return "/proc/self/fd/" + std::to_string(_descriptor); }

std::string ScratchFile::content() const {
  std::string all;
  std::array<char, 65536> part;
  ssize_t count = 0;
  while ((count = pread(_descriptor, part.data(), part.size(), static_cast<off_t>(all.size()))) > 0)
    all.append(part.data(), static_cast<std::size_t>(count));
  if (count < 0) fail();
  return all;
}
