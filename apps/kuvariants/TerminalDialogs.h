#pragma once

#include <QBasicTimer>
#include <QMessageBox>
#include <QObject>
#include <QPointer>

class QProgressDialog;

/**
 * The user of a command has no window: while this lives, a question that the library asks is
 * answered on the terminal, or as the command line says, and its progress dialogue is a line on the
 * terminal.
 */
class TerminalDialogs : public QObject {
 public:
  /** How questions are answered. Ask answers "no" where there is no terminal to ask on. */
  enum class Answer { Yes, No, Ask };

  explicit TerminalDialogs(Answer answer);
  ~TerminalDialogs() override;

  /** Whether a question was answered "no". */
  bool refused() const { return _refused; }

  /** Tells on standard error that a script's capture did nothing for that. */
  void tellRefusal() const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void answer(QMessageBox& box);
  bool isYes(const QMessageBox& box) const;
  void showProgress(const QProgressDialog& dialog);
  void hideProgress();

  /** The question that waits, and what ends its wait. */
  QPointer<QMessageBox> _box;
  QBasicTimer _timer;
  const Answer _answer;
  bool _refused = false;
  bool _progressShown = false;
};
