#include "host/utils/QKuDomDocumentWriter.h"

#include <QHash>
#include <algorithm>
#include <vector>

#include "host/kernel/kuLog.h"
#include "standalone/utils/XmlEscape.h"

namespace kuStandalone {

namespace {

/** The attributes of a variants document in the order in which they are written. */
const char* const attributeOrder[] = {"name",
                                      "nodePath",
                                      "materialName",
                                      "ref",
                                      "state",
                                      "base",
                                      "comment",
                                      "showinvrmenu",
                                      "synccollaboration",
                                      "visible",
                                      "true",
                                      "default-viewpoint",
                                      "script",
                                      "inclNodes",
                                      "inclMats",
                                      "inclLights",
                                      "inclEnv",
                                      "inclView",
                                      "inclSceneplates",
                                      "clipState",
                                      "clipPlanePositionX",
                                      "clipPlanePositionY",
                                      "clipPlanePositionZ",
                                      "clipPlaneNormalX",
                                      "clipPlaneNormalY",
                                      "clipPlaneNormalZ",
                                      "clipPlaneInvert",
                                      "clipPlaneHideScene",
                                      "clipPlaneShow",
                                      "clipPlaneColorR",
                                      "clipPlaneColorG",
                                      "clipPlaneColorB",
                                      "clipGridShow",
                                      "clipGridColorR",
                                      "clipGridColorG",
                                      "clipGridColorB",
                                      "clipContourShow",
                                      "clipContourColorR",
                                      "clipContourColorG",
                                      "clipContourColorB",
                                      "clipContourWidth"};

/** Place of an attribute among those that are known; the others come behind all of them. */
int rankOf(const QString& attribute) {
  static const QHash<QString, int> ranks = [] {
    QHash<QString, int> made;
    for (const char* name : attributeOrder)
      made.insert(QString::fromLatin1(name), made.size());
    return made;
  }();
  return ranks.value(attribute, ranks.size());
}

/** Whether something but elements stands in it: then blanks between them would be text. */
bool holdsText(const QDomElement& element) {
  for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
    if (child.isText() && !child.nodeValue().isEmpty()) return true;  // CDATA is text too
  }
  return false;
}

/** The element with those around it, for people: VariantSet "Summer" / NodeVariantRef "Roof". */
QString placeOf(const QDomElement& element) {
  QStringList places;
  for (QDomElement at = element; !at.isNull(); at = at.parentNode().toElement()) {
    QString name = at.attribute(QStringLiteral("name"), at.attribute(QStringLiteral("ref")));
    if (name.isEmpty() && !places.isEmpty()) continue;  // the root says nothing
    XmlEscape escape;
    QString safe;
    escape.attribute(name, safe);
    places.prepend(name.isEmpty() ? at.tagName() : at.tagName() + " \"" + safe + '"');
  }
  return places.join(QStringLiteral(" / "));
}

/** Writes a tree of XML, one element per line, with what is inside an element indented. */
class TreeText {
 public:
  QString write(const QDomDocument& document);

 private:
  struct Attribute {
    int rank;
    QString name, value;
    bool operator<(const Attribute& other) const {
      return rank != other.rank ? rank < other.rank : name < other.name;
    }
  };

  void writeDocumentType(const QDomDocument& document);
  void writeElement(const QDomElement& element, int depth);
  void writeAttributes(const QDomElement& element);
  void writeMixed(const QDomElement& element);
  void writeChildren(const QDomElement& element, int depth);
  void warnIfReplaced(const QDomElement& element, const QString& field);

  QString _text;
  XmlEscape _escape;
  std::vector<Attribute> _attributes;
};

QString TreeText::write(const QDomDocument& document) {
  for (QDomNode node = document.firstChild(); !node.isNull(); node = node.nextSibling()) {
    if (node.isProcessingInstruction()) {
      const QDomProcessingInstruction instruction = node.toProcessingInstruction();
      _text += "<?" + instruction.target() + ' ' + instruction.data() + "?>\n";
    } else if (node.isElement()) {
      writeDocumentType(document);
      writeElement(node.toElement(), 0);
      _text += '\n';
    }
  }
  return _text;
}

void TreeText::writeDocumentType(const QDomDocument& document) {
  const QString name = document.doctype().name();
  if (!name.isEmpty()) _text += "<!DOCTYPE " + name + ">\n";
}

void TreeText::writeElement(const QDomElement& element, int depth) {
  _text += QString(2 * depth, ' ') + '<' + element.tagName();
  writeAttributes(element);
  const int beforeContent = _text.size();
  _text += '>';
  const int content = _text.size();
  holdsText(element) ? writeMixed(element) : writeChildren(element, depth);
  if (_text.size() == content) {
    _text.truncate(beforeContent);
    _text += QLatin1String("/>");
  } else {
    _text += "</" + element.tagName() + '>';
  }
}

void TreeText::writeAttributes(const QDomElement& element) {
  const QDomNamedNodeMap held = element.attributes();
  _attributes.clear();
  for (int i = 0; i < held.count(); ++i) {
    const QDomAttr attribute = held.item(i).toAttr();
    _attributes.push_back({rankOf(attribute.name()), attribute.name(), attribute.value()});
  }
  std::sort(_attributes.begin(), _attributes.end());
  for (const Attribute& attribute : _attributes) {
    _text += ' ' + attribute.name + "=\"";
    _escape.attribute(attribute.value, _text);
    _text += '"';
    warnIfReplaced(element, "attribute \"" + attribute.name + '"');
  }
}

void TreeText::writeMixed(const QDomElement& element) {
  for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
    if (child.isElement()) {
      writeElement(child.toElement(), 0);
    } else if (child.isCDATASection()) {
      _escape.cdata(child.nodeValue(), _text);
    } else if (child.isText()) {
      _escape.content(child.nodeValue(), _text);
    }
  }
  warnIfReplaced(element, QStringLiteral("text"));
}

void TreeText::writeChildren(const QDomElement& element, int depth) {
  QDomElement child = element.firstChildElement();
  if (child.isNull()) return;
  for (; !child.isNull(); child = child.nextSiblingElement()) {
    _text += '\n';
    writeElement(child, depth + 1);
  }
  _text += '\n' + QString(2 * depth, ' ');
}

void TreeText::warnIfReplaced(const QDomElement& element, const QString& field) {
  if (!_escape.replaced()) return;
  const QString line = "Variants document: " + placeOf(element) + ", " + field +
                       ": a character that XML cannot hold was replaced";
  kuLog::warning("%s\n", line.toUtf8().constData());
}

}  // namespace

}  // namespace kuStandalone

QString QKuDomDocumentWriter::toString(const QDomDocument& document) {
  return kuStandalone::TreeText().write(document);
}
