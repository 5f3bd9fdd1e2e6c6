#include "Terminal.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace {

[[noreturn]] void become(const QString& folder, const QStringList& arguments) {
  std::vector<std::string> texts{KUVARIANTS_EXECUTABLE};
  for (const QString& argument : arguments)
    texts.push_back(argument.toStdString());
  std::vector<char*> pointers;
  for (std::string& text : texts)
    pointers.push_back(&text[0]);
  pointers.push_back(nullptr);
  if (chdir(folder.toUtf8().constData()) == 0) execv(pointers[0], pointers.data());
  _exit(127);
}

/** All that comes until the other side closes the terminal. */
std::string converse(int terminal, const std::string& typed) {
  std::string screen;
  bool isTyped = false;
  char buffer[4096];
  for (;;) {
    const ssize_t count = read(terminal, buffer, sizeof buffer);
    if (count <= 0) return screen;
    screen.append(buffer, std::size_t(count));
    if (isTyped || screen.find("[y/N] ") == std::string::npos) continue;
    isTyped = true;
    EXPECT_EQ(write(terminal, typed.data(), typed.size()), ssize_t(typed.size()));
  }
}

}  // namespace

TerminalResult runOnTerminal(const QString& folder, const QStringList& arguments,
                             const std::string& typed) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) become(folder, arguments);
  TerminalResult result;
  if (child < 0) {
    ADD_FAILURE() << "there is no terminal";
    return result;
  }
  result.screen =
      QString::fromStdString(converse(terminal, typed)).replace("\r\n", "\n").toStdString();
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  close(terminal);
  if (WIFEXITED(status)) result.code = WEXITSTATUS(status);
  return result;
}
