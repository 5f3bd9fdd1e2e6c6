#pragma once

#include <QByteArray>
#include <QSocketNotifier>
#include <QTimer>
#include <functional>

/**
 * The lines of a file descriptor, each told in a turn of the event loop of its own, so that other
 * things happen in between. No more is kept than the longest line that is allowed.
 */
class LineInput {
 public:
  struct Receiver {
    /** Without the line feed. A last line may lack one. */
    std::function<void(const QByteArray& line)> line;
    /** A line was longer; it is passed over. */
    std::function<void()> tooLong;
    /** Nothing comes any more. */
    std::function<void()> end;
  };

  /** In bytes. */
  static constexpr int longestLine = 4096;

  /** Tells nothing until it goes on. */
  LineInput(int descriptor, Receiver receiver);

  /** Tells nothing more until it goes on. */
  void pause();
  void goOn();

 private:
  void read();
  void keep(const QByteArray& bytes);
  void tellNext();
  void tellEnd();
  void watch();

  int _descriptor;
  Receiver _receiver;
  QSocketNotifier _readable;
  QTimer _next;
  QByteArray _kept;
  bool _isPaused = true;
  bool _isAtEnd = false;
  /** Within a line of which the beginning was dropped. */
  bool _isSkipping = false;
};
