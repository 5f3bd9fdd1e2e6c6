#include "standalone/scene/SceneNode.h"

#include <algorithm>
#include <unordered_map>

#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/NodeCoreFields.h"
#include "standalone/scene/SceneTree.h"

namespace kuStandalone {
namespace {

std::unordered_map<std::uint32_t, SceneNode*>& livingNodes() {
  static auto* nodes = new std::unordered_map<std::uint32_t, SceneNode*>();  // outlives all nodes
  return *nodes;
}

void forget(std::vector<SceneNode*>& parents, SceneNode* node) {
  parents.erase(std::find(parents.begin(), parents.end(), node));
}

}  // namespace

osg::NodePtr SceneNode::create(std::string name, osg::NodeCorePtr core) {
  return osg::NodePtr(new SceneNode(std::move(name), std::move(core)));
}

SceneNode* SceneNode::byId(std::uint32_t id) {
  const auto found = livingNodes().find(id);
  return found == livingNodes().end() ? nullptr : found->second;
}

std::uint32_t SceneNode::newId() {
  static std::uint32_t last = 0;
  return ++last;
}

SceneNode::SceneNode(std::string name, osg::NodeCorePtr core)
    : osg::Node(osg::Node::_type), _name(std::move(name)), _id(newId()) {
  livingNodes().emplace(_id, this);
  setCore(std::move(core));
}

SceneNode::~SceneNode() {
  setTree(nullptr);
  for (const osg::NodePtr& child : _children)
    SceneNode::of(child)._parent = nullptr;
  setCore(osg::NullFC);
  livingNodes().erase(_id);
}

void SceneNode::setName(std::string name) {
  if (_tree) _tree->names.remove(*this);
  _name = std::move(name);
  if (_tree) _tree->names.add(*this);
}

void SceneNode::setCore(osg::NodeCorePtr core) {
  if (_tree) _tree->lights.note(_core);
  if (_core) forget(_core->hostFields().parents, this);
  _core = std::move(core);
  if (_core) _core->hostFields().parents.push_back(this);
  if (_tree) _tree->lights.note(_core);
}

void SceneNode::setRenderLayer(RenderLayerPtr layer) {
  _renderLayer = std::move(layer);
  if (_tree) _tree->noteLayer(*this);
}

void SceneNode::addChild(const osg::NodePtr& child) {
  SceneNode& node = of(child);
  node._parent = this;
  node._indexInParent = static_cast<std::uint32_t>(_children.size());
  _children.push_back(child);
  node.setTree(_tree);
}

void SceneNode::removeChild(const osg::NodePtr& child) {
  const auto place = std::find(_children.begin(), _children.end(), child);
  if (place == _children.end()) return;
  const osg::NodePtr kept = *place;
  auto next = _children.erase(place);
  for (; next != _children.end(); ++next)
    --of(*next)._indexInParent;
  of(kept)._parent = nullptr;
  of(kept)._indexInParent = 0;
  of(kept).setTree(nullptr);
}

const Transform& SceneNode::transform() const {
  static const Transform identity;
  return _transform ? *_transform : identity;
}

void SceneNode::setTransform(const Transform& transform) {
  _transform = transform == Transform() ? nullptr : std::make_unique<Transform>(transform);
}

void SceneNode::moveTo(const Transform& transform) {
  EditBrackets::noteChange(*this, TransformFieldMask, "SceneNode::moveTo");
  setTransform(transform);
}

void SceneNode::setTree(SceneTree* tree) {
  if (tree == _tree) return;
  if (_tree) _tree->leave(*this);
  _tree = tree;
  if (_tree) _tree->enter(*this);
  for (const osg::NodePtr& child : _children)
    of(child).setTree(tree);
}

}  // namespace kuStandalone

namespace osg {

const FieldContainerType Node::_type("Node", &FieldContainer::_type);

Node::~Node() = default;

namespace {

const kuStandalone::SceneNode& self(const Node* node) {
  return static_cast<const kuStandalone::SceneNode&>(*node);
}

}  // namespace

NodeCorePtr Node::getCore() const { return self(this).core(); }

unsigned Node::getNChildren() const { return static_cast<unsigned>(self(this).children().size()); }

NodePtr Node::getChild(unsigned index) const {
  const auto& children = self(this).children();
  return index < children.size() ? children[index] : NodePtr();
}

NodePtr Node::getParent() const {
  kuStandalone::SceneNode* parent = self(this).parent();
  return parent ? NodePtr(parent) : NodePtr();
}

AttachmentPtr Node::findAttachment(unsigned groupId, unsigned short binding) const {
  const bool known = groupId == RaytracingGeoAttachment::getClassGroupId() && binding == 0;
  return known ? AttachmentPtr(self(this).renderLayer()) : AttachmentPtr();
}

bool Node::getActive() const { return self(this).active(); }

void Node::setActive(bool active) {
  kuStandalone::EditBrackets::noteChange(*this, TravMaskFieldMask, "Node::setActive");
  static_cast<kuStandalone::SceneNode&>(*this).setActiveFlag(active);
}

}  // namespace osg
