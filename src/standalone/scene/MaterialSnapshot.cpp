#include "standalone/scene/MaterialSnapshot.h"

#include "host/osg/EditCP.h"
#include "host/utils/kuMaterials.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/MaterialUse.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

namespace kuStandalone {
namespace {

constexpr osg::FieldMask PartsMask =
    osg::SwitchMaterial::MaterialsFieldMask | osg::SwitchMaterial::ChoiceFieldMask;

bool hasPresets(const osg::MaterialPtr& material) {
  return material->getType().isDerivedFrom(PresetMaterial::_type);
}

void restorePreset(const osg::MaterialPtr& material, int preset) {
  PresetMaterial& own = PresetMaterial::of(material);
  if (own.present == preset) return;
  const osg::EditCP edit(material);
  own.present = preset;
}

osg::MaterialPtr materialOf(const SceneNode& node) {
  if (osg::GeometryPtr::dcast(node.core())) return GeometryCore::of(node.core()).material;
  if (osg::MaterialGroupPtr::dcast(node.core())) return MaterialGroupCore::of(node.core()).material;
  return {};
}

}  // namespace

MaterialSnapshot::MaterialSnapshot(const Scene& scene)
    : _pool(ScenePool::of(scene.pool).materials()) {
  Known known;
  for (const osg::MaterialPtr& material : _pool)
    take(material, known);
  takeBelow(SceneNode::of(scene.nodes.root), known);
}

void MaterialSnapshot::take(const osg::MaterialPtr& material, Known& known) {
  if (!material || !known.insert(material.get()).second) return;
  const osg::MaterialFields& fields = material->hostFields();
  const int preset = hasPresets(material) ? PresetMaterial::of(material).present : -1;
  _states.push_back({material, fields.name, fields.subMaterials, fields.choice, preset});
  for (const osg::MaterialPtr& part : fields.subMaterials)
    take(part, known);
}

/** What is on a node need not be in the pool. */
void MaterialSnapshot::takeBelow(const SceneNode& node, Known& known) {
  take(materialOf(node), known);
  for (const osg::NodePtr& child : node.children())
    takeBelow(SceneNode::of(child), known);
}

void MaterialSnapshot::restore(Scene& scene) const {
  for (const State& state : _states)
    restore(state);
  restorePool(scene);
}

void MaterialSnapshot::restore(const State& state) {
  osg::MaterialFields& fields = state.material->hostFields();
  if (fields.name != state.name) kuMaterials::setName(state.material, state.name.c_str(), false);
  if (fields.subMaterials != state.subMaterials || fields.choice != state.choice) {
    const osg::EditCP edit(state.material, PartsMask);
    EditBrackets::noteChange(*state.material, PartsMask, "MaterialSnapshot");
    fields.choice = state.choice;
    if (const auto multi = osg::MultiMaterialPtr::dcast(state.material)) {
      assignSubMaterials(*multi, state.subMaterials);
    }
  }
  if (hasPresets(state.material)) restorePreset(state.material, state.preset);
}

/** The same materials in the same order, since the first of a name is the one that is found. */
void MaterialSnapshot::restorePool(Scene& scene) const {
  ScenePool& pool = ScenePool::of(scene.pool);
  if (pool.materials() == _pool) return;
  const osg::EditCP edit(scene.pool);
  const osg::MFMaterialPtr present = pool.materials();
  for (auto material = present.rbegin(); material != present.rend(); ++material)
    pool.remove(*material);
  for (const osg::MaterialPtr& material : _pool)
    pool.enter(material);
}

}  // namespace kuStandalone
