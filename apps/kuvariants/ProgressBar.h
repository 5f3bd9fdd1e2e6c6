#pragma once

#include <QElapsedTimer>
#include <QString>

/**
 * A bar on the terminal with the share that is done and the time left. Where standard error is no
 * terminal, nothing shows.
 */
class ProgressBar {
 public:
  /** @param work of all parts together, in any unit. */
  explicit ProgressBar(double work);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /** The next part begins. */
  void begin(const QString& label, double work);
  /** Shows how far it is, from 0 to 1. */
  void show(double share);
  /** The part is done; the line is empty until the next one shows. */
  void end();

 private:
  std::string line(double share) const;

  const bool _onTerminal;
  const double _allWork;
  double _doneWork = 0, _partWork = 0;
  QString _label;
  bool _visible = false;
  QElapsedTimer _time;
};
