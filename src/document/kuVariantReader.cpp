#include "document/kuVariantReader.h"

#include <QHash>
#include <cstring>

#include "document/kuDocumentFault.h"
#include "host/kernel/kuLog.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"

namespace {

void report(const kuDocumentFault& fault) {
  kuLog::error("Error loading variants: \"%s\" at %d %d\n", fault.text.toUtf8().constData(),
               fault.line, fault.column);
}

/** The group of that number, or null; by name first, which costs no walk over all groups. */
kuVariantGroup* groupOf(unsigned id, const QString& name) {
  kuVariantGroup* found = kuVariants::findVariantGroup(name);
  return found && found->id() == id ? found : kuVariants::getVariantGroup(id);
}

}  // namespace

void kuVariantReader::read(char const* text) {
  document = QDomDocument(QStringLiteral("Variants"));
  if (!parse(text)) return;
  // A receiver may read with this very object: this tree stays until the walk over it is done.
  const QDomDocument held = document;
  QDomNode child = held.documentElement().firstChild();
  for (; !child.isNull(); child = child.nextSibling()) {
    QDomElement element = child.toElement();
    if (!element.isNull()) readTopElement(element);
  }
  fixOverlayVariants();
  kuVariants::sendVariantsChanged();
}

bool kuVariantReader::parse(char const* text) {
  const std::size_t length = text ? std::strlen(text) : 0;
  if (const auto fault = kuFindDocumentFault(std::string_view(text ? text : "", length))) {
    report(*fault);
    return false;
  }
  kuDocumentFault fault;
  const QByteArray bytes = QByteArray::fromRawData(text ? text : "", int(length));
  if (document.setContent(bytes, false, &fault.text, &fault.line, &fault.column)) return true;
  report(fault);
  return false;
}

void kuVariantReader::readTopElement(QDomElement& element) {
  using Reader = void (*)(QDomElement&);
  static const QHash<QString, Reader> readers{
      {"VariantGroup", [](QDomElement& group) { readVariantGroup(group); }},
      {"VariantSet", [](QDomElement& set) { readVariantSet(set, true); }},
      {"NodeVariant", [](QDomElement& variant) { readNodeVariant(variant); }},
      {"MaterialVariant", [](QDomElement& variant) { readMaterialVariant(variant); }},
      {"LightVariant", [](QDomElement& variant) { readLightVariant(variant); }},
      {"SceneplateVariant", [](QDomElement& variant) { readOverlayVariant(variant); }},
      {"OverlayVariant", [](QDomElement& variant) { readOverlayVariant(variant); }},
      {"TransformVariant", [](QDomElement& variant) { readTransformVariant(variant); }},
  };
  if (const Reader reader = readers.value(element.tagName(), nullptr)) reader(element);
}

// Fewer kinds than read() knows: this is meant.
kuVariant* kuVariantReader::readVariant(QDomElement& element) {
  const QString tag = element.tagName();
  if (tag == QLatin1String("NodeVariant")) return readNodeVariant(element);
  if (tag == QLatin1String("MaterialVariant")) return readMaterialVariant(element);
  if (tag == QLatin1String("LightVariant")) return readLightVariant(element);
  return nullptr;
}

kuVariantGroup* kuVariantReader::readVariantGroup(QDomElement& element) {
  const QDomAttr name = element.attributeNode(QStringLiteral("name"));
  if (name.isNull()) return nullptr;
  kuVariants::removeVariantGroup(name.value());
  kuVariantGroup* group = kuVariants::createVariantGroup(name.value(), false, true);
  if (!group) return nullptr;
  readGroupAttributes(element, *group);
  const unsigned id = group->id();
  QDomNode child = element.firstChild();
  for (; !child.isNull(); child = child.nextSibling()) {
    QDomElement set = child.toElement();
    if (set.tagName() != QLatin1String("VariantSet")) continue;
    // A set of the same name is removed, and whoever hears of that may remove this group.
    kuVariantSet* read = readVariantSet(set, true);
    group = groupOf(id, name.value());
    if (group && read) group->add(read);
  }
  return group;
}

void kuVariantReader::readGroupAttributes(QDomElement& element, kuVariantGroup& group) {
  const auto isTrue = [](const QDomAttr& flag) { return flag.value() == QLatin1String("true"); };
  const QDomAttr comment = element.attributeNode(QStringLiteral("comment"));
  if (!comment.isNull()) group.comment = comment.value();
  const QDomAttr show = element.attributeNode(QStringLiteral("showinvrmenu"));
  if (!show.isNull()) group.setShowInVRMenu(isTrue(show));
  const QDomAttr sync = element.attributeNode(QStringLiteral("synccollaboration"));
  if (!sync.isNull()) group.setSyncInCollaboration(isTrue(sync));
  // A visible group bears an attribute named "true" in the place of this one; it is not read.
  const QDomAttr visible = element.attributeNode(QStringLiteral("visible"));
  if (!visible.isNull()) group.visible = isTrue(visible);
}

QString kuVariantReader::normalizeHotkeyText(const QString& text) {
  if (text.isEmpty()) return text;  // most are
  QString normalized = text.trimmed();
  return normalized.replace('-', '+').replace(' ', '+');
}
