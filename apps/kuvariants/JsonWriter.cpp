#include "JsonWriter.h"

#include <charconv>
#include <cmath>

#include "Text.h"

void JsonWriter::key(const QString& name) {
  begin();
  _text += '"' + escaped(name) + "\": ";
  _afterKey = true;
}

void JsonWriter::value(const QString& text) { raw('"' + escaped(text) + '"'); }

void JsonWriter::value(float number) {
  if (!std::isfinite(number)) return null();
  char text[32];
  const std::to_chars_result end = std::to_chars(text, text + sizeof text, number);
  raw(std::string(text, end.ptr));
}

void JsonWriter::open(char bracket, Layout layout) {
  begin();
  const bool inLine = !_levels.empty() && _levels.back().layout == Layout::OneLine;
  _text += bracket;
  _levels.push_back({inLine ? Layout::OneLine : layout});
}

void JsonWriter::close(char bracket) {
  const Level level = _levels.back();
  _levels.pop_back();
  if (level.layout == Layout::Lines && !level.empty) newLine();
  _text += bracket;
}

void JsonWriter::raw(const std::string& token) {
  begin();
  _text += token;
}

void JsonWriter::begin() {
  if (_afterKey || _levels.empty()) {
    _afterKey = false;
    return;
  }
  Level& level = _levels.back();
  if (!level.empty) _text += level.layout == Layout::Lines ? "," : ", ";
  level.empty = false;
  if (level.layout == Layout::Lines) newLine();
}

void JsonWriter::newLine() {
  _text += '\n';
  _text.append(2 * _levels.size(), ' ');
}
