#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <map>
#include <set>
#include <unordered_map>
#include <vector>

#include "standalone/scene/Scene.h"

namespace kuStandalone {

/**
 * The variants of a file (KHR_materials_variants): makes switch materials of the primitives'
 * mappings and fills Scene::fileVariants. Throws GltfRefusal.
 */
class VariantReader {
 public:
  /** @param materials the file's by index; they and @p scene live longer than the reader. */
  VariantReader(const QJsonObject& root, Scene& scene,
                const std::vector<osg::MaterialPtr>& materials);

  /** What a primitive bears: a switch if it has mappings, and else its own material. */
  osg::MaterialPtr materialOf(const QJsonObject& primitive, const std::string& place);

 private:
  /** The material of each variant that has one. */
  using Mapping = std::map<int, int>;

  osg::MaterialPtr ownOf(int own);
  Mapping mappingOf(const QJsonObject& extension, std::vector<int>& order,
                    const std::string& place) const;
  osg::SwitchMaterialPtr switchOf(int own, const std::vector<int>& order);
  void enterChoices(const osg::SwitchMaterialPtr& material, const Mapping& mapping,
                    const std::string& place);
  std::string uniqueName(const std::string& wanted);

  Scene& _scene;
  const std::vector<osg::MaterialPtr>& _materials;
  osg::MaterialPtr _default;
  std::map<std::pair<int, Mapping>, osg::SwitchMaterialPtr> _switches;
  /** The file's own switches that follow its variants. */
  std::set<int> _asTheyAre;
  std::unordered_map<std::string, int> _numbers;
  std::size_t _choices = 0;
};

}  // namespace kuStandalone
