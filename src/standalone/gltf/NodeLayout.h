#pragma once

#include <set>
#include <unordered_map>
#include <vector>

#include "standalone/gltf/GltfDraft.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

/** What stands for a node in the file. */
struct NodePlace {
  /** Index among the file's nodes; -1 if the node's parent or its original stands for it. */
  int index = -1;
  /** The node whose core is shared by name; null for a node that tells its core itself. */
  const SceneNode* original = nullptr;
  /** Whether the children of a clone stand in the file, since they are not as the original's. */
  bool ownChildren = false;
  /** The mesh of the last children, which the file gives as this node's own; -1 for none. */
  int mesh = -1;
  /** The last child if it is the light of this node, likewise. */
  const LightCore* light = nullptr;
  /** The number of children that stand in the file. */
  std::size_t children = 0;
};

/** Decides for each node of a scene where and how it stands in the file. */
class NodeLayout {
 public:
  NodeLayout(const Scene& scene, const GltfDraft& draft);

  /** The nodes that stand in the file, in the order of a depth-first walk. */
  const std::vector<const SceneNode*>& written() const { return _written; }

  const NodePlace& placeOf(const SceneNode& node) const { return _places.at(&node); }

  /** The index of the node in the file; -1 for none. */
  int indexOf(const osg::NodePtr& node) const;

  bool bearsCamera(const SceneNode& node) const { return _withCamera.count(&node) != 0; }

  /** The number of nodes in the file, those that the scene does not show included. */
  int count() const { return _count; }

 private:
  void number(const SceneNode& node);
  void pin(const Scene& scene);
  void fold(const SceneNode& node);
  void foldLight(const SceneNode& node, NodePlace& place) const;
  void foldMesh(const SceneNode& node, NodePlace& place) const;
  bool isMadeByLoader(const SceneNode& node, const std::string& name) const;
  void findWhatCannotFold();
  void lay(const SceneNode& node);
  const SceneNode* originalOf(const SceneNode& node) const;
  bool sharesByMesh(const SceneNode& node, const SceneNode& original) const;
  bool isCopy(const SceneNode& node, const SceneNode& original) const;
  int primitivesOf(int mesh) const;

  const GltfDraft& _draft;
  int _count;
  /** All nodes in the order of a depth-first walk, and their places in it. */
  std::vector<const SceneNode*> _all;
  std::unordered_map<const SceneNode*, std::size_t> _order;
  std::unordered_map<const SceneNode*, NodePlace> _places;
  std::vector<const SceneNode*> _written;
  std::set<const SceneNode*> _withCamera;
  /** Nodes that something else in the file points at. */
  std::set<const SceneNode*> _pinned;
  std::set<int> _openMeshes;
  std::set<const osg::NodeCore*> _openLights;
};

}  // namespace kuStandalone
