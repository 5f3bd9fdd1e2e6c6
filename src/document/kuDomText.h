#pragma once

#include <QDomDocument>
#include <QString>

/** The form of a flag in a variants document. */
inline QString kuFlagText(bool flag) {
  return flag ? QStringLiteral("true") : QStringLiteral("false");
}

/** Appends an element with a text, be it empty. */
inline void kuAppendText(QDomDocument& document, QDomElement& parent, const QString& tag,
                         const QString& text) {
  QDomElement element = document.createElement(tag);
  element.appendChild(document.createTextNode(text));
  parent.appendChild(element);
}
