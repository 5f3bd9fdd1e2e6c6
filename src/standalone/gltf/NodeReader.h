#pragma once

#include "standalone/gltf/CloneMaker.h"
#include "standalone/gltf/CoreReader.h"
#include "standalone/gltf/SceneFile.h"

namespace kuStandalone {

/** Makes the nodes of a checked file, and their cameras, in a new scene. Throws GltfRefusal. */
class NodeReader {
 public:
  /** @param materials the file's by index; all but @p root live longer than the reader. */
  NodeReader(const QJsonObject& root, Scene& scene, const std::vector<osg::MaterialPtr>& materials,
             const SceneLimits& limits);

  /** Reads the scene's top-level nodes and all below them; once. */
  void read(const QJsonArray& topLevel);

  /** The scene's node of each of the file's; null for those that are not in the scene. */
  const std::vector<osg::NodePtr>& nodes() const { return _made; }

 private:
  osg::NodePtr make(int index, std::vector<osg::NodePtr>& made);
  osg::NodePtr nodeToClone(int index);
  void addGeometries(const osg::NodePtr& node, int mesh);
  void addContent(const osg::NodePtr& node, int index, const QJsonObject& json);
  void addCameras();
  void addCamera(const osg::NodePtr& node, int index);
  void count();

  QJsonArray _nodes, _cameras;
  Scene& _scene;
  SceneLimits _limits;
  CoreReader _cores;
  CloneMaker _clones;
  std::size_t _count = 0;
  std::vector<osg::NodePtr> _made;
  /** Nodes that are in no scene and whose content a clone shows; they live as long as this. */
  std::vector<osg::NodePtr> _outside;
};

}  // namespace kuStandalone
