#pragma once

#include <QString>
#include <utility>
#include <vector>

#include "host/kuSceneInterface.h"

/** A node that bears another material than before; a text is empty where it bears none. */
struct NodeMaterialChange {
  /** The path of the node. */
  QString node;
  QString before;
  QString after;
};

/** The materials of the geometries and of the material groups, as they are when it is made. */
class NodeMaterials {
 public:
  NodeMaterials();

  /** The nodes that bear other materials now, in the order of the scene. */
  std::vector<NodeMaterialChange> changes() const;

 private:
  std::vector<std::pair<osg::NodePtr, osg::MaterialPtr>> _former;
};
