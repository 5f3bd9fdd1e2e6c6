#include "standalone/scene/NodeSnapshot.h"

#include "host/osg/EditCP.h"
#include "standalone/scene/EditBrackets.h"

namespace kuStandalone {
namespace {

template <class States>
void restoreAll(const States& states) {
  for (const auto& state : states)
    state.restore();
}

}  // namespace

NodeSnapshot::NodeSnapshot(const osg::NodePtr& root) {
  if (root) takeBelow(root);
}

void NodeSnapshot::takeBelow(const osg::NodePtr& handle) {
  const SceneNode& node = SceneNode::of(handle);
  const bool moved = node.transform() != Transform();
  _nodes.push_back(
      {handle, node.active(), moved ? std::make_unique<Transform>(node.transform()) : nullptr});
  if (node.renderLayer()) _layers.push_back({node.renderLayer(), node.renderLayer()->copy()});
  takeCore(node.core());
  for (const osg::NodePtr& child : node.children())
    takeBelow(child);
}

void NodeSnapshot::takeCore(const osg::NodeCorePtr& core) {
  if (const auto switchCore = osg::SwitchPtr::dcast(core)) {
    _switches.push_back({switchCore, switchCore->getChoice()});
  } else if (const auto transform = osg::SwitchComponentTransformPtr::dcast(core)) {
    const auto& own = TransformSwitchCore::of(core);
    _transformSwitches.push_back({transform, own.choice, own.supposed});
  } else if (const auto group = osg::MaterialGroupPtr::dcast(core)) {
    const auto& own = MaterialGroupCore::of(core);
    _materialGroups.push_back({group, own.material, own.ignore});
  } else if (const auto geometry = osg::GeometryPtr::dcast(core)) {
    _geometries.push_back({geometry, geometry->getMaterial()});
  } else if (const auto light = osg::UberLightPtr::dcast(core)) {
    _lights.push_back({light, LightCore::of(core).on});
  }
}

void NodeSnapshot::restore() const {
  restoreAll(_nodes);
  restoreAll(_layers);
  restoreAll(_switches);
  restoreAll(_transformSwitches);
  restoreAll(_materialGroups);
  restoreAll(_geometries);
  restoreAll(_lights);
}

void NodeSnapshot::NodeState::restore() const {
  if (node->getActive() != active) {
    const osg::EditCP edit(node, osg::Node::TravMaskFieldMask);
    node->setActive(active);
  }
  const Transform former = transform ? *transform : Transform();
  if (SceneNode::of(node).transform() != former) {
    const osg::EditCP edit(node, SceneNode::TransformFieldMask);
    SceneNode::of(node).moveTo(former);
  }
}

void NodeSnapshot::SwitchState::restore() const {
  if (core->getChoice() == choice) return;
  const osg::EditCP edit(core, osg::Switch::ChoiceFieldMask);
  core->setChoice(choice);
}

void NodeSnapshot::TransformSwitchState::restore() const {
  auto& own = TransformSwitchCore::of(core);
  if (own.choice == choice && own.supposed == supposed) return;
  const osg::EditCP edit(
      core, TransformSwitchCore::ChoiceFieldMask | TransformSwitchCore::SupposedFieldMask);
  own.setChoice(choice);
  own.setSupposed(supposed);
}

void NodeSnapshot::MaterialGroupState::restore() const {
  auto& own = MaterialGroupCore::of(core);
  if (own.material == material && own.ignore == ignore) return;
  const osg::EditCP edit(
      core, osg::MaterialGroup::MaterialFieldMask | osg::MaterialGroup::IgnoreFieldMask);
  own.setMaterial(material);
  EditBrackets::noteChange(own, osg::MaterialGroup::IgnoreFieldMask, "NodeSnapshot");
  own.ignore = ignore;
}

void NodeSnapshot::GeometryState::restore() const {
  if (core->getMaterial() == material) return;
  const osg::EditCP edit(core, osg::Geometry::MaterialFieldMask);
  core->setMaterial(material);
}

void NodeSnapshot::LightState::restore() const {
  auto& own = LightCore::of(core);
  if (own.on == on) return;
  const osg::EditCP edit(core, LightCore::OnFieldMask);
  own.setOn(on);
}

}  // namespace kuStandalone
