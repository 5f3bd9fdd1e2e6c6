#include "standalone/script/LogText.h"

#include <QString>

#include "host/kernel/kuLog.h"
#include "standalone/script/ScriptPolicy.h"

namespace kuStandalone {

namespace {

/** Where to cut so that a character of several bytes is not split. */
std::size_t cutAt(std::string_view text, std::size_t maxBytes) {
  std::size_t end = maxBytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
    --end;
  return end;
}

/** Characters that end a line, change its direction or cannot be seen. */
bool isHidden(QChar character) {
  switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return true;
    default:
      return false;
  }
}

}  // namespace

std::string oneLine(std::string_view text, std::size_t maxBytes) {
  const bool cut = text.size() > maxBytes;
  if (cut) text = text.substr(0, cutAt(text, maxBytes));
  QString line = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
  for (QChar& character : line) {
    if (isHidden(character)) character = QLatin1Char(' ');
    if (character == QChar::ReplacementCharacter) character = QLatin1Char('?');
  }
  return line.simplified().toStdString() + (cut ? "..." : "");
}

std::string presentScript() {
  const std::string set = ScriptPolicy::presentSet();
  if (set.empty()) return "script";
  return "script of set \"" + oneLine(set, kLogStartBytes) + "\"";
}

void logScriptFailure(const std::string& reason) {
  kuLog::error("%s failed: %s", presentScript().c_str(), oneLine(reason, kLogReasonBytes).c_str());
}

}  // namespace kuStandalone
