#include <QHash>
#include <variant>
#include <vector>

#include "document/kuPreviewText.h"
#include "document/kuSeenNames.h"
#include "document/kuVariantReader.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

namespace {

using SetNumber = void (kuVariantSet::*)(int);
using SetFloat = void (kuVariantSet::*)(double);
using SetFlag = void (kuVariantSet::*)(bool);

struct AnalyzerAttribute {
  QString name;
  std::variant<SetNumber, SetFloat, SetFlag> setter;

  void apply(kuVariantSet& set, const QString& text) const {
    if (const auto* number = std::get_if<SetNumber>(&setter)) (set.**number)(text.toInt());
    if (const auto* real = std::get_if<SetFloat>(&setter)) {
      (set.**real)(static_cast<double>(text.toFloat()));
    }
    if (const auto* flag = std::get_if<SetFlag>(&setter)) (set.**flag)(text.toInt() != 0);
  }
};

const std::vector<AnalyzerAttribute>& analyzerAttributes() {
  using Set = kuVariantSet;
  static const std::vector<AnalyzerAttribute> attributes{
      {"clipState", &Set::setClippingState},
      {"clipPlanePositionX", &Set::setClippingPlanePositionX},
      {"clipPlanePositionY", &Set::setClippingPlanePositionY},
      {"clipPlanePositionZ", &Set::setClippingPlanePositionZ},
      {"clipPlaneNormalX", &Set::setClippingPlaneNormalX},
      {"clipPlaneNormalY", &Set::setClippingPlaneNormalY},
      {"clipPlaneNormalZ", &Set::setClippingPlaneNormalZ},
      {"clipPlaneInvert", &Set::setClippingInvert},
      {"clipPlaneHideScene", &Set::setClippingHideScene},
      {"clipPlaneShow", &Set::setClippingShowPlane},
      {"clipPlaneColorR", &Set::setClippingPlaneColorR},
      {"clipPlaneColorG", &Set::setClippingPlaneColorG},
      {"clipPlaneColorB", &Set::setClippingPlaneColorB},
      {"clipGridShow", &Set::setClippingShowGrid},
      {"clipGridColorR", &Set::setClippingGridColorR},
      {"clipGridColorG", &Set::setClippingGridColorG},
      {"clipGridColorB", &Set::setClippingGridColorB},
      {"clipContourShow", &Set::setClippingShowContour},
      {"clipContourColorR", &Set::setClippingContourColorR},
      {"clipContourColorG", &Set::setClippingContourColorG},
      {"clipContourColorB", &Set::setClippingContourColorB},
      {"clipContourWidth", &Set::setClippingContourWidth},
  };
  return attributes;
}

QString ref(const QDomElement& element) { return element.attribute(QStringLiteral("ref")); }
QString state(const QDomElement& element) { return element.attribute(QStringLiteral("state")); }

}  // namespace

/** A set while its element is read. */
class kuVariantReader::SetContent {
 public:
  explicit SetContent(kuVariantSet& set) : _set(set) {}

  void takeAttributes(QDomElement& element);
  void takeChild(QDomElement& child);

 private:
  using Content = SetContent;
  using Taker = void (*)(SetContent&, QDomElement&);

  static const QHash<QString, Taker>& takers();
  void takeHotkey(const QString& text);
  void takeInclInfo(QDomElement& element);
  void takeAnalyzer(QDomElement& element);
  void takeValue(QDomElement& element);
  void takePreview(QDomElement& element);

  template <class Names>
  static void append(Names& names, kuSeenNames& seen, const QString& name) {
    if (seen.isNew(name)) names.push_back(name);
  }

  kuVariantSet& _set;
  kuSeenNames _viewpoints, _animations, _geometries, _targets;
};

void kuVariantReader::SetContent::takeAttributes(QDomElement& element) {
  const auto isTrue = [](const QDomAttr& flag) { return flag.value() == QLatin1String("true"); };
  const QDomAttr comment = element.attributeNode(QStringLiteral("comment"));
  if (!comment.isNull()) _set.comment = comment.value();
  const QDomAttr show = element.attributeNode(QStringLiteral("showinvrmenu"));
  if (!show.isNull()) _set.setShowInVRMenu(isTrue(show));
  const QDomAttr sync = element.attributeNode(QStringLiteral("synccollaboration"));
  if (!sync.isNull()) _set.setSyncInCollaboration(isTrue(sync));
  const QDomAttr viewpoint = element.attributeNode(QStringLiteral("default-viewpoint"));
  if (!viewpoint.isNull()) _set.defaultViewpoint = viewpoint.value();
  // Older documents have the script here.
  const QDomAttr script = element.attributeNode(QStringLiteral("script"));
  if (!script.isNull()) _set.script = script.value();
}

void kuVariantReader::SetContent::takeChild(QDomElement& child) {
  if (const Taker take = takers().value(child.tagName(), nullptr)) take(*this, child);
}

const QHash<QString, kuVariantReader::SetContent::Taker>& kuVariantReader::SetContent::takers() {
  using Element = QDomElement&;
  const auto overlay = [](Content& c, Element e) { c._set.overlayVariants.add(ref(e), state(e)); };
  static const QHash<QString, Taker> takers{
      {"Hotkey", [](Content& c, Element e) { c.takeHotkey(e.text()); }},
      {"SequentialAnimation",
       [](Content& c, Element e) {
         c._set.sequentialAnimation = e.text() == QLatin1String("true");
       }},
      {"NodeVariantRef", [](Content& c, Element e) { c._set.nodeVariants.add(ref(e), state(e)); }},
      {"TransformRef",
       [](Content& c, Element e) { c._set.transformVariants.add(ref(e), state(e)); }},
      {"MaterialVariantRef",
       [](Content& c, Element e) { c._set.materialVariants.add(ref(e), state(e)); }},
      {"LightVariantRef",
       [](Content& c, Element e) { c._set.lightVariants.add(ref(e), state(e)); }},
      {"ViewpointRef",
       [](Content& c, Element e) { append(c._set.viewpoints, c._viewpoints, ref(e)); }},
      {"OverlayRef", overlay},
      {"SceneplateRef", overlay},
      {"AnimationRef",
       [](Content& c, Element e) { append(c._set.animations, c._animations, ref(e)); }},
      {"GeometryRef",
       [](Content& c, Element e) { append(c._set.geometries, c._geometries, ref(e)); }},
      {"TargetName",
       [](Content& c, Element e) {
         append(c._set.targetNodeNames, c._targets, e.attribute(QStringLiteral("name")));
       }},
      {"MaterialSnapshot",
       [](Content& c, Element e) {
         c._set.addMaterialSnapshot(e.attribute(QStringLiteral("nodePath")),
                                    e.attribute(QStringLiteral("materialName")));
       }},
      {"Value", [](Content& c, Element e) { c.takeValue(e); }},
      {"Script", [](Content& c, Element e) { c._set.script = e.text(); }},
      {"InclInfo", [](Content& c, Element e) { c.takeInclInfo(e); }},
      {"Analyzer", [](Content& c, Element e) { c.takeAnalyzer(e); }},
      {"Preview", [](Content& c, Element e) { c.takePreview(e); }},
  };
  return takers;
}

void kuVariantReader::SetContent::takeHotkey(const QString& text) {
  _set.hotkey = normalizeHotkeyText(text);
  _set.updateShortcut();
}

void kuVariantReader::SetContent::takeValue(QDomElement& element) {
  const QDomAttr name = element.attributeNode(QStringLiteral("name"));
  if (!name.isNull()) _set.values[name.value()] = element.text();
}

void kuVariantReader::SetContent::takeInclInfo(QDomElement& element) {
  // An absent one reads as false; documents older than "inclSceneplates" lack that.
  const auto flag = [&](const QString& name) { return element.attribute(name).toInt() != 0; };
  _set.setInclInfo(flag(QStringLiteral("inclNodes")), flag(QStringLiteral("inclMats")),
                   flag(QStringLiteral("inclLights")), flag(QStringLiteral("inclEnv")),
                   flag(QStringLiteral("inclView")), flag(QStringLiteral("inclSceneplates")));
}

// An absent attribute counts as an empty one, so it gives 0 and not the value of a new set.
void kuVariantReader::SetContent::takeAnalyzer(QDomElement& element) {
  for (const AnalyzerAttribute& attribute : analyzerAttributes()) {
    attribute.apply(_set, element.attribute(attribute.name));
  }
}

void kuVariantReader::SetContent::takePreview(QDomElement& element) {
  if (element.firstChild().isCDATASection()) _set.setPreview(kuReadPreview(element));
}

kuVariantSet* kuVariantReader::readVariantSet(QDomElement& element, bool replaceExisting) {
  const QDomAttr attribute = element.attributeNode(QStringLiteral("name"));
  if (attribute.isNull()) return nullptr;
  QString name = attribute.value();
  if (replaceExisting) {
    kuVariants::removeVariantSet(name);
  } else {
    name = kuVariants::getUniqueVariantSetName(name);
  }
  kuVariantSet* set = kuVariants::createVariantSet(name, false, nullptr);
  if (!set) return nullptr;
  SetContent content(*set);
  content.takeAttributes(element);
  QDomElement child = element.firstChildElement();
  for (; !child.isNull(); child = child.nextSiblingElement())
    content.takeChild(child);
  return set;
}
