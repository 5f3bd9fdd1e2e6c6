#include "support/MessageRecorder.h"

#include <QString>
#include <algorithm>
#include <iterator>

namespace {

template <class List, class Text>
std::string listText(const List& list, Text text) {
  std::string result = "[";
  for (const auto& entry : list) {
    if (result.size() > 1) result += ",";
    result += text(entry);
  }
  return result + "]";
}

}  // namespace

MessageRecorder::MessageRecorder(PointerName pointerName)
    : _pointerName(std::move(pointerName)),
      _watch([this](const kuStandalone::PassedMessage& message) {
        _lines.push_back(line(message));
      }) {}

std::vector<std::string> MessageRecorder::linesOf(const std::string& name) const {
  std::vector<std::string> result;
  std::copy_if(_lines.begin(), _lines.end(), std::back_inserter(result),
               [&](const std::string& text) { return text.rfind(name + "/", 0) == 0; });
  return result;
}

std::string MessageRecorder::line(const kuStandalone::PassedMessage& message) const {
  if (message.name.empty()) return "#" + std::to_string(message.record->number());
  std::string text = message.name + "/" + std::to_string(message.mode);
  if (!message.hasRecord) return text + " bare";
  for (const kuMessage::Attribute& attribute : message.record->attributes()) {
    text += " " + attribute.first + ":" + valueText(attribute.second);
  }
  return text;
}

std::string MessageRecorder::valueText(const boost::any& value) const {
  if (const auto* text = boost::any_cast<std::string>(&value)) return "string=" + *text;
  if (const auto* text = boost::any_cast<const char*>(&value)) return "chars=" + std::string(*text);
  if (const auto* flag = boost::any_cast<bool>(&value)) {
    return std::string("bool=") + (*flag ? "true" : "false");
  }
  if (const auto* list = boost::any_cast<std::vector<std::string>>(&value)) {
    return "strings=" + listText(*list, [](const std::string& text) { return text; });
  }
  if (const auto* list = boost::any_cast<std::vector<QString>>(&value)) {
    return "qstrings=" + listText(*list, [](const QString& text) { return text.toStdString(); });
  }
  if (const auto* pointer = boost::any_cast<void*>(&value)) {
    return "void*=" + (_pointerName ? _pointerName(*pointer) : "pointer");
  }
  return std::string("unexpected type ") + value.type().name();
}
