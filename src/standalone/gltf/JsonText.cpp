#include "standalone/gltf/JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <unordered_set>
#include <vector>

#include "standalone/gltf/GltfJson.h"

namespace kuStandalone {
namespace {

/** The parser's own is 1024. */
constexpr std::size_t maximalDepth = 1000;

class JsonText {
 public:
  explicit JsonText(const QByteArray& text) : _text(text) {}

  void check() {
    for (; _at < _text.size(); ++_at) {
      switch (_text[_at]) {
        case '{':
        case '[':
          open();
          break;
        case '}':
        case ']':
          if (!_open.empty()) _open.pop_back();
          break;
        case '"':
          takeText();
          break;
        case ':':
          nameMember();
          break;
        default:
          break;
      }
    }
  }

 private:
  void open() {
    if (_open.size() == maximalDepth) {
      throw GltfRefusal("byte " + std::to_string(_at), "is nested too deeply");
    }
    _open.emplace_back();
  }

  /** The text from the quote at _at, which moves to the closing one. */
  void takeText() {
    const int start = _at;
    bool escapes = false;
    for (++_at; _at < _text.size() && _text[_at] != '"'; ++_at) {
      if (_text[_at] != '\\') continue;
      escapes = true;
      ++_at;
    }
    _last = _text.mid(start, _at - start + 1);
    if (escapes) _last = plain(_last);
  }

  /** The same name may be written in many ways with escapes. */
  static QByteArray plain(const QByteArray& quoted) {
    const QJsonArray list = QJsonDocument::fromJson("[" + quoted + "]").array();
    return '"' + list.at(0).toString().toUtf8() + '"';
  }

  void nameMember() {
    if (_open.empty() || _open.back().insert(_last.toStdString()).second) return;
    throw GltfRefusal("byte " + std::to_string(_at),
                      "the member " + _last.toStdString() + " is there twice");
  }

  const QByteArray& _text;
  int _at = 0;
  /** The text that was read last: before a colon the member's name. */
  QByteArray _last;
  /** The names of the members so far, of each object or array that is open. */
  std::vector<std::unordered_set<std::string>> _open;
};

}  // namespace

void checkJsonText(const QByteArray& text) { JsonText(text).check(); }

}  // namespace kuStandalone
