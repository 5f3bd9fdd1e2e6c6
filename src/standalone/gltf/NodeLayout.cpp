#include "standalone/gltf/NodeLayout.h"

#include <algorithm>

#include "standalone/scene/NodeCoreFields.h"

namespace kuStandalone {
namespace {

const GeometryCore* geometryOf(const SceneNode& node) {
  return osg::GeometryPtr::dcast(node.core()) ? &GeometryCore::of(node.core()) : nullptr;
}

const LightCore* lightOf(const SceneNode& node) {
  return osg::UberLightPtr::dcast(node.core()) ? &LightCore::of(node.core()) : nullptr;
}

/** A group without a role of its own. */
bool isPlainGroup(const SceneNode& node) {
  return node.core() && &node.core()->getType() == &osg::Group::_type;
}

bool hasSameLayer(const SceneNode& node, const SceneNode& other) {
  const RenderLayerPtr &layer = node.renderLayer(), &otherLayer = other.renderLayer();
  return layer && otherLayer ? layer->equals(*otherLayer) : layer == otherLayer;
}

}  // namespace

NodeLayout::NodeLayout(const Scene& scene, const GltfDraft& draft)
    : _draft(draft), _count(int(draft.nodes.size())) {
  const SceneNode& root = SceneNode::of(scene.nodes.root);
  for (const osg::NodePtr& top : root.children())
    number(SceneNode::of(top));
  if (scene.sceneplates.root) number(SceneNode::of(scene.sceneplates.root));
  pin(scene);
  for (const SceneNode* node : _all)
    fold(*node);
  findWhatCannotFold();
  for (const SceneNode* node : _all)
    fold(*node);
  for (const osg::NodePtr& top : root.children())
    lay(SceneNode::of(top));
  if (scene.sceneplates.root) lay(SceneNode::of(scene.sceneplates.root));
  for (const SceneNode* node : _written) {
    NodePlace& place = _places[node];
    if (place.index < 0) place.index = _count++;
  }
}

int NodeLayout::indexOf(const osg::NodePtr& node) const {
  if (!node) return -1;
  const auto found = _places.find(&SceneNode::of(node));
  return found == _places.end() ? -1 : found->second.index;
}

void NodeLayout::number(const SceneNode& node) {
  _order.emplace(&node, _all.size());
  _all.push_back(&node);
  for (const osg::NodePtr& child : node.children())
    number(SceneNode::of(child));
}

void NodeLayout::pin(const Scene& scene) {
  for (const Camera& camera : scene.cameras) {
    if (camera.node) _withCamera.insert(&SceneNode::of(camera.node));
  }
  for (const AnimationClip& clip : scene.animations) {
    for (const AnimationChannel& channel : clip.channels) {
      if (channel.node) _pinned.insert(&SceneNode::of(channel.node));
    }
  }
  _pinned.insert(_withCamera.begin(), _withCamera.end());
  std::vector<bool> taken(_draft.nodes.size());
  for (const SceneNode* node : _all) {
    NodePlace& place = _places[node];
    if (node->source() < 0 || node->source() >= int(taken.size())) continue;
    if (taken[std::size_t(node->source())]) continue;
    taken[std::size_t(node->source())] = true;
    place.index = node->source();
    _pinned.insert(node);
  }
}

int NodeLayout::primitivesOf(int mesh) const {
  if (mesh < 0 || std::size_t(mesh) >= _draft.meshes.size()) return 0;
  return _draft.meshes[std::size_t(mesh)].value("primitives").toArray().size();
}

bool NodeLayout::isMadeByLoader(const SceneNode& node, const std::string& name) const {
  return node.name() == name && node.active() && node.transform() == Transform() &&
         !node.renderLayer() && node.children().empty() && _pinned.count(&node) == 0;
}

void NodeLayout::fold(const SceneNode& node) {
  NodePlace& place = _places[&node];
  place.light = nullptr;
  place.mesh = -1;
  place.children = node.children().size();
  if (osg::GroupPtr::dcast(node.core()) == osg::NullFC) return;
  foldLight(node, place);
  foldMesh(node, place);
}

void NodeLayout::foldLight(const SceneNode& node, NodePlace& place) const {
  if (place.children == 0) return;
  const SceneNode& last = SceneNode::of(node.children().back());
  const LightCore* light = lightOf(last);
  if (!light || light->light < 0 || _openLights.count(light)) return;
  if (!isMadeByLoader(last, node.name() + ".light")) return;
  // A group with a light and nothing else would come back as the light itself.
  if (isPlainGroup(node) && place.children == 1 && !bearsCamera(node)) return;
  place.light = light;
  --place.children;
}

void NodeLayout::foldMesh(const SceneNode& node, NodePlace& place) const {
  if (place.children == 0) return;
  const GeometryCore* last = geometryOf(SceneNode::of(node.children()[place.children - 1]));
  if (!last || _openMeshes.count(last->mesh)) return;
  const int count = primitivesOf(last->mesh);
  if (count == 0 || std::size_t(count) > place.children) return;
  const std::size_t first = place.children - std::size_t(count);
  for (int primitive = 0; primitive < count; ++primitive) {
    const SceneNode& child = SceneNode::of(node.children()[first + std::size_t(primitive)]);
    const GeometryCore* core = geometryOf(child);
    if (!core || core->mesh != last->mesh || core->primitive != primitive) return;
    if (!isMadeByLoader(child, node.name() + ".geometry" + std::to_string(primitive + 1))) return;
  }
  // A group with one primitive and nothing else would come back as the geometry itself.
  const bool leaf = first == 0 && !place.light && !bearsCamera(node);
  if (isPlainGroup(node) && count == 1 && leaf) return;
  place.mesh = last->mesh;
  place.children = first;
}

void NodeLayout::findWhatCannotFold() {
  std::set<const SceneNode*> folded;
  for (const SceneNode* node : _all) {
    for (std::size_t i = _places[node].children; i < node->children().size(); ++i)
      folded.insert(&SceneNode::of(node->children()[i]));
  }
  for (const SceneNode* node : _all) {
    if (folded.count(node)) continue;
    const GeometryCore* geometry = geometryOf(*node);
    if (geometry && primitivesOf(geometry->mesh) > 1) _openMeshes.insert(geometry->mesh);
    if (const LightCore* light = lightOf(*node)) _openLights.insert(light);
  }
}

const SceneNode* NodeLayout::originalOf(const SceneNode& node) const {
  if (!node.core()) return &node;
  for (const SceneNode* parent : node.core()->hostFields().parents) {
    if (_order.count(parent)) return parent;
  }
  return &node;
}

bool NodeLayout::sharesByMesh(const SceneNode& node, const SceneNode& original) const {
  const GeometryCore* geometry = geometryOf(node);
  if (!geometry || primitivesOf(geometry->mesh) == 0) return false;
  const int index = _places.at(&node).index;
  const bool named = index >= 0 && std::size_t(index) < _draft.nodes.size() &&
                     extrasOf(_draft.nodes[std::size_t(index)]).contains("cloneOf");
  if (named) return false;
  const auto& parents = node.core()->hostFields().parents;
  return std::none_of(parents.begin(), parents.end(), [&](const SceneNode* parent) {
    const auto found = _order.find(parent);
    return found != _order.end() && found->second < _order.at(&original);
  });
}

bool NodeLayout::isCopy(const SceneNode& node, const SceneNode& original) const {
  const auto& children = node.children();
  if (children.size() != original.children().size()) return false;
  for (std::size_t i = 0; i < children.size(); ++i) {
    const SceneNode& child = SceneNode::of(children[i]);
    const SceneNode& other = SceneNode::of(original.children()[i]);
    if (child.name() != other.name() || child.active() != other.active() ||
        child.transform() != other.transform() || child.core() != other.core() ||
        !hasSameLayer(child, other) || &child == &other || _pinned.count(&child) ||
        originalOf(child) == &child || !isCopy(child, other)) {
      return false;
    }
  }
  return true;
}

void NodeLayout::lay(const SceneNode& node) {
  NodePlace& place = _places[&node];
  _written.push_back(&node);
  const SceneNode* original = originalOf(node);
  if (original != &node && !sharesByMesh(node, *original)) {
    place.original = original;
    place.light = nullptr;
    place.mesh = -1;
    place.ownChildren = !isCopy(node, *original);
    place.children = place.ownChildren ? node.children().size() : 0;
  }
  for (std::size_t i = 0; i < place.children; ++i)
    lay(SceneNode::of(node.children()[i]));
}

}  // namespace kuStandalone
