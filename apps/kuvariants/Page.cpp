#include "Page.h"

#include "Text.h"

namespace {

constexpr int width = 80;
constexpr int labelWidth = 12;

}  // namespace

std::string wrapped(const std::vector<std::string>& items, int indent) {
  std::string text;
  int column = indent;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const bool last = i + 1 == items.size();
    const int length = QString::fromStdString(items[i]).size() + (last ? 0 : 1);
    if (i > 0 && column + 1 + length > width) {
      text += '\n' + std::string(static_cast<std::size_t>(indent), ' ');
      column = indent;
    } else if (i > 0) {
      text += ' ';
      ++column;
    }
    text += items[i] + (last ? "" : ",");
    column += length;
  }
  return text + '\n';
}

std::string field(const std::string& label, const std::vector<std::string>& items) {
  if (items.empty()) return {};
  const int indent = 4 + labelWidth;
  std::string lead = "    " + label;
  lead.resize(static_cast<std::size_t>(indent), ' ');
  return lead + wrapped(items, indent);
}

std::string field(const std::string& label, const QString& text) {
  return text.isEmpty() ? std::string() : field(label, {escaped(text)});
}

std::string section(const std::string& heading, const std::string& content) {
  return content.empty() ? std::string() : heading + '\n' + content + '\n';
}

std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}
