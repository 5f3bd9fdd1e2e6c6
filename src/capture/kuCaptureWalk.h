#pragma once

#include "manager/kuVariants.h"
#include "model/kuVariantSetKeeper.h"

/** What a capture takes in. */
struct kuCaptureFlags {
  bool nodes, mats, lights, env, transforms, renderLayers;
};

/**
 * One walk of a capture over the scene: takes each thing that can vary into the set, in the state
 * that it shows.
 */
class kuVariants::CaptureWalk {
 public:
  /** The containers live for the length of one capture, over several walks. */
  CaptureWalk(kuVariantSet* into, const kuCaptureFlags& what, MaterialSnapshots& foundSnapshots,
              std::vector<kuNodePtr> captureRoots, NodePaths& pathsHandled,
              Switches& switchesCreated, Materials& materialsHandled, bool announce)
      : set(*into),
        incl(what),
        snapshots(foundSnapshots),
        roots(std::move(captureRoots)),
        handledPaths(pathsHandled),
        createdSwitches(switchesCreated),
        handledMaterials(materialsHandled),
        sendMessage(announce) {}

  void visit(const kuNodePtr& node);

 private:
  void storeRenderLayerState(const osg::NodePtr& node);
  bool isCoreSeen(const osg::NodePtr& node);
  void captureTransform(const osg::NodePtr& node);
  void captureSwitch(const osg::NodePtr& node);
  void captureMaterialGroup(const osg::NodePtr& node, const osg::MaterialGroupPtr& group);
  void captureGeometry(const osg::NodePtr& node, const osg::GeometryPtr& geometry);
  void captureLight(const osg::NodePtr& node);
  void visitChildren(const osg::NodePtr& node);

  bool mayGoOn(const osg::NodePtr& node);
  void handleSnapshots(const osg::NodePtr& node, const QString& path, osg::MaterialPtr material);
  void snapshot(const osg::NodePtr& node, const QString& path, const osg::MaterialPtr& material);

  const kuVariantSet::Keeper set;
  kuCaptureFlags incl;
  MaterialSnapshots& snapshots;
  std::vector<kuNodePtr> roots;
  NodePaths& handledPaths;
  Switches& createdSwitches;
  Materials& handledMaterials;
  bool sendMessage;
};
