// Somebody else in a session, for the tests: takes part in it, obeys lines on standard input, and
// prints what happens. Ends with its input.
//
//   sessionPartner URL SESSION NAME

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSocketNotifier>
#include <QTimer>
#include <cstdio>

#include "host/session/kuSession.h"
#include "standalone/StandaloneHost.h"
#include "standalone/kernel/HostState.h"
#include "standalone/session/Session.h"
#include "support/SessionEvents.h"
#include "support/SessionNotes.h"

using kuStandalone::Session;

namespace {

constexpr int kLongestLife = 110'000;

void print(const QString& line) {
  std::printf("%s\n", line.toUtf8().constData());
  std::fflush(stdout);
}

void obey(const QString& line) {
  const QString verb = line.section(' ', 0, 0), target = line.section(' ', 1, 1);
  const QString text = line.section(' ', 2);
  if (verb == "push") kuSession::the().pushCommand(NoteCommand(target, text));
  if (verb == "pushPassing") kuSession::the().pushCommand(PassingNoteCommand(target, text));
  if (verb == "pushUrgent") kuSession::the().pushCommand(UrgentNoteCommand(target, text));
  if (verb == "pushNesting") kuSession::the().pushCommand(NestingNoteCommand(target, text));
  if (verb == "script") Session::present()->pushScript(line.mid(7).toUtf8());
  if (verb == "busy") kuStandalone::HostState::the().busy = target == "on";
  if (verb == "die") _exit(1);
  if (verb == "quit") QCoreApplication::quit();
  const QJsonDocument notes(QJsonArray::fromStringList(sessionNotes()));
  print(verb == "notes" ? "notes " + notes.toJson(QJsonDocument::Compact) : "done " + verb);
}

/** Reads what is there; false at the end of the input. */
bool readInput(QByteArray& input) {
  char bytes[4096];
  const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
  if (count <= 0) return false;
  input.append(bytes, int(count));
  while (input.contains('\n')) {
    const int end = input.indexOf('\n');
    const QString line = QString::fromUtf8(input.left(end));
    input.remove(0, end + 1);
    obey(line);
  }
  return true;
}

int takePart(const QStringList& arguments) {
  kuStandalone::SessionOptions options = testOptions(arguments[1], arguments[2], arguments[3]);
  const Session::Joining joining = Session::join(
      options, [](const kuStandalone::SessionEvent& event) { print(eventText(event)); });
  if (!joining.session) {
    print("error " + joining.error);
    return 6;
  }
  QByteArray input;
  QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [&] {
    if (!readInput(input)) QCoreApplication::quit();
  });
  QTimer::singleShot(kLongestLife, [] { QCoreApplication::exit(1); });
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;
  return takePart(QCoreApplication::arguments());
}
