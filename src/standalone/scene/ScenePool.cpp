#include "standalone/scene/ScenePool.h"

#include <algorithm>

#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/MaterialFields.h"

namespace kuStandalone {
namespace {

bool ranksBefore(const osg::MaterialPtr& a, const osg::MaterialPtr& b) {
  return a->hostFields().poolRank < b->hostFields().poolRank;
}

/** The first place that does not rank before the material: its own if it is in the list. */
osg::MFMaterialPtr::iterator placeIn(osg::MFMaterialPtr& list, const osg::MaterialPtr& material) {
  return std::lower_bound(list.begin(), list.end(), material, ranksBefore);
}

}  // namespace

ScenePool::ScenePool() : osg::MaterialPool(osg::MaterialPool::_type) {}

ScenePool::~ScenePool() {
  for (const osg::MaterialPtr& material : _materials)
    material->hostFields().pool = nullptr;
}

osg::MaterialPoolPtr ScenePool::create() { return osg::MaterialPoolPtr(new ScenePool); }

void ScenePool::enter(const osg::MaterialPtr& material) {
  if (!material || material->hostFields().pool == this) return;
  material->hostFields().pool = this;
  material->hostFields().poolRank = ++_lastRank;
  _materials.push_back(material);
  _names[material->hostFields().name].push_back(material);
}

void ScenePool::remove(const osg::MaterialPtr& material) {
  if (!material || material->hostFields().pool != this) return;
  const osg::MaterialPtr kept = material;
  unindex(kept);
  _materials.erase(placeIn(_materials, kept));
  kept->hostFields().pool = nullptr;
}

const osg::MFMaterialPtr& ScenePool::find(std::string_view name) const {
  static const osg::MFMaterialPtr none;
  const auto found = _names.find(name, TextHash(), TextEqual());
  return found == _names.end() ? none : found->second;
}

std::string ScenePool::uniqueName(const std::string& name) {
  std::string result = name;
  while (!find(result).empty())
    result = name + std::to_string(++_lastNumbers.try_emplace(name, 1u).first->second);
  return result;
}

void ScenePool::rename(osg::MaterialPtr material, std::string name) {
  unindex(material);
  material->hostFields().name = std::move(name);
  index(material);
}

void ScenePool::index(const osg::MaterialPtr& material) {
  osg::MFMaterialPtr& bucket = _names[material->hostFields().name];
  bucket.insert(placeIn(bucket, material), material);
}

void ScenePool::unindex(const osg::MaterialPtr& material) {
  const auto found = _names.find(material->hostFields().name);
  osg::MFMaterialPtr& bucket = found->second;
  bucket.erase(placeIn(bucket, material));
  if (bucket.empty()) _names.erase(found);
}

}  // namespace kuStandalone

namespace osg {

const FieldContainerType MaterialPool::_type("MaterialPool", &FieldContainer::_type);

MaterialPool::~MaterialPool() = default;

void MaterialPool::add(const MaterialPtr& material) {
  kuStandalone::EditBrackets::noteChange(*this, AllFieldsMask, "MaterialPool::add");
  static_cast<kuStandalone::ScenePool*>(this)->enter(material);
}

}  // namespace osg
