#pragma once

#include <QString>
#include <string>

/**
 * The text in UTF-8. As QString::toStdString, but without its intermediate copies where the text
 * is ASCII, as nearly all names are: a selection converts a few names for each of its states.
 */
inline std::string kuUtf8(const QString& text) {
  const ushort* units = text.utf16();
  const auto length = static_cast<std::size_t>(text.size());
  std::string result(length, '\0');
  unsigned seen = 0;
  for (std::size_t i = 0; i < length; ++i) {
    seen |= units[i];
    result[i] = static_cast<char>(units[i]);
  }
  return seen < 0x80 ? result : text.toStdString();
}
