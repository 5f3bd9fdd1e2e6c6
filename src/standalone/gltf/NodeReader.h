#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <map>
#include <vector>

#include "standalone/gltf/SceneFile.h"

namespace kuStandalone {

/** Makes the nodes of a checked file, and their cameras, in a new scene. Throws GltfRefusal. */
class NodeReader {
 public:
  NodeReader(const QJsonObject& root, Scene& scene, std::vector<osg::MaterialPtr> materials,
             const SceneLimits& limits);

  /** Reads the scene's top-level nodes and all below them. */
  void read(const QJsonArray& topLevel);

  std::vector<std::string> warnings;

 private:
  osg::NodePtr make(int index, bool topLevel);
  osg::NodeCorePtr makeCore(int index, const QJsonObject& node, const QJsonObject& extras);
  osg::NodeCorePtr makeTransforms(int index, const QJsonObject& extras) const;
  osg::MaterialPtr materialAt(const QJsonValue& index, const std::string& place) const;
  osg::NodeCorePtr geometryCore(int mesh, int primitive);
  void addGeometries(const osg::NodePtr& node, int mesh);
  void addCamera(const osg::NodePtr& node, int index);
  void count();

  QJsonArray _nodes, _meshes, _cameras;
  Scene& _scene;
  std::vector<osg::MaterialPtr> _materials;
  SceneLimits _limits;
  std::size_t _count = 0;
  std::map<std::pair<int, int>, osg::NodeCorePtr> _geometries;
};

}  // namespace kuStandalone
