#include "standalone/gltf/CloneMaker.h"

#include <algorithm>

#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

bool isClone(const QJsonObject& node) { return node["extras"].toObject().contains("cloneOf"); }

std::string placeOf(int index) { return gltfPlace("nodes", index, "extras.cloneOf"); }

}  // namespace

CloneMaker::CloneMaker(QJsonArray nodes, const osg::NodePtr& root, std::size_t maximalDepth,
                       Callbacks callbacks)
    : _nodes(std::move(nodes)),
      _root(&SceneNode::of(root)),
      _maximalDepth(maximalDepth),
      _callbacks(std::move(callbacks)) {}

void CloneMaker::note(const osg::NodePtr& clone, int index, const QJsonValue& original,
                      bool ownChildren) {
  _places.emplace(&SceneNode::of(clone), _clones.size());
  _clones.push_back({clone, index, originalOf(index, original), ownChildren});
}

int CloneMaker::originalOf(int index, const QJsonValue& original) {
  const std::string place = placeOf(index);
  if (!original.isString()) {
    const int which = neededIndexIn(original, _nodes.size(), place);
    if (isClone(_nodes[which].toObject())) throw GltfRefusal(place, "names a clone");
    return which;
  }
  if (_names.empty()) indexNames();
  const std::string name = original.toString().toStdString();
  const auto found = _names.find(name);
  if (found == _names.end()) throw GltfRefusal(place, "there is no node '" + name + "' to clone");
  return found->second;
}

void CloneMaker::indexNames() {
  for (int index = 0; index < _nodes.size(); ++index) {
    const QJsonObject node = _nodes[index].toObject();
    if (!isClone(node)) _names.emplace(node["name"].toString().toStdString(), index);
  }
}

void CloneMaker::fillAll() {
  // Originals that are made on the way may bear clones of their own.
  for (std::size_t place = 0; place < _clones.size(); ++place)
    fill(place, 0);
}

/** @param depth the depth of the copy that asks for the clone; the clone's own may be less. */
void CloneMaker::fill(std::size_t place, std::size_t depth) {
  if (_clones[place].state == Clone::Filled) return;
  const int index = _clones[place].index;
  if (_clones[place].state == Clone::InWork) {
    throw GltfRefusal(placeOf(index), "the clone lies below its own original");
  }
  _clones[place].state = Clone::InWork;
  const osg::NodePtr original = _callbacks.node(_clones[place].original);
  SceneNode& clone = SceneNode::of(_clones[place].node);
  clone.setCore(original->getCore());
  if (!_clones[place].ownChildren) {
    copyChildren(SceneNode::of(original), clone, std::max(depth, depthOf(clone)));
  }
  _clones[place].state = Clone::Filled;
}

void CloneMaker::copyChildren(const SceneNode& from, SceneNode& to, std::size_t depth) {
  if (from.children().empty()) return;
  if (++depth > _maximalDepth) throw GltfRefusal("nodes", "the clones lie too deep");
  for (const osg::NodePtr& child : from.children()) {
    SceneNode& original = SceneNode::of(child);
    _callbacks.count();
    const auto clone = _places.find(&original);
    if (clone != _places.end()) fill(clone->second, depth);
    const osg::NodePtr copy = SceneNode::create(original.name(), original.core());
    SceneNode::of(copy).setTransform(original.transform());
    SceneNode::of(copy).setActiveFlag(original.active());
    if (original.renderLayer()) SceneNode::of(copy).setRenderLayer(original.renderLayer()->copy());
    to.addChild(copy);
    copyChildren(original, SceneNode::of(copy), depth);
  }
}

std::size_t CloneMaker::depthOf(const SceneNode& node) const {
  std::size_t depth = 0;
  for (const SceneNode* at = &node; at && at != _root; at = at->parent())
    ++depth;
  return depth;
}

}  // namespace kuStandalone
