#include "DocumentModel.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

namespace {

// Everything is made under this name and then renamed: so names may be empty, and equal.
const QString& madeAs() {
  static const QString name = QStringLiteral("(being made)");
  return name;
}

void fillOptions(kuVariant& variant, const DocumentModel::Variant& model) {
  variant.setDefault(model.defaultState);
  for (const DocumentModel::Option& option : model.options) {
    variant.add(option.action, madeAs(), option.hotkey.text);
    variant.find(madeAs())->setName(option.name);
  }
}

template <class Variant>
void build(const DocumentModel::Variants& models, Variant* (*create)(const QString&, bool),
           void (Variant::*setBase)(const QString&)) {
  for (const DocumentModel::Variant& model : models) {
    Variant* variant = create(madeAs(), false);
    (variant->*setBase)(model.base);
    fillOptions(*variant, model);
    variant->setName(model.name);
  }
}

using AddState = void (kuVariantSet::*)(const QString&, const QString&);
using AddName = void (kuVariantSet::*)(const QString&);

void addStates(kuVariantSet& set, AddState add, const DocumentModel::States& states) {
  for (const DocumentModel::State& entry : states)
    (set.*add)(entry.variant, entry.state);
}

void addNames(kuVariantSet& set, AddName add, const DocumentModel::Names& names) {
  for (const QString& name : names)
    (set.*add)(name);
}

void addPairs(kuVariantSet& set, AddState add, const DocumentModel::Map& pairs) {
  for (const auto& [key, value] : pairs)
    (set.*add)(key, value);
}

using SetFloat = void (kuVariantSet::*)(double);

void fillClippingVectors(kuVariantSet& set, const DocumentModel::Clipping& model) {
  using Set = kuVariantSet;
  static const std::array<std::array<SetFloat, 3>, 5> setters = {
      {{&Set::setClippingPlanePositionX, &Set::setClippingPlanePositionY,
        &Set::setClippingPlanePositionZ},
       {&Set::setClippingPlaneNormalX, &Set::setClippingPlaneNormalY,
        &Set::setClippingPlaneNormalZ},
       {&Set::setClippingPlaneColorR, &Set::setClippingPlaneColorG, &Set::setClippingPlaneColorB},
       {&Set::setClippingGridColorR, &Set::setClippingGridColorG, &Set::setClippingGridColorB},
       {&Set::setClippingContourColorR, &Set::setClippingContourColorG,
        &Set::setClippingContourColorB}}};
  for (std::size_t i = 0; i < setters.size(); ++i) {
    for (std::size_t j = 0; j < 3; ++j)
      (set.*setters[i][j])(double(model.vectors[i][j]));
  }
}

void fillClipping(kuVariantSet& set, const DocumentModel::Clipping& model) {
  set.setClippingState(model.state);
  fillClippingVectors(set, model);
  set.setClippingInvert(model.invert);
  set.setClippingHideScene(model.hideScene);
  set.setClippingShowPlane(model.showPlane);
  set.setClippingShowGrid(model.showGrid);
  set.setClippingShowContour(model.showContour);
  set.setClippingContourWidth(model.contourWidth);
}

void fillFields(kuVariantSet& set, const DocumentModel::Set& model) {
  set.setComment(model.comment);
  if (!model.hotkey.text.isEmpty()) set.setHotkey(model.hotkey.text);
  set.setShowInVRMenu(model.showInVRMenu);
  set.setSyncInCollaboration(model.sync);
  set.setSequentialAnimation(model.sequential);
  set.setScript(model.script);
  set.setDefaultViewpoint(model.defaultViewpoint);
  set.setPreview(model.preview);
  const auto& incl = model.incl;
  set.setInclInfo(incl[0], incl[1], incl[2], incl[3], incl[4], incl[5]);
}

void fillLists(kuVariantSet& set, const DocumentModel::Set& model) {
  using Set = kuVariantSet;
  addStates(set, &Set::addNodeVariant, model.nodes);
  addStates(set, &Set::addMaterialVariant, model.materials);
  addStates(set, &Set::addLightVariant, model.lights);
  addStates(set, &Set::addOverlayVariant, model.overlays);
  addStates(set, &Set::addTransformVariant, model.transforms);
  addNames(set, &Set::addViewpoint, model.viewpoints);
  addNames(set, &Set::addAnimation, model.animations);
  addNames(set, &Set::addGeometry, model.geometries);
  addNames(set, &Set::addTargetNodeName, model.targets);
  addPairs(set, &Set::addValue, model.values);
  addPairs(set, &Set::addMaterialSnapshot, model.snapshots);
}

std::map<int, kuVariantSet*> buildSets(const std::vector<DocumentModel::Set>& models) {
  std::map<int, kuVariantSet*> made;
  for (const DocumentModel::Set& model : models) {
    kuVariantSet* set = kuVariants::createVariantSet(madeAs(), false, nullptr);
    fillFields(*set, model);
    fillLists(*set, model);
    fillClipping(*set, model.clipping);
    set->setName(model.name);
    made[model.id] = set;
  }
  return made;
}

}  // namespace

void DocumentModel::build() const {
  const std::map<int, kuVariantSet*> made = buildSets(sets);
  for (const Group& model : groups) {
    kuVariantGroup* group = kuVariants::createVariantGroup(madeAs(), false, model.visible);
    group->setComment(model.comment);
    group->setShowInVRMenu(model.showInVRMenu);
    group->setSyncInCollaboration(model.sync);
    for (const int id : model.sets)
      group->add(made.at(id));
    group->setName(model.name);
  }
  ::build(nodes, kuVariants::createNodeVariant, &kuNodeVariant::setNode);
  ::build(materials, kuVariants::createMaterialVariant, &kuMaterialVariant::setMaterial);
  ::build(lights, kuVariants::createLightVariant, &kuLightVariant::setNode);
  ::build(overlays, kuVariants::createOverlayVariant, &kuOverlayVariant::setOverlay);
  ::build(transforms, kuVariants::createTransformVariant, &kuTransformVariant::setNode);
}

std::string exactClipping() {
  std::string text;
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    for (const auto& vector : {set->getClippingPlanePosition(), set->getClippingPlaneNormal(),
                               set->getClippingPlaneColor(), set->getClippingGridColor(),
                               set->getClippingContourColor()}) {
      for (unsigned i = 0; i < 3; ++i)
        text += exactText(vector[i]) + ' ';
    }
    text += '\n';
  }
  return text;
}
