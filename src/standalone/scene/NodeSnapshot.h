#pragma once

#include <memory>
#include <vector>

#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

/** How the nodes of one tree and their cores stood at one moment; see SceneSnapshot. */
class NodeSnapshot {
 public:
  /** @param root may be null. */
  explicit NodeSnapshot(const osg::NodePtr& root);

  void restore() const;

 private:
  struct NodeState {
    osg::NodePtr node;
    bool active;
    /** Null for the identity, which most nodes have. */
    std::unique_ptr<Transform> transform;

    void restore() const;
  };
  struct LayerState {
    RenderLayerPtr layer, former;

    void restore() const { layer->assign(*former); }
  };
  struct SwitchState {
    osg::SwitchPtr core;
    int choice;

    void restore() const;
  };
  struct TransformSwitchState {
    osg::SwitchComponentTransformPtr core;
    unsigned choice;
    int supposed;

    void restore() const;
  };
  struct MaterialGroupState {
    osg::MaterialGroupPtr core;
    osg::MaterialPtr material;
    bool ignore;

    void restore() const;
  };
  struct GeometryState {
    osg::GeometryPtr core;
    osg::MaterialPtr material;

    void restore() const;
  };
  struct LightState {
    osg::UberLightPtr core;
    bool on;

    void restore() const;
  };

  void takeBelow(const osg::NodePtr& node);
  void takeCore(const osg::NodeCorePtr& core);

  std::vector<NodeState> _nodes;
  std::vector<LayerState> _layers;
  std::vector<SwitchState> _switches;
  std::vector<TransformSwitchState> _transformSwitches;
  std::vector<MaterialGroupState> _materialGroups;
  std::vector<GeometryState> _geometries;
  std::vector<LightState> _lights;
};

}  // namespace kuStandalone
