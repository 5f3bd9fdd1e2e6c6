#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/osg/Node.h"
#include "standalone/scene/RenderLayer.h"
#include "standalone/scene/Transform.h"

namespace kuStandalone {

struct SceneTree;

/**
 * The node of this host. A parent owns its children. While the topmost ancestor is the root of a
 * SceneTree, the node stands in that tree's name index.
 */
class KUHOST_EXPORT SceneNode final : public osg::Node {
 public:
  /** A node without parent. @param core null for a node without one. */
  static osg::NodePtr create(std::string name, osg::NodeCorePtr core);

  /** The node behind a handle, which must not be null. */
  static SceneNode& of(const osg::NodePtr& node) { return static_cast<SceneNode&>(*node); }

  /** The living node of that identifier, or null. */
  static SceneNode* byId(std::uint32_t id);

  /** A number that no object of the scene has had. */
  static std::uint32_t newId();

  /** Identifier in this process, from 1; never used twice. */
  std::uint32_t id() const { return _id; }

  const std::string& name() const { return _name; }
  void setName(std::string name);

  const osg::NodeCorePtr& core() const { return _core; }
  void setCore(osg::NodeCorePtr core);

  bool active() const { return _active; }
  /** The flag as data: no bracket is asked for. */
  void setActiveFlag(bool active) { _active = active; }

  /** The node's render layer, or null; the attachment of binding 0. */
  const RenderLayerPtr& renderLayer() const { return _renderLayer; }
  /** The attachment as data: no bracket is asked for. @param layer of no other node; may be null.
   */
  void setRenderLayer(RenderLayerPtr layer);

  const std::vector<osg::NodePtr>& children() const { return _children; }
  SceneNode* parent() const { return _parent; }
  /** The place among the parent's children; 0 without a parent. */
  unsigned indexInParent() const { return _indexInParent; }

  /** Appends a node that has no parent. */
  void addChild(const osg::NodePtr& child);
  /** Takes a child out; a node that is no child changes nothing. */
  void removeChild(const osg::NodePtr& child);

  static constexpr osg::FieldMask TransformFieldMask = osg::FieldMask(1) << 1;

  const Transform& transform() const;
  /** Stands in an edit bracket whose mask has TransformFieldMask. */
  void moveTo(const Transform& transform);
  /** The transform as data: no bracket is asked for. */
  void setTransform(const Transform& transform);

  /** Index of the node in the file that the scene came from, or -1. */
  int source() const { return _source; }
  void setSource(int source) { _source = source; }

  /** The tree that the node stands in, or null. */
  SceneTree* tree() const { return _tree; }
  /** Enters the node and all below it in a tree's index, or with null takes them out. */
  void setTree(SceneTree* tree);

  /** The node's place among those of its name; the tree's index alone knows what it means. */
  std::uint32_t placeInNames() const { return _placeInNames; }
  void setPlaceInNames(std::uint32_t place) { _placeInNames = place; }

 private:
  SceneNode(std::string name, osg::NodeCorePtr core);
  ~SceneNode() override;

  std::string _name;
  osg::NodeCorePtr _core;
  RenderLayerPtr _renderLayer;
  std::vector<osg::NodePtr> _children;
  SceneNode* _parent = nullptr;
  SceneTree* _tree = nullptr;
  std::uint32_t _id;
  std::uint32_t _indexInParent = 0;
  std::uint32_t _placeInNames = 0;
  int _source = -1;
  bool _active = true;
  /** Null for the identity, which most nodes have. */
  std::unique_ptr<Transform> _transform;
};

}  // namespace kuStandalone
