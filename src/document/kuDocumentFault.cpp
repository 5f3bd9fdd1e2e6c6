#include "document/kuDocumentFault.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

constexpr std::size_t longestText = 512u * 1024 * 1024;
constexpr int deepestElement = 500;
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

bool startsWith(std::string_view text, std::string_view with) {
  return text.substr(0, with.size()) == with;
}

kuDocumentFault faultAt(std::string_view text, std::size_t at, const QString& what) {
  const std::string_view before = text.substr(0, at);
  const std::size_t lineFeed = before.rfind('\n');
  const std::string_view line =
      lineFeed == std::string_view::npos ? before : before.substr(lineFeed + 1);
  const auto isCharacter = [](char byte) { return (byte & 0xC0) != 0x80; };
  return {what, int(std::count(before.begin(), before.end(), '\n')) + 1,
          int(std::count_if(line.begin(), line.end(), isCharacter)) + 1};
}

/** The encoding that the first line declares, found as the parser finds it: by the first quotes
 * behind the word. */
std::string_view declaredEncoding(std::string_view text) {
  if (startsWith(text, utf8Mark)) text.remove_prefix(utf8Mark.size());
  if (!startsWith(text, "<?xml")) return {};
  const std::string_view declaration = text.substr(0, text.find('>'));
  const std::size_t word = declaration.find("encoding");
  if (word == std::string_view::npos) return {};
  const std::size_t first = declaration.find_first_of("'\"", word);
  if (first == std::string_view::npos) return {};
  const std::size_t last = declaration.find_first_of("'\"", first + 1);
  return declaration.substr(first + 1, last == std::string_view::npos ? last : last - first - 1);
}

/** Whether bytes below 0x80 mean in that encoding what they mean in ASCII, and nothing else does.
 */
bool isAsciiAtHeart(std::string_view encoding) {
  static const QRegularExpression known(
      QStringLiteral("\\A(utf-?8|us-ascii|ascii|latin-?1|iso[-_]?8859-[0-9]{1,2}"
                     "|windows-125[0-9]|cp125[0-9])\\z"),
      QRegularExpression::CaseInsensitiveOption);
  if (encoding.empty()) return true;
  return known.match(QString::fromLatin1(encoding.data(), int(encoding.size()))).hasMatch();
}

/** Walks over the markup. Past the first thing that is not well-formed it may go astray: so far
 * the parser does not get. */
class Markup {
 public:
  explicit Markup(std::string_view text) : _text(text) {}

  std::optional<kuDocumentFault> fault();

 private:
  bool ahead(std::string_view what) const { return startsWith(_text.substr(_at), what); }
  void skipBehind(std::string_view what);
  bool skipPassage();
  void skipDocumentType();
  void skipSubset();
  void skipTag();

  std::string_view _text;
  std::size_t _at = 0;
  int _depth = 0;
  QString _fault;
};

std::optional<kuDocumentFault> Markup::fault() {
  while ((_at = std::min(_text.find('<', _at), _text.size())) < _text.size()) {
    if (skipPassage()) continue;
    const std::size_t start = _at;
    if (ahead("<!DOCTYPE")) {
      skipDocumentType();
      if (!_fault.isEmpty()) return faultAt(_text, _at, _fault);
    } else if (ahead("</")) {
      --_depth;
      _at += 2;
    } else {
      skipTag();
      if (_depth > deepestElement) {
        return faultAt(_text, start, QStringLiteral("elements are nested too deeply"));
      }
    }
  }
  return std::nullopt;
}

void Markup::skipBehind(std::string_view what) {
  const std::size_t found = _text.find(what, _at);
  _at = found == std::string_view::npos ? _text.size() : found + what.size();
}

/** Skips what may hold any text: a comment, CDATA or a processing instruction. */
bool Markup::skipPassage() {
  struct Passage {
    std::string_view start;
    std::string_view end;
  };
  static constexpr Passage passages[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
  for (const Passage& passage : passages) {
    if (!ahead(passage.start)) continue;
    _at += passage.start.size();
    skipBehind(passage.end);
    return true;
  }
  return false;
}

void Markup::skipDocumentType() {
  for (_at += 2; _at < _text.size(); ++_at) {
    const char c = _text[_at++];
    if (c == '>') return;
    if (c == '[') skipSubset();
    if (c == '"' || c == '\'') skipBehind(_text.substr(_at - 1, 1));
    if (!_fault.isEmpty()) return;
    --_at;
  }
}

void Markup::skipSubset() {
  while (_at < _text.size()) {
    if (skipPassage()) continue;
    if (ahead("<!ENTITY")) {
      _fault = QStringLiteral("entity declarations are not allowed");
      return;
    }
    const char c = _text[_at++];
    if (c == ']') return;
    if (c == '"' || c == '\'') skipBehind(_text.substr(_at - 1, 1));
  }
}

void Markup::skipTag() {
  for (++_at; _at < _text.size();) {
    const char c = _text[_at++];
    if (c == '"' || c == '\'') skipBehind(_text.substr(_at - 1, 1));
    if (c != '>') continue;
    if (_text[_at - 2] != '/') ++_depth;
    return;
  }
}

}  // namespace

std::optional<kuDocumentFault> kuFindDocumentFault(std::string_view text) {
  if (text.size() > longestText) return kuDocumentFault{QStringLiteral("the text is too long")};
  if (startsWith(text, "\xFF\xFE") || startsWith(text, "\xFE\xFF") ||
      !isAsciiAtHeart(declaredEncoding(text))) {
    return kuDocumentFault{QStringLiteral("the encoding is not supported")};
  }
  return Markup(text).fault();
}
