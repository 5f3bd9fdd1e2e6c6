#include "TerminalDialogs.h"

#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <iostream>
#include <string>

#include "Diagnostics.h"
#include "Output.h"
#include "ProgressLine.h"

namespace {

bool isOnTerminal() { return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1; }

void print(const QString& text) { writeAll(STDERR_FILENO, text.toStdString()); }

/** "y" or "yes", in any case; everything else is a "no", and so is the end of input. */
bool readYes() {
  std::string line;
  if (!std::getline(std::cin, line)) {
    print(QStringLiteral("\n"));
    return false;
  }
  const QString answer = QString::fromStdString(line).trimmed().toLower();
  return answer == "y" || answer == "yes";
}

/** The lines of a question that warn, where nobody is shown the question itself. */
void printWarnings(const QMessageBox& box) {
  for (const QString& line : box.text().split('\n')) {
    if (line.startsWith("Warning: ")) {
      printDiagnostic("warning: " + line.mid(line.indexOf(' ') + 1).toStdString());
    }
  }
}

}  // namespace

TerminalDialogs::TerminalDialogs(Answer answer) : _answer(answer) {
  qApp->installEventFilter(this);
}

TerminalDialogs::~TerminalDialogs() { hideProgress(); }

void TerminalDialogs::tellRefusal() const {
  if (!_refused) return;
  printDiagnostic(
      "warning: a script's capture did nothing: nodes share a name, and the question "
      "whether to rename them was answered \"no\"");
}

bool TerminalDialogs::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::Show) {
    if (auto* box = qobject_cast<QMessageBox*>(object)) {
      // Its own event loop begins only behind this.
      _box = box;
      _timer.start(0, this);
    } else if (const auto* dialog = qobject_cast<QProgressDialog*>(object)) {
      showProgress(*dialog);
    }
  } else if (event->type() == QEvent::Hide && qobject_cast<QProgressDialog*>(object)) {
    hideProgress();
  }
  return false;
}

void TerminalDialogs::timerEvent(QTimerEvent*) {
  _timer.stop();
  if (_box) answer(*_box);
}

void TerminalDialogs::answer(QMessageBox& box) {
  const bool yes = isYes(box);
  if (!yes) _refused = true;
  box.button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
}

bool TerminalDialogs::isYes(const QMessageBox& box) const {
  if (_answer == Answer::Yes) printWarnings(box);
  if (_answer != Answer::Ask) return _answer == Answer::Yes;
  if (!isOnTerminal()) return false;
  print(box.windowTitle() + "\n\n" + box.text().trimmed() + "\n\n" +
        box.button(QMessageBox::Yes)->text() + "? [y/N] ");
  return readYes();
}

void TerminalDialogs::showProgress(const QProgressDialog& dialog) {
  if (isatty(STDERR_FILENO) != 1) return;
  _progressShown = true;
  // One that is deleted without being hidden is no progress dialogue any more when it tells.
  connect(&dialog, &QObject::destroyed, this, &TerminalDialogs::hideProgress);
  ProgressLine::show(dialog.labelText().toStdString());
}

void TerminalDialogs::hideProgress() {
  if (_progressShown) ProgressLine::hide();
  _progressShown = false;
}
