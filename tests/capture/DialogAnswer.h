#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <vector>

/**
 * Answers every message box that shows by what a user would do, as long as it lives, and notes what
 * was shown. There is no waiting: the answer comes once the box runs.
 */
class DialogAnswer : public QObject {
 public:
  using Act = std::function<void(QMessageBox&)>;

  struct Shown {
    QString title, text;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    QString yes, no;
    Qt::WindowFlags flags;
    QWidget* parent;
    bool modal;
    /** The shape of the override cursor, -1 for none. */
    int cursor;
  };

  explicit DialogAnswer(Act act) : _act(std::move(act)) { qApp->installEventFilter(this); }
  explicit DialogAnswer(QMessageBox::StandardButton button)
      : DialogAnswer([button](QMessageBox& box) { box.button(button)->click(); }) {}

  std::vector<Shown> shown;

 private:
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(object) : nullptr;
    if (!box) return false;
    shown.push_back({box->windowTitle(), box->text(), box->icon(), box->standardButtons(),
                     textOf(*box, QMessageBox::Yes), textOf(*box, QMessageBox::No),
                     box->windowFlags(), box->parentWidget(), box->isModal(), cursorShape()});
    QTimer::singleShot(0, box, [this, box] { _act(*box); });
    return false;
  }

  static QString textOf(const QMessageBox& box, QMessageBox::StandardButton button) {
    return box.button(button) ? box.button(button)->text() : QString();
  }
  static int cursorShape() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor ? cursor->shape() : -1;
  }

  Act _act;
};
