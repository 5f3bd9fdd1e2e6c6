#include "capture/kuSnapshotIndex.h"

#include "model/kuSnapshotRevision.h"
#include "model/kuVariantSet.h"

kuSnapshotIndex* kuSnapshotIndex::_present = nullptr;

kuSnapshotIndex::kuSnapshotIndex() : _outer(_present) { _present = this; }

kuSnapshotIndex::~kuSnapshotIndex() { _present = _outer; }

kuSnapshotIndex::Paths& kuSnapshotIndex::pathsOf(const kuVariantSet& set, const QString& material) {
  forgetIfOutdated();
  auto known = _sets.find(set.id());
  if (known == _sets.end()) known = _sets.insert(set.id(), pathsByMaterial(set));
  return (*known)[material];
}

void kuSnapshotIndex::replace(kuVariantSet& set, const QString& path, const QString& material) {
  if (_present) _present->forgetIfOutdated();
  const QString former = set.getMaterialSnapshot(path);
  set.removeMaterialSnapshot(path);
  set.addMaterialSnapshot(path, material);
  if (!_present) return;
  _present->_revision = kuSnapshotRevision();
  const auto known = _present->_sets.find(set.id());
  if (known == _present->_sets.end()) return;
  (*known)[former].erase(path);
  (*known)[material].insert(path);
}

void kuSnapshotIndex::forgetIfOutdated() {
  if (_revision != kuSnapshotRevision()) _sets.clear();
  _revision = kuSnapshotRevision();
}

kuSnapshotIndex::Materials kuSnapshotIndex::pathsByMaterial(const kuVariantSet& set) {
  Materials materials;
  for (const auto& [path, material] : set.getMaterialSnapshots()) {
    Paths& paths = materials[material];
    paths.insert(paths.end(), path);
  }
  return materials;
}
