#include "standalone/rendering/VisibleScene.h"

#include "standalone/gltf/GltfSource.h"
#include "standalone/rendering/Vectors.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

namespace {

/** The node's own transform, and that of the named state that it stands in. */
Placement localPlacement(const SceneNode& node) {
  const Placement own(node.transform());
  if (!osg::SwitchComponentTransformPtr::dcast(node.core())) return own;
  const auto& core = TransformSwitchCore::of(node.core());
  if (core.choice >= core.states.size()) return own;
  return own * Placement(core.states[core.choice].transform);
}

/** The rays to which the node's render layer shows it. */
RayKinds shownTo(const SceneNode& node) {
  if (!node.renderLayer()) return allRayKinds;
  const RayVisibility& seen = node.renderLayer()->present();
  return (seen.camera ? RayKinds(RayKind::Camera) : 0) |
         (seen.reflections ? RayKinds(RayKind::Reflection) : 0) |
         (seen.shadows ? RayKinds(RayKind::Shadow) : 0);
}

class Collector {
 public:
  Collector(const Scene& scene, VisibleScene& visible)
      : _source(dynamic_cast<const GltfSource*>(scene.source.get())), _visible(visible) {}

  /** @param outerGroup, outerKinds the material group that counts and the rays that see, as the
   * nodes above say. */
  void walk(const osg::NodePtr& handle, const Placement& outer, const osg::MaterialPtr& outerGroup,
            RayKinds outerKinds) {
    const SceneNode& node = SceneNode::of(handle);
    if (!node.active()) return;
    const Placement placement = outer * localPlacement(node);
    const RayKinds seenBy = outerKinds & shownTo(node);
    take(node, placement, outerGroup, seenBy);
    const osg::MaterialPtr group = groupMaterial(node, outerGroup);
    for (const osg::NodePtr& child : ShownChildren(node))
      walk(child, placement, group, seenBy);
  }

 private:
  static osg::MaterialPtr groupMaterial(const SceneNode& node, const osg::MaterialPtr& outer) {
    if (!osg::MaterialGroupPtr::dcast(node.core())) return outer;
    const auto& core = MaterialGroupCore::of(node.core());
    return core.ignore || !core.material ? outer : core.material;
  }

  void take(const SceneNode& node, const Placement& placement, const osg::MaterialPtr& group,
            RayKinds seenBy) {
    if (osg::GeometryPtr::dcast(node.core())) {
      if (seenBy == 0) return;
      const auto& core = GeometryCore::of(node.core());
      _visible.geometries.push_back(
          {node.id(), &core, placement, group ? group : core.material, seenBy});
    } else if (osg::UberLightPtr::dcast(node.core())) {
      const auto& core = LightCore::of(node.core());
      if (core.on) takeLight(core, placement);
    }
  }

  void takeLight(const LightCore& core, const Placement& placement) {
    const QVector3D position = placement.origin();
    const QVector3D direction = unit(placement.direction({0, 0, -1}));
    if (isFinite(position) && !direction.isNull())
      _visible.lights.push_back({readLight(_source, core.light), position, direction});
  }

  const GltfSource* _source;
  VisibleScene& _visible;
};

}  // namespace

VisibleScene::VisibleScene(const Scene& scene) {
  if (scene.nodes.root) {
    Collector(scene, *this).walk(scene.nodes.root, Placement(), osg::NullFC, allRayKinds);
  }
}

Placement worldPlacement(const osg::NodePtr& node) {
  Placement placement;
  for (const SceneNode* at = &SceneNode::of(node); at; at = at->parent())
    placement = localPlacement(*at) * placement;
  return placement;
}

ShownChildren::ShownChildren(const SceneNode& node)
    : _begin(node.children().data()), _end(_begin + node.children().size()) {
  if (!osg::SwitchPtr::dcast(node.core())) return;
  const int choice = SwitchCore::of(node.core()).choice;
  if (choice == -2) return;
  const bool chooses = choice >= 0 && std::size_t(choice) < node.children().size();
  if (chooses) _begin += choice;
  _end = _begin + (chooses ? 1 : 0);
}

}  // namespace kuStandalone
