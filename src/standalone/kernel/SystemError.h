#pragma once

#include <QFileDevice>
#include <cerrno>

namespace kuStandalone {

/**
 * The number of the system's error that a file has just told of; 0 where it told of something else.
 * The reason is compared, since what happened on the way may have set a number of its own.
 */
inline int systemErrorOf(const QFileDevice& file) {
  const int number = errno;
  return file.errorString() == qt_error_string(number) ? number : 0;
}

}  // namespace kuStandalone
