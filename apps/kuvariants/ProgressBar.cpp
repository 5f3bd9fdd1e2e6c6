#include "ProgressBar.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "ProgressLine.h"
#include "Text.h"

namespace {

constexpr int barWidth = 24;
/** Columns of everything but the label. */
constexpr int fixedWidth = barWidth + 24;
constexpr double tellAfterSeconds = 1;

int terminalWidth() {
  winsize size{};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

QString percent(double share) {
  return QStringLiteral("%1 %").arg(int(std::floor(share * 100)), 3);
}

QString duration(double seconds) {
  const int whole = int(std::ceil(std::min(seconds, 1e6)));
  return whole < 100 ? QStringLiteral("%1 s").arg(whole)
                     : QStringLiteral("%1 min").arg((whole + 59) / 60);
}

/** Not longer than fits; letters may be two columns wide. */
std::string shortened(const QString& label, int columns) {
  const std::string text = onOneLine(label.toStdString());
  const QString shown = QString::fromStdString(text);
  const bool wide = std::any_of(text.begin(), text.end(), [](char c) { return c < 0; });
  return shown.left(std::max(0, wide ? columns / 2 : columns)).toStdString();
}

}  // namespace

ProgressBar::ProgressBar(double work) : _onTerminal(isatty(STDERR_FILENO) == 1), _allWork(work) {
  _time.start();
}

ProgressBar::~ProgressBar() { end(); }

void ProgressBar::begin(const QString& label, double work) {
  _label = label;
  _partWork = work;
  show(0);
}

void ProgressBar::show(double share) {
  if (!_onTerminal) return;
  _visible = true;
  ProgressLine::show(line((_doneWork + share * _partWork) / _allWork));
}

void ProgressBar::end() {
  _doneWork += _partWork;
  _partWork = 0;
  if (_visible) ProgressLine::hide();
  _visible = false;
}

std::string ProgressBar::line(double share) const {
  const double done = std::clamp(share, 0.0, 1.0);
  const int filled = int(done * barWidth);
  QString text = '[' + QString(filled, '=') + QString(barWidth - filled, ' ') + "] ";
  text += percent(done) + "  ";
  const double seconds = double(_time.elapsed()) / 1000;
  if (done > 0 && seconds >= tellAfterSeconds) {
    text += duration(seconds * (1 - done) / done) + " left  ";
  }
  return text.toStdString() + shortened(_label, terminalWidth() - fixedWidth);
}
