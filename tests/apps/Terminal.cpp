#include "Terminal.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>
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

/** Whether there is something to read, or the other side has closed the terminal. */
bool hasNews(int terminal) {
  constexpr int milliseconds = 60000;
  pollfd news{terminal, POLLIN, 0};
  return poll(&news, 1, milliseconds) > 0;
}

/** All that comes until the other side closes the terminal. */
std::string converse(int terminal, const std::vector<Typing>& typings) {
  std::string screen;
  std::size_t seen = 0;
  auto next = typings.begin();
  char buffer[4096];
  while (hasNews(terminal)) {
    const ssize_t count = read(terminal, buffer, sizeof buffer);
    if (count <= 0) return screen;
    screen.append(buffer, std::size_t(count));
    if (next == typings.end() || screen.find(next->after, seen) == std::string::npos) continue;
    seen = screen.size();
    std::this_thread::sleep_for(std::chrono::milliseconds(next->milliseconds));
    EXPECT_EQ(write(terminal, next->text.data(), next->text.size()), ssize_t(next->text.size()));
    ++next;
  }
  ADD_FAILURE() << "nothing came any more behind:\n" << screen;
  return screen;
}

}  // namespace

TerminalResult runOnTerminal(const QString& folder, const QStringList& arguments,
                             const std::vector<Typing>& typings) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) become(folder, arguments);
  TerminalResult result;
  if (child < 0) {
    ADD_FAILURE() << "there is no terminal";
    return result;
  }
  result.screen =
      QString::fromStdString(converse(terminal, typings)).replace("\r\n", "\n").toStdString();
  if (::testing::Test::HasFailure()) kill(child, SIGKILL);
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  close(terminal);
  if (WIFEXITED(status)) result.code = WEXITSTATUS(status);
  return result;
}

TerminalResult runOnTerminal(const QString& folder, const QStringList& arguments,
                             const std::string& typed) {
  return runOnTerminal(folder, arguments, {Typing{"[y/N] ", typed}});
}
