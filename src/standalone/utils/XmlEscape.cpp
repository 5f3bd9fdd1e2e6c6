#include "standalone/utils/XmlEscape.h"

namespace kuStandalone {

namespace {

constexpr uint replacement = 0xFFFD;

/** The characters that XML 1.0 allows (production "Char"). */
bool isAllowed(uint character) {
  if (character < 0x20) return character == 0x9 || character == 0xA || character == 0xD;
  if (character < 0xD800) return true;
  return character >= 0xE000 && character != 0xFFFE && character != 0xFFFF;
}

/** Whether the text may stand as it is: nearly all names do. */
bool isPlain(const QString& text) {
  for (const QChar character : text) {
    const ushort unit = character.unicode();
    if (unit < 0x20 || unit >= 0xD800 || unit == '<' || unit == '&' || unit == '"' || unit == '>')
      return false;
  }
  return true;
}

bool isWhiteSpace(const QString& text) {
  for (const QChar character : text) {
    if (!character.isSpace()) return false;
  }
  return !text.isEmpty();
}

void append(uint character, QString& to) {
  if (QChar::requiresSurrogates(character)) {
    to += QChar(QChar::highSurrogate(character));
    to += QChar(QChar::lowSurrogate(character));
  } else {
    to += QChar(ushort(character));
  }
}

/** The named form of a character, or null. */
const char* entityOf(uint character) {
  switch (character) {
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '&':
      return "&amp;";
    case '"':
      return "&quot;";
    default:
      return nullptr;
  }
}

}  // namespace

uint XmlEscape::next(const QString& text, int& at) {
  const QChar first = text[at++];
  uint character = first.unicode();
  if (first.isHighSurrogate() && at < text.size() && text[at].isLowSurrogate())
    character = QChar::surrogateToUcs4(first, text[at++]);
  if (isAllowed(character)) return character;
  _replaced = true;
  return replacement;
}

void XmlEscape::attribute(const QString& text, QString& to) {
  if (isPlain(text)) {
    to += text;
    return;
  }
  for (int at = 0; at < text.size();) {
    const uint character = next(text, at);
    if (const char* entity = entityOf(character)) {
      to += QLatin1String(entity);
    } else if (character < 0x20) {
      to += QStringLiteral("&#%1;").arg(character);
    } else {
      append(character, to);
    }
  }
}

void XmlEscape::content(const QString& text, QString& to) {
  if (isWhiteSpace(text)) {
    cdata(text, to);
    return;
  }
  if (isPlain(text)) {
    to += text;
    return;
  }
  for (int at = 0; at < text.size();) {
    const uint character = next(text, at);
    if (character == '"') {
      to += QLatin1Char('"');
    } else if (const char* entity = entityOf(character)) {
      to += QLatin1String(entity);
    } else if (character == '\r') {
      to += QLatin1String("&#13;");  // a reader would make it a line feed
    } else {
      append(character, to);
    }
  }
}

void XmlEscape::cdata(const QString& text, QString& to) {
  QString safe;
  safe.reserve(text.size());
  for (int at = 0; at < text.size();)
    append(next(text, at), safe);
  safe.replace(QLatin1String("]]>"), QLatin1String("]]]]><![CDATA[>"));
  to += QLatin1String("<![CDATA[") + safe + QLatin1String("]]>");
}

bool XmlEscape::replaced() {
  const bool was = _replaced;
  _replaced = false;
  return was;
}

}  // namespace kuStandalone
