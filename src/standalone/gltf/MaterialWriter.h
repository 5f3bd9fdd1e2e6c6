#pragma once

#include <unordered_map>
#include <vector>

#include "standalone/gltf/GltfDraft.h"
#include "standalone/scene/Scene.h"

namespace kuStandalone {

/** Gives the materials of a scene their indices and writes them. */
class MaterialWriter {
 public:
  MaterialWriter(const Scene& scene, GltfDraft& draft);

  /** The index of a material, which is entered if it is a new one; -1 for null. */
  int indexOf(const osg::MaterialPtr& material);

  /** The same as a JSON value: undefined for null. */
  QJsonValue valueOf(const osg::MaterialPtr& material);

  /** Writes all materials that have an index, and those that they consist of. */
  void write();

 private:
  void claim(const osg::MaterialPtr& material, int index);
  void writeOne(const osg::MaterialPtr& material);
  QJsonValue switchOf(const osg::MaterialPtr& material, QJsonObject json);

  GltfDraft& _draft;
  std::unordered_map<const osg::Material*, int> _indices;
  /** The materials by index; null for those that the scene has no longer. */
  std::vector<osg::MaterialPtr> _materials;
};

}  // namespace kuStandalone
