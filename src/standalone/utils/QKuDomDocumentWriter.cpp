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

/** The element by its tag and its name, if it has one. */
QString labelOf(const QDomElement& element) {
  for (const QString& key : {QStringLiteral("name"), QStringLiteral("ref")}) {
    if (!element.hasAttribute(key)) continue;
    QString name;
    XmlEscape().attribute(element.attribute(key), name);
    return element.tagName() + " \"" + name + '"';
  }
  return element.tagName();
}

/** The element with those around it, for people: VariantSet "Summer" / NodeVariantRef "Roof". */
QString placeOf(const QDomElement& element) {
  QStringList places{labelOf(element)};
  QDomElement at = element.parentNode().toElement();
  for (; at.parentNode().isElement(); at = at.parentNode().toElement())
    places.prepend(labelOf(at));  // the root says nothing
  return places.join(QStringLiteral(" / "));
}

void warnOfReplacement(const QDomElement& element, const QString& field) {
  const QString line = "Variants document: " + placeOf(element) + ", " + field +
                       ": a character that XML cannot hold was replaced";
  kuLog::warning("%s\n", line.toUtf8().constData());
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
  bool writeText(const QDomNode& text);
  void writeChildren(const QDomElement& element, int depth);
  void startLine(int depth);

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
  const QString tag = element.tagName();
  _text += QLatin1Char('<');
  _text += tag;
  writeAttributes(element);
  const int beforeContent = _text.size();
  _text += QLatin1Char('>');
  const int content = _text.size();
  holdsText(element) ? writeMixed(element) : writeChildren(element, depth);
  if (_text.size() == content) {
    _text.truncate(beforeContent);
    _text += QLatin1String("/>");
  } else {
    _text += QLatin1String("</");
    _text += tag;
    _text += QLatin1Char('>');
  }
}

void TreeText::writeAttributes(const QDomElement& element) {
  const QDomNamedNodeMap held = element.attributes();
  _attributes.clear();
  for (int i = 0; i < held.count(); ++i) {
    const QDomAttr attribute = held.item(i).toAttr();
    const QString name = attribute.name();
    _attributes.push_back({rankOf(name), name, attribute.value()});
  }
  std::sort(_attributes.begin(), _attributes.end());
  for (const Attribute& attribute : _attributes) {
    _text += QLatin1Char(' ');
    _text += attribute.name;
    _text += QLatin1String("=\"");
    _escape.attribute(attribute.value, _text);
    _text += QLatin1Char('"');
    if (_escape.replaced()) warnOfReplacement(element, "attribute \"" + attribute.name + '"');
  }
}

void TreeText::writeMixed(const QDomElement& element) {
  bool replaced = false;
  for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
    if (child.isElement()) {
      writeElement(child.toElement(), 0);
    } else if (child.isText()) {
      replaced |= writeText(child);
    }
  }
  if (replaced) warnOfReplacement(element, QStringLiteral("text"));
}

/** Whether a character had to be replaced. */
bool TreeText::writeText(const QDomNode& text) {
  if (text.isCDATASection()) {
    _escape.cdata(text.nodeValue(), _text);
  } else {
    _escape.content(text.nodeValue(), _text);
  }
  return _escape.replaced();
}

void TreeText::writeChildren(const QDomElement& element, int depth) {
  QDomElement child = element.firstChildElement();
  if (child.isNull()) return;
  for (; !child.isNull(); child = child.nextSiblingElement()) {
    startLine(depth + 1);
    writeElement(child, depth + 1);
  }
  startLine(depth);
}

void TreeText::startLine(int depth) {
  _text += QLatin1Char('\n');
  for (int i = 0; i < depth; ++i)
    _text += QLatin1String("  ");
}

}  // namespace

}  // namespace kuStandalone

QString QKuDomDocumentWriter::toString(const QDomDocument& document) {
  return kuStandalone::TreeText().write(document);
}
