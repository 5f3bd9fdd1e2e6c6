#include "PicturePage.h"

#include <algorithm>

#include "PageStyle.h"

namespace {

/** In place of what no page may hold. */
QChar readable(QChar c) {
  const bool control = (c < QChar(0x20) && c != '\n' && c != '\t') || c == QChar(0x7f);
  return control || c == QChar(0xfffe) || c == QChar(0xffff) ? QChar(QChar::ReplacementCharacter)
                                                             : c;
}

QString html(QString text) {
  std::transform(text.begin(), text.end(), text.begin(), readable);
  return text.toHtmlEscaped();
}

/** An element whose text comes from the document, in whatever direction it is written. */
QString element(const char* name, const QString& text) {
  if (text.isEmpty()) return {};
  return QStringLiteral("<%1 dir=\"auto\">%2</%1>\n").arg(QLatin1String(name), html(text));
}

QString cardOf(const SetPicture& picture, const PageSettings& settings) {
  const QString image =
      QStringLiteral("<img src=\"%1\" alt=\"%2\" width=\"%3\" height=\"%4\" loading=\"lazy\"/>")
          .arg(picture.file, html(picture.set), QString::number(settings.picture.width),
               QString::number(settings.picture.height));
  QString card =
      QStringLiteral("<figure>\n<a href=\"%1\">%2</a>\n<figcaption>\n").arg(picture.file, image);
  card += QStringLiteral("<div class=\"name\">\n") + element("h3", picture.set) +
          element("kbd", picture.hotkey) + QStringLiteral("</div>\n");
  return card + element("p", picture.comment) + QStringLiteral("</figcaption>\n</figure>\n");
}

std::vector<QString> groupsOf(const std::vector<SetPicture>& pictures) {
  std::vector<QString> groups;
  for (const SetPicture& picture : pictures) {
    if (std::find(groups.begin(), groups.end(), picture.group) == groups.end()) {
      groups.push_back(picture.group);
    }
  }
  return groups;
}

QString sectionOf(const QString& group, const std::vector<SetPicture>& pictures,
                  const PageSettings& settings) {
  QString cards, comment;
  for (const SetPicture& picture : pictures) {
    if (picture.group != group) continue;
    cards += cardOf(picture, settings);
    comment = picture.groupComment;
  }
  const QString heading = group.isEmpty() ? QStringLiteral("In no group") : group;
  return QStringLiteral("<section>\n") + element("h2", heading) + element("p", comment) +
         QStringLiteral("<div class=\"sets\">\n") + cards + QStringLiteral("</div>\n</section>\n");
}

QString introduction(std::size_t count, const PageSettings& settings) {
  QString text = count == 0   ? QStringLiteral("No variant sets")
                 : count == 1 ? QStringLiteral("1 variant set")
                              : QStringLiteral("%1 variant sets").arg(count);
  text += QStringLiteral(" of %1 on %2").arg(settings.document, settings.scene);
  if (settings.cumulative) text += QStringLiteral(", each on top of the one before");
  return text;
}

}  // namespace

QString picturePage(const std::vector<SetPicture>& pictures, const PageSettings& settings) {
  QString page = QStringLiteral(
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
      "<meta name=\"color-scheme\" content=\"light dark\"/>\n");
  page += QStringLiteral("<title>%1</title>\n<style>\n%2</style>\n</head>\n<body>\n<header>\n")
              .arg(html(settings.document), QLatin1String(pageStyle));
  page += element("h1", settings.document) + element("p", introduction(pictures.size(), settings)) +
          QStringLiteral("</header>\n<main>\n");
  for (const QString& group : groupsOf(pictures))
    page += sectionOf(group, pictures, settings);
  return page + QStringLiteral("</main>\n</body>\n</html>\n");
}
