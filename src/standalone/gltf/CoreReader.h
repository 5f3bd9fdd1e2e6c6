#pragma once

#include <map>
#include <utility>

#include "standalone/gltf/GltfWarnings.h"
#include "standalone/gltf/VariantReader.h"

namespace kuStandalone {

/** Makes the cores of a checked file's nodes. Throws GltfRefusal. */
class CoreReader {
 public:
  /** @param materials the file's by index; all but @p root live longer than the reader. */
  CoreReader(const QJsonObject& root, Scene& scene, const std::vector<osg::MaterialPtr>& materials);

  /** The core of a node that is no clone; null for a node without one. */
  osg::NodeCorePtr make(int index, const QJsonObject& node);

  /** The core of a primitive, which all nodes of its mesh share. */
  osg::NodeCorePtr geometry(int mesh, int primitive);

  int primitives(int mesh) const;

  /** The light that a node bears in the standard's extension. */
  osg::NodeCorePtr light(int index, const QJsonObject& node) const;

 private:
  osg::NodeCorePtr makeRole(int index, const QJsonObject& node, const QJsonObject& extras);
  osg::NodeCorePtr makeStandard(int index, const QJsonObject& node);
  osg::MaterialPtr materialAt(const QJsonValue& index, const std::string& place) const;
  osg::NodeCorePtr makeSwitch(const QJsonObject& extras, const std::string& place) const;
  osg::NodeCorePtr makeTransforms(const QJsonObject& extras, const std::string& place) const;
  osg::NodeCorePtr makeMaterialGroup(const QJsonValue& value, const std::string& place) const;
  osg::NodeCorePtr makeSceneplate(const QJsonValue& value, const std::string& place) const;

  QJsonArray _meshes;
  int _lights, _images;
  const std::vector<osg::MaterialPtr>& _materials;
  VariantReader _variants;
  std::map<std::pair<int, int>, osg::NodeCorePtr> _geometries;
};

}  // namespace kuStandalone
