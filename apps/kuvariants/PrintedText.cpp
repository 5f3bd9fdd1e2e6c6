#include "PrintedText.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "Failure.h"

PrintedText::PrintedText() : _former(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
  std::fflush(stdout);
  dup2(_file.descriptor(), STDOUT_FILENO);
}

PrintedText::~PrintedText() {
  std::fflush(stdout);
  dup2(_former, STDOUT_FILENO);
  close(_former);
}

std::string PrintedText::text() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
    throw Failure{ExitCode::OutputNotWritten, "cannot write", "standard output",
                  "what the library prints could not be kept"};
  }
  return _file.content();
}
