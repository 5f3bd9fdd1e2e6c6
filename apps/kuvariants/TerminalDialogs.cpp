#include "TerminalDialogs.h"

#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTimer>
#include <iostream>
#include <string>

#include "Output.h"

namespace {

bool isOnTerminal() { return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1; }

void print(const QString& text) { writeAll(STDERR_FILENO, text.toStdString()); }

/** A line that begins with "y", in either case; "no" at the end of input. */
bool readYes() {
  std::string line;
  return std::getline(std::cin, line) && !line.empty() && (line[0] == 'y' || line[0] == 'Y');
}

}  // namespace

TerminalDialogs::TerminalDialogs(Answer answer) : _answer(answer) {
  qApp->installEventFilter(this);
}

TerminalDialogs::~TerminalDialogs() { hideProgress(); }

bool TerminalDialogs::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::Show) {
    if (auto* box = qobject_cast<QMessageBox*>(object)) {
      // Its own event loop begins only behind this.
      QTimer::singleShot(0, box, [this, box] { answer(*box); });
    } else if (const auto* dialog = qobject_cast<QProgressDialog*>(object)) {
      showProgress(*dialog);
    }
  } else if (event->type() == QEvent::Hide && qobject_cast<QProgressDialog*>(object)) {
    hideProgress();
  }
  return false;
}

void TerminalDialogs::answer(QMessageBox& box) {
  const bool yes = isYes(box);
  if (!yes) _refused = true;
  box.button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
}

bool TerminalDialogs::isYes(const QMessageBox& box) const {
  if (_answer != Answer::Ask) return _answer == Answer::Yes;
  if (!isOnTerminal()) return false;
  print(box.windowTitle() + "\n\n" + box.text().trimmed() + "\n\n" +
        box.button(QMessageBox::Yes)->text() + "? [y/N] ");
  return readYes();
}

void TerminalDialogs::showProgress(const QProgressDialog& dialog) {
  if (isatty(STDERR_FILENO) != 1) return;
  _progressShown = true;
  print("\r" + dialog.labelText() + "\x1b[K");
}

void TerminalDialogs::hideProgress() {
  if (_progressShown) print(QStringLiteral("\r\x1b[K"));
  _progressShown = false;
}
