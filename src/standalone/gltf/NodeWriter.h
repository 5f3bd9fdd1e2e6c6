#pragma once

#include <map>
#include <utility>

#include "standalone/gltf/MaterialWriter.h"
#include "standalone/gltf/NodeLayout.h"

namespace kuStandalone {

/** Writes the nodes of a scene, their cores and the materials that geometries bear. */
class NodeWriter {
 public:
  NodeWriter(const Scene& scene, GltfDraft& draft, const NodeLayout& layout,
             MaterialWriter& materials);

  void write();

 private:
  void writeNode(const SceneNode& node);
  static void writeRenderLayer(QJsonObject& json, const SceneNode& node);
  void writeChildren(QJsonObject& json, const SceneNode& node);
  void writeCore(QJsonObject& json, const SceneNode& node);
  void writeSwitch(QJsonObject& json, const SceneNode& node);
  void writeTransforms(QJsonObject& json, const SceneNode& node);
  void writeMaterialGroup(QJsonObject& json, const SceneNode& node);
  void writeSceneplate(QJsonObject& json, const SceneNode& node);
  void writeGeometry(QJsonObject& json, const SceneNode& node);
  void writeLight(QJsonObject& json, const SceneNode& node);
  void writeTopLevel();
  void detachOthers();
  int lightOf(const LightCore& core);
  bool keepsMappings(const QJsonObject& primitive, const osg::MaterialPtr& material);
  int meshOf(const GeometryCore& core);
  void setPrimitiveMaterial(int mesh, int primitive, const osg::MaterialPtr& material);

  const Scene& _scene;
  GltfDraft& _draft;
  const NodeLayout& _layout;
  MaterialWriter& _materials;
  /** Meshes that were made for one primitive of a bigger one. */
  std::map<const GeometryCore*, int> _ownMeshes;
};

}  // namespace kuStandalone
