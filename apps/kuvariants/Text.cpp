#include "Text.h"

#include <QVector>
#include <algorithm>
#include <cstdio>
#include <numeric>
#include <utility>
#include <vector>

namespace {

bool prints(uint c) {
  constexpr uint lineSeparator = 0x2028, paragraphSeparator = 0x2029;
  return QChar::isPrint(c) && c != lineSeparator && c != paragraphSeparator;
}

/** The short escape of a character, or 0 if it has none. */
char shortEscape(uint c) {
  switch (c) {
    case '"':
    case '\\':
      return static_cast<char>(c);
    case '\b':
      return 'b';
    case '\f':
      return 'f';
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    case '\t':
      return 't';
    default:
      return 0;
  }
}

void appendUnit(std::string& out, ushort unit) {
  char text[8];
  std::snprintf(text, sizeof text, "\\u%04x", unit);
  out += text;
}

bool isQuoting(uint c) { return c == '"' || c == '\\'; }

void appendEscaped(std::string& out, uint c) {
  if (const char letter = shortEscape(c)) {
    out += {'\\', letter};
  } else if (prints(c)) {
    out += QString::fromUcs4(&c, 1).toStdString();
  } else if (QChar::requiresSurrogates(c)) {
    appendUnit(out, QChar::highSurrogate(c));
    appendUnit(out, QChar::lowSurrogate(c));
  } else {
    appendUnit(out, static_cast<ushort>(c));
  }
}

bool isPlain(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) {
    return c >= QLatin1Char(' ') && c <= QLatin1Char('~') && c != QLatin1Char('"') &&
           c != QLatin1Char('\\');
  });
}

/** The number of letters to insert, remove or exchange that make one text of the other. */
int distance(const QString& a, const QString& b) {
  std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
  std::iota(row.begin(), row.end(), 0);
  for (int i = 0; i < a.size(); ++i) {
    int diagonal = std::exchange(row[0], i + 1);
    for (int j = 0; j < b.size(); ++j) {
      const std::size_t at = static_cast<std::size_t>(j);
      const int exchanged = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[at + 1];
      row[at + 1] = std::min({exchanged, row[at] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string escaped(const QString& text) {
  if (isPlain(text)) return text.toStdString();
  std::string out;
  for (const uint c : text.toUcs4())
    appendEscaped(out, c);
  return out;
}

std::string escaped(const std::string& utf8) { return escaped(QString::fromStdString(utf8)); }

std::string onOneLine(const std::string& utf8) {
  std::string out;
  for (const uint c : QString::fromStdString(utf8).toUcs4()) {
    if (isQuoting(c)) {
      out += static_cast<char>(c);
    } else {
      appendEscaped(out, c);
    }
  }
  return out;
}

std::string escapedList(const QStringList& texts) {
  std::string out;
  for (const QString& text : texts)
    out += (out.empty() ? "" : ", ") + escaped(text);
  return out;
}

QStringList nearestNames(const QString& name, const QStringList& names) {
  constexpr int longestName = 200, most = 3;
  if (name.size() > longestName) return {};
  const int limit = std::max(2, name.size() / 3);
  std::vector<std::pair<int, QString>> near;
  for (const QString& candidate : names) {
    if (std::abs(candidate.size() - name.size()) > limit) continue;
    const int away = distance(name.toCaseFolded(), candidate.toCaseFolded());
    if (away <= limit && away < std::max(name.size(), 1)) near.emplace_back(away, candidate);
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  QStringList result;
  for (const auto& entry : near) {
    if (result.size() < most && !result.contains(entry.second)) result += entry.second;
  }
  return result;
}
