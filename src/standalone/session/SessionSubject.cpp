#include "standalone/session/SessionSubject.h"

#include <QCryptographicHash>

namespace kuStandalone {

namespace {

constexpr int kLongestWord = 100;

}  // namespace

QByteArray subjectWord(const QByteArray& text) {
  // Behind an equals sign stand two digits otherwise, so these two forms stand for themselves.
  if (text.isEmpty()) return "=-";
  const QByteArray word = text.toPercentEncoding({}, ".", '=');
  if (word.size() <= kLongestWord) return word;
  return "=h" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
}

SessionSubject::SessionSubject(const QString& session) : _word(subjectWord(session.toUtf8())) {}

QByteArray SessionSubject::stream() const { return "ku-" + _word; }

QByteArray SessionSubject::all() const { return "ku." + _word + ".stream.>"; }

QByteArray SessionSubject::command(const QString& type, const QByteArray& key) const {
  return "ku." + _word + ".stream.command." + subjectWord(type.toUtf8()) + "." + subjectWord(key);
}

QByteArray SessionSubject::script() const { return "ku." + _word + ".stream.script"; }

QByteArray SessionSubject::presence() const { return "ku." + _word + ".partner"; }

}  // namespace kuStandalone
