#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

/**
 * Writes JSON as a stream, members in the order in which they are given. What an object or an array
 * holds is written by the function handed to it:
 *
 *   json.object([&] {
 *     json.entry("name", name);
 *     json.key("children");
 *     json.array(children, [&](const Node& child) { write(json, child); });
 *   });
 */
class JsonWriter {
 public:
  /** One member per line, or all of them on one; what stands inside a line stays on it. */
  enum class Layout { Lines, OneLine };

  template <class Members>
  void object(Members members, Layout layout = Layout::Lines) {
    open('{', layout);
    members();
    close('}');
  }

  template <class Range, class Item>
  void array(const Range& range, Item item, Layout layout = Layout::Lines) {
    open('[', layout);
    for (const auto& member : range)
      item(member);
    close(']');
  }

  /** An array of texts, numbers or flags, on one line. */
  template <class Range>
  void list(const Range& range) {
    array(
        range, [this](const auto& member) { value(member); }, Layout::OneLine);
  }

  /** The name of the next member of an object; its value follows. */
  void key(const QString& name);

  void value(const QString& text);
  void value(const std::string& utf8) { value(QString::fromStdString(utf8)); }
  void value(const char* utf8) { value(QString::fromUtf8(utf8)); }
  void value(bool flag) { raw(flag ? "true" : "false"); }
  /** Null for a number that is not finite. */
  void value(float number);
  template <class Integer, class = std::enable_if_t<std::is_integral<Integer>::value>>
  void value(Integer number) {
    raw(std::to_string(number));
  }
  void null() { raw("null"); }

  template <class Value>
  void entry(const QString& name, const Value& content) {
    key(name);
    value(content);
  }

  const std::string& text() const { return _text; }

 private:
  struct Level {
    Layout layout;
    bool empty = true;
  };

  void open(char bracket, Layout layout);
  void close(char bracket);
  void raw(const std::string& token);
  /** Begins the next member: the comma, the line, the indentation. */
  void begin();
  void newLine();

  std::string _text;
  std::vector<Level> _levels;
  bool _afterKey = false;
};
