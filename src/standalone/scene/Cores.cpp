#include "standalone/scene/Cores.h"

#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/MaterialUse.h"
#include "standalone/scene/NodeCoreFields.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

GroupCore::GroupCore() : osg::Group(osg::Group::_type) {}

osg::NodeCorePtr GroupCore::create() { return osg::NodeCorePtr(new GroupCore); }

SwitchCore::SwitchCore(int firstChoice) : osg::Switch(osg::Switch::_type), choice(firstChoice) {}

osg::NodeCorePtr SwitchCore::create(int choice) { return osg::NodeCorePtr(new SwitchCore(choice)); }

TransformSwitchCore::TransformSwitchCore(std::vector<TransformState> firstStates,
                                         unsigned firstChoice, int firstSupposed)
    : osg::SwitchComponentTransform(osg::SwitchComponentTransform::_type),
      states(std::move(firstStates)),
      choice(firstChoice),
      supposed(firstSupposed) {}

osg::NodeCorePtr TransformSwitchCore::create(std::vector<TransformState> states, unsigned choice,
                                             int supposed) {
  return osg::NodeCorePtr(new TransformSwitchCore(std::move(states), choice, supposed));
}

void TransformSwitchCore::setSupposed(int index) {
  EditBrackets::noteChange(*this, SupposedFieldMask, "TransformSwitchCore::setSupposed");
  supposed = index;
}

void TransformSwitchCore::setStateName(std::size_t index, std::string name) {
  EditBrackets::noteChange(*this, StatesFieldMask, "TransformSwitchCore::setStateName");
  states[index].name = std::move(name);
}

MaterialGroupCore::MaterialGroupCore(bool firstIgnore)
    : osg::MaterialGroup(osg::MaterialGroup::_type), ignore(firstIgnore) {}

MaterialGroupCore::~MaterialGroupCore() { assignMaterial(*this, material, osg::NullFC); }

osg::NodeCorePtr MaterialGroupCore::create(const osg::MaterialPtr& material, bool ignore) {
  auto* core = new MaterialGroupCore(ignore);
  assignMaterial(*core, core->material, material);
  return osg::NodeCorePtr(core);
}

GeometryCore::GeometryCore(int fileMesh, int filePrimitive)
    : osg::Geometry(osg::Geometry::_type), mesh(fileMesh), primitive(filePrimitive) {}

GeometryCore::~GeometryCore() { assignMaterial(*this, material, osg::NullFC); }

osg::NodeCorePtr GeometryCore::create(const osg::MaterialPtr& material, int mesh, int primitive) {
  auto* core = new GeometryCore(mesh, primitive);
  assignMaterial(*core, core->material, material);
  return osg::NodeCorePtr(core);
}

LightCore::LightCore(bool isOn, int fileLight)
    : osg::UberLight(osg::UberLight::_type), on(isOn), light(fileLight) {}

osg::NodeCorePtr LightCore::create(bool on, int light) {
  return osg::NodeCorePtr(new LightCore(on, light));
}

void LightCore::setOn(bool isOn) {
  EditBrackets::noteChange(*this, OnFieldMask, "LightCore::setOn");
  on = isOn;
}

SceneplateCore::SceneplateCore(int fileImage, std::array<double, 4> place)
    : osg::Sceneplate(osg::Sceneplate::_type), image(fileImage), rect(place) {}

osg::NodeCorePtr SceneplateCore::create(int image, std::array<double, 4> rect) {
  return osg::NodeCorePtr(new SceneplateCore(image, rect));
}

}  // namespace kuStandalone

namespace osg {

using kuStandalone::EditBrackets;

const FieldContainerType FieldContainer::_type("FieldContainer", nullptr);
const FieldContainerType NodeCore::_type("NodeCore", &FieldContainer::_type);
const FieldContainerType Group::_type("Group", &NodeCore::_type);
const FieldContainerType SwitchBase::_type("SwitchBase", &Group::_type);
const FieldContainerType Switch::_type("Switch", &SwitchBase::_type);
const FieldContainerType SwitchComponentTransformBase::_type("SwitchComponentTransformBase",
                                                             &Group::_type);
const FieldContainerType SwitchComponentTransform::_type("SwitchComponentTransform",
                                                         &SwitchComponentTransformBase::_type);
const FieldContainerType MaterialGroup::_type("MaterialGroup", &Group::_type);
const FieldContainerType Geometry::_type("Geometry", &NodeCore::_type);
const FieldContainerType UberLight::_type("UberLight", &NodeCore::_type);
const FieldContainerType Sceneplate::_type("Sceneplate", &NodeCore::_type);

FieldContainer::~FieldContainer() = default;
NodeCore::NodeCore(const FieldContainerType& type)
    : FieldContainer(type), _fields(std::make_unique<NodeCoreFields>()) {}
NodeCore::~NodeCore() = default;
Group::~Group() = default;
SwitchBase::~SwitchBase() = default;
Switch::~Switch() = default;
SwitchComponentTransformBase::~SwitchComponentTransformBase() = default;
SwitchComponentTransform::~SwitchComponentTransform() = default;
MaterialGroup::~MaterialGroup() = default;
Geometry::~Geometry() = default;
UberLight::~UberLight() = default;
Sceneplate::~Sceneplate() = default;

int SwitchBase::getChoice() const {
  return static_cast<const kuStandalone::SwitchCore*>(this)->choice;
}

void SwitchBase::setChoice(const int& choice) {
  EditBrackets::noteChange(*this, ChoiceFieldMask, "SwitchBase::setChoice");
  static_cast<kuStandalone::SwitchCore*>(this)->choice = choice;
}

unsigned SwitchComponentTransformBase::getChoice() const {
  return static_cast<const kuStandalone::TransformSwitchCore*>(this)->choice;
}

void SwitchComponentTransformBase::setChoice(const unsigned& choice) {
  EditBrackets::noteChange(*this, ChoiceFieldMask, "SwitchComponentTransformBase::setChoice");
  static_cast<kuStandalone::TransformSwitchCore*>(this)->choice = choice;
}

unsigned SwitchComponentTransform::getCount() const {
  return static_cast<unsigned>(
      static_cast<const kuStandalone::TransformSwitchCore*>(this)->states.size());
}

std::vector<NodePtr> NodeCore::getParents() const {
  const std::vector<kuStandalone::SceneNode*>& parents = _fields->parents;
  std::vector<NodePtr> result;
  for (kuStandalone::SceneNode* parent : parents)
    result.emplace_back(parent);
  return result;
}

bool MaterialGroup::getIgnore() const {
  return static_cast<const kuStandalone::MaterialGroupCore*>(this)->ignore;
}

MaterialPtr MaterialGroup::getMaterial() const {
  return static_cast<const kuStandalone::MaterialGroupCore*>(this)->material;
}

void MaterialGroup::setMaterial(const MaterialPtr& material) {
  EditBrackets::noteChange(*this, MaterialFieldMask, "MaterialGroup::setMaterial");
  kuStandalone::assignMaterial(*this, static_cast<kuStandalone::MaterialGroupCore*>(this)->material,
                               material);
}

MaterialPtr Geometry::getMaterial() const {
  return static_cast<const kuStandalone::GeometryCore*>(this)->material;
}

void Geometry::setMaterial(const MaterialPtr& material) {
  EditBrackets::noteChange(*this, MaterialFieldMask, "Geometry::setMaterial");
  kuStandalone::assignMaterial(*this, static_cast<kuStandalone::GeometryCore*>(this)->material,
                               material);
}

}  // namespace osg
