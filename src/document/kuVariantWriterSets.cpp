#include <list>

#include "document/kuDomText.h"
#include "document/kuVariantWriter.h"
#include "model/kuVariantSet.h"

namespace {

using Vector = osg::Vector<float, 3>;

/** Writes the children of a set's element, in the order in which it is asked for them. */
class SetElement {
 public:
  SetElement(QDomDocument& document, const QDomElement& element)
      : _document(document), _element(element) {}

  QDomElement append(const QString& tag) {
    QDomElement child = _document.createElement(tag);
    _element.appendChild(child);
    return child;
  }

  void writeText(const QString& tag, const QString& text) {
    kuAppendText(_document, _element, tag, text);
  }

  void writeStates(const QString& tag, const std::list<kuVariantState>& states) {
    for (const kuVariantState& entry : states) {
      QDomElement child = append(tag);
      child.setAttribute(QStringLiteral("ref"), entry.getVariant());
      child.setAttribute(QStringLiteral("state"), entry.getState());
    }
  }

  template <class Names>
  void writeNames(const QString& tag, const QString& attribute, const Names& names) {
    for (const QString& name : names)
      append(tag).setAttribute(attribute, name);
  }

  void writePreview(const QByteArray& preview);
  void writeInclInfo(const kuVariantSet& set);
  void writeSnapshots(const std::map<QString, QString>& snapshots);
  void writeValues(const std::map<QString, QString>& values);
  void writeAnalyzer(const kuVariantSet& set);

 private:
  QDomDocument& _document;
  QDomElement _element;
};

void SetElement::writePreview(const QByteArray& preview) {
  if (preview.isEmpty()) return;
  const QString text = QString::fromUtf8(preview.toBase64());
  append(QStringLiteral("Preview")).appendChild(_document.createCDATASection(text));
}

void SetElement::writeInclInfo(const kuVariantSet& set) {
  bool nodes, materials, lights, environments, viewpoints, sceneplates;
  set.getInclInfo(nodes, materials, lights, environments, viewpoints, sceneplates);
  QDomElement info = append(QStringLiteral("InclInfo"));
  info.setAttribute(QStringLiteral("inclNodes"), int(nodes));
  info.setAttribute(QStringLiteral("inclMats"), int(materials));
  info.setAttribute(QStringLiteral("inclLights"), int(lights));
  info.setAttribute(QStringLiteral("inclEnv"), int(environments));
  info.setAttribute(QStringLiteral("inclView"), int(viewpoints));
  info.setAttribute(QStringLiteral("inclSceneplates"), int(sceneplates));
}

void SetElement::writeSnapshots(const std::map<QString, QString>& snapshots) {
  for (const auto& snapshot : snapshots) {
    QDomElement child = append(QStringLiteral("MaterialSnapshot"));
    child.setAttribute(QStringLiteral("nodePath"), snapshot.first);
    child.setAttribute(QStringLiteral("materialName"), snapshot.second);
  }
}

void SetElement::writeValues(const std::map<QString, QString>& values) {
  for (const auto& value : values) {
    QDomElement child = append(QStringLiteral("Value"));
    child.setAttribute(QStringLiteral("name"), value.first);
    child.appendChild(_document.createTextNode(value.second));
  }
}

/** Six significant digits. Qt's own attributes of floats have eight. */
void setFloat(QDomElement& element, const QString& name, float value) {
  element.setAttribute(name, QString::number(double(value), 'g', 6));
}

/** @p names the three attributes in the order of the components. */
void setVector(QDomElement& element, const QString (&names)[3], const Vector& vector) {
  for (unsigned i = 0; i < 3; ++i)
    setFloat(element, names[i], vector[i]);
}

void SetElement::writeAnalyzer(const kuVariantSet& set) {
  QDomElement analyzer = append(QStringLiteral("Analyzer"));
  const auto setNumber = [&](const QString& name, int value) {
    analyzer.setAttribute(name, value);
  };
  setNumber(QStringLiteral("clipState"), set.getClippingState());
  setVector(analyzer,
            {QStringLiteral("clipPlanePositionX"), QStringLiteral("clipPlanePositionY"),
             QStringLiteral("clipPlanePositionZ")},
            set.getClippingPlanePosition());
  setVector(analyzer,
            {QStringLiteral("clipPlaneNormalX"), QStringLiteral("clipPlaneNormalY"),
             QStringLiteral("clipPlaneNormalZ")},
            set.getClippingPlaneNormal());
  setNumber(QStringLiteral("clipPlaneInvert"), set.getClippingInvert());
  setNumber(QStringLiteral("clipPlaneHideScene"), set.getClippingHideScene());
  setNumber(QStringLiteral("clipPlaneShow"), set.getClippingShowPlane());
  setVector(analyzer,
            {QStringLiteral("clipPlaneColorR"), QStringLiteral("clipPlaneColorG"),
             QStringLiteral("clipPlaneColorB")},
            set.getClippingPlaneColor());
  setNumber(QStringLiteral("clipGridShow"), set.getClippingShowGrid());
  setVector(analyzer,
            {QStringLiteral("clipGridColorR"), QStringLiteral("clipGridColorG"),
             QStringLiteral("clipGridColorB")},
            set.getClippingGridColor());
  setNumber(QStringLiteral("clipContourShow"), set.getClippingShowContour());
  setVector(analyzer,
            {QStringLiteral("clipContourColorR"), QStringLiteral("clipContourColorG"),
             QStringLiteral("clipContourColorB")},
            set.getClippingContourColor());
  setNumber(QStringLiteral("clipContourWidth"), set.getClippingContourWidth());
}

}  // namespace

void kuVariantWriter::writeVariantSet(QDomDocument& document, QDomElement& parent,
                                      kuVariantSet* set) {
  QDomElement element = document.createElement(QStringLiteral("VariantSet"));
  element.setAttribute(QStringLiteral("name"), set->getName());
  element.setAttribute(QStringLiteral("comment"), set->getComment());
  element.setAttribute(QStringLiteral("showinvrmenu"), kuFlagText(set->getShowInVRMenu()));
  element.setAttribute(QStringLiteral("synccollaboration"),
                       kuFlagText(set->getSyncInCollaboration()));
  element.setAttribute(QStringLiteral("default-viewpoint"), set->getDefaultViewpoint());
  parent.appendChild(element);

  SetElement content(document, element);
  content.writeText(QStringLiteral("Hotkey"), set->getHotkey());
  content.writeText(QStringLiteral("SequentialAnimation"),
                    kuFlagText(set->getSequentialAnimation()));
  content.writeText(QStringLiteral("Script"), set->getScript());
  content.writePreview(set->getPreview());
  // Transforms stand second here, where the variants themselves have them last.
  content.writeStates(QStringLiteral("NodeVariantRef"), set->getNodeVariants());
  content.writeStates(QStringLiteral("TransformRef"), set->getTransformVariants());
  content.writeStates(QStringLiteral("MaterialVariantRef"), set->getMaterialVariants());
  content.writeStates(QStringLiteral("LightVariantRef"), set->getLightVariants());
  content.writeNames(QStringLiteral("ViewpointRef"), QStringLiteral("ref"), set->getViewpoints());
  content.writeStates(QStringLiteral("SceneplateRef"), set->getOverlayVariants());
  content.writeNames(QStringLiteral("AnimationRef"), QStringLiteral("ref"), set->getAnimations());
  content.writeNames(QStringLiteral("GeometryRef"), QStringLiteral("ref"), set->getGeometries());
  content.writeNames(QStringLiteral("TargetName"), QStringLiteral("name"),
                     set->getTargetNodeNames());
  content.writeInclInfo(*set);
  content.writeSnapshots(set->getMaterialSnapshots());
  content.writeValues(set->getValues());
  content.writeAnalyzer(*set);
}
