#include "joining/LineInput.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

LineInput::LineInput(int descriptor, Receiver receiver)
    : _descriptor(descriptor),
      _receiver(std::move(receiver)),
      _readable(descriptor, QSocketNotifier::Read) {
  _readable.setEnabled(false);
  _next.setSingleShot(true);
  QObject::connect(&_readable, &QSocketNotifier::activated, &_readable, [this] { read(); });
  QObject::connect(&_next, &QTimer::timeout, &_next, [this] { tellNext(); });
}

void LineInput::pause() {
  _isPaused = true;
  _readable.setEnabled(false);
  _next.stop();
}

void LineInput::goOn() {
  _isPaused = false;
  watch();
}

/** What was read comes first; only then is more read. */
void LineInput::watch() {
  const bool hasLine = _kept.contains('\n') || _isAtEnd;
  _readable.setEnabled(!_isPaused && !hasLine);
  if (!_isPaused && hasLine) _next.start(0);
}

void LineInput::read() {
  char bytes[longestLine];
  const ssize_t count = ::read(_descriptor, bytes, sizeof bytes);
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (count <= 0) {
    _isAtEnd = true;
  } else {
    keep(QByteArray(bytes, static_cast<int>(count)));
  }
  watch();
}

void LineInput::keep(const QByteArray& bytes) {
  _kept += bytes;
  if (_isSkipping) {
    const int end = _kept.indexOf('\n');
    _isSkipping = end < 0;
    _kept = _isSkipping ? QByteArray() : _kept.mid(end + 1);
  }
  if (!_kept.contains('\n') && _kept.size() > longestLine) {
    _kept.clear();
    _isSkipping = true;
    _receiver.tooLong();
  }
}

void LineInput::tellNext() {
  const int end = _kept.indexOf('\n');
  if (end < 0) return tellEnd();
  const QByteArray line = _kept.left(end);
  _kept.remove(0, end + 1);
  if (line.size() > longestLine) {
    _receiver.tooLong();
  } else {
    _receiver.line(line);
  }
  watch();
}

void LineInput::tellEnd() {
  const QByteArray last = std::exchange(_kept, QByteArray());
  if (!last.isEmpty()) {
    _receiver.line(last);
    return watch();
  }
  pause();
  _receiver.end();
}
