#include <algorithm>

#include "document/kuSeenNames.h"
#include "document/kuVariantReader.h"
#include "host/osg/EditCP.h"
#include "host/osg/SwitchMaterial.h"
#include "host/utils/kuMaterials.h"
#include "manager/kuVariants.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuSwitchMaterials.h"
#include "scene/kuTransformVariant.h"

namespace {

bool hasMaterial(const QByteArray& name) {
  for (const kuMaterialPtr& found : kuMaterials::findMaterials(name.constData())) {
    if (found.isValid()) return true;
  }
  return false;
}

/** A switch over those of the options that are materials. */
osg::SwitchMaterialPtr createSwitch(const QByteArray& name,
                                    const std::vector<kuVariantOption>& options) {
  const osg::SwitchMaterialPtr created = osg::SwitchMaterialBase::create();
  kuMaterials::setName(created, name.constData(), true);
  const osg::EditCP edit(created);
  for (const kuVariantOption& option : options) {
    const kuMaterialPtr found = kuMaterials::findMaterial(option.getName().toUtf8().constData());
    if (found.isValid()) created->addMaterial(found);
  }
  created->setChoice(0);
  return created;
}

/** The switch "X Switch" stands where the plain material X did. */
void replacePlainMaterial(QByteArray switchName, const osg::MaterialPtr& created) {
  const QByteArray ending = " Switch";
  if (!switchName.endsWith(ending)) return;
  switchName.chop(ending.size());
  const kuMaterialPtr plain = kuMaterials::findMaterial(switchName.constData());
  if (plain.isValid()) kuSwitchMaterials::replaceInScene(plain, created);
}

void ensureSwitchMaterial(const QByteArray& name, const std::vector<kuVariantOption>& options) {
  if (hasMaterial(name)) return;
  const osg::MaterialPtr created = createSwitch(name, options);
  kuSwitchMaterials::enterIntoPool(created);
  kuSwitchMaterials::tellAdded();
  replacePlainMaterial(name, created);
}

}  // namespace

void kuVariantReader::readOptions(QDomElement& element, kuVariant& variant) {
  kuSeenNames names;
  variant.options.clear();
  QDomElement child = element.firstChildElement();
  for (; !child.isNull(); child = child.nextSiblingElement()) {
    const QString tag = child.tagName();
    if (tag == QLatin1String("Default")) {
      variant.defaultState = child.attribute(QStringLiteral("ref"));
    } else if (tag == QLatin1String("State")) {
      const QString name = child.attribute(QStringLiteral("name"));
      if (!names.isNew(name)) continue;
      const QDomElement hotkey = child.lastChildElement(QStringLiteral("Hotkey"));
      // What is a step is not in the document: every option that is read is a state.
      variant.append(false, name, normalizeHotkeyText(hotkey.text()));
    }
  }
}

template <class Variant>
Variant* kuVariantReader::readKind(QDomElement& element, Variant* (*find)(const QString&),
                                   Variant* (*create)(const QString&, bool),
                                   QString Variant::*base) {
  const QDomAttr name = element.attributeNode(QStringLiteral("name"));
  if (name.isNull()) return nullptr;
  Variant* variant = find(name.value());
  if (!variant) variant = create(name.value(), false);
  if (!variant) return nullptr;
  variant->*base = element.attribute(QStringLiteral("base"));
  readOptions(element, *variant);
  return variant;
}

kuNodeVariant* kuVariantReader::readNodeVariant(QDomElement& element) {
  return readKind<kuNodeVariant>(element, kuVariants::findNodeVariant,
                                 kuVariants::createNodeVariant, &kuNodeVariant::node);
}

kuLightVariant* kuVariantReader::readLightVariant(QDomElement& element) {
  return readKind<kuLightVariant>(element, kuVariants::findLightVariant,
                                  kuVariants::createLightVariant, &kuLightVariant::node);
}

kuOverlayVariant* kuVariantReader::readOverlayVariant(QDomElement& element) {
  return readKind<kuOverlayVariant>(element, kuVariants::findOverlayVariant,
                                    kuVariants::createOverlayVariant, &kuOverlayVariant::overlay);
}

kuTransformVariant* kuVariantReader::readTransformVariant(QDomElement& element) {
  return readKind<kuTransformVariant>(element, kuVariants::findTransformVariant,
                                      kuVariants::createTransformVariant,
                                      &kuTransformVariant::node);
}

kuMaterialVariant* kuVariantReader::readMaterialVariant(QDomElement& element) {
  auto* variant =
      readKind<kuMaterialVariant>(element, kuVariants::findMaterialVariant,
                                  kuVariants::createMaterialVariant, &kuMaterialVariant::material);
  if (!variant) return nullptr;
  const std::vector<kuVariantOption> options = variant->options;
  ensureSwitchMaterial(variant->material.toUtf8(), options);
  // The host's modules heard of the new material; one of them may have removed the variant.
  const auto& listed = kuVariants::getMaterialVariants();
  return std::find(listed.rbegin(), listed.rend(), variant) == listed.rend() ? nullptr : variant;
}
