#include "PictureFileNames.h"

#include <QRegularExpression>
#include <set>

namespace {

constexpr int longest = 76;  // the ending comes behind

/** Letters without their accents, and a dash for each run of what is not portable. */
QString portable(const QString& name) {
  static const QRegularExpression marks(QStringLiteral("\\p{M}+"));
  static const QRegularExpression others(QStringLiteral("[^A-Za-z0-9._]+"));
  static const QRegularExpression ends(QStringLiteral("\\A[-.]+|[-.]+\\z"));
  QString text = name.normalized(QString::NormalizationForm_KD);
  text.remove(marks).replace(others, QStringLiteral("-")).truncate(longest);
  return text.remove(ends);
}

/** What some system takes for a device, whatever the ending. */
bool isReserved(const QString& text) {
  static const QRegularExpression devices(
      QStringLiteral("\\A(con|prn|aux|nul|com[0-9]|lpt[0-9])(\\..*)?\\z"),
      QRegularExpression::CaseInsensitiveOption);
  return devices.match(text).hasMatch();
}

QString stemOf(const QString& set) {
  const QString text = portable(set);
  if (text.isEmpty()) return QStringLiteral("set");
  return isReserved(text) ? (QStringLiteral("set-") + text).left(longest) : text;
}

}  // namespace

std::map<QString, QString> pictureFileNames(const std::vector<QString>& sets) {
  std::map<QString, QString> names;
  std::set<QString> taken;
  for (const QString& set : sets) {
    const QString stem = stemOf(set);
    QString name = stem;
    for (int number = 2; !taken.insert(name.toLower()).second; ++number) {
      const QString ending = QStringLiteral("-%1").arg(number);
      name = stem.left(longest - ending.size()) + ending;
    }
    names.emplace(set, name + QStringLiteral(".png"));
  }
  return names;
}
