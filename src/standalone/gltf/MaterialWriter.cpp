#include "standalone/gltf/MaterialWriter.h"

#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/ScenePool.h"

namespace kuStandalone {
namespace {

const QJsonValue nothing(QJsonValue::Undefined);

QJsonValue flag(bool value) { return value ? QJsonValue(true) : nothing; }

QJsonValue presetsOf(const PresetMaterial& material) {
  QJsonArray names;
  for (const std::string& preset : material.presets)
    names.append(QString::fromStdString(preset));
  return names;
}

bool isEnvironment(const osg::MaterialPtr& material) {
  return osg::UEnvironmentMaterialPtr::dcast(material) != osg::NullFC;
}

}  // namespace

MaterialWriter::MaterialWriter(const Scene& scene, GltfDraft& draft)
    : _draft(draft), _materials(draft.materials.size()) {
  const osg::MFMaterialPtr& pool = ScenePool::of(scene.pool).materials();
  for (const osg::MaterialPtr& material : pool)
    claim(material, material->hostFields().source);
  for (const osg::MaterialPtr& material : pool)
    indexOf(material);
}

void MaterialWriter::claim(const osg::MaterialPtr& material, int index) {
  if (index < 0 || std::size_t(index) >= _draft.materials.size()) return;
  if (_materials[std::size_t(index)]) return;
  _materials[std::size_t(index)] = material;
  _indices.emplace(material.get(), index);
}

int MaterialWriter::indexOf(const osg::MaterialPtr& material) {
  if (!material) return -1;
  const auto found = _indices.find(material.get());
  if (found != _indices.end()) return found->second;
  claim(material, material->hostFields().source);
  const auto [entry, isNew] = _indices.emplace(material.get(), int(_materials.size()));
  if (isNew) {
    _materials.push_back(material);
    _draft.materials.emplace_back();
  }
  return entry->second;
}

QJsonValue MaterialWriter::valueOf(const osg::MaterialPtr& material) {
  return material ? QJsonValue(indexOf(material)) : nothing;
}

void MaterialWriter::write() {
  // Switches enter their sub-materials while they are written, so the list may grow.
  for (std::size_t index = 0; index < _materials.size(); ++index) {
    const osg::MaterialPtr material = _materials[index];
    if (material) {
      writeOne(material);
    } else {
      setExtra(_draft.materials[index], "pool", false);
    }
  }
}

void MaterialWriter::writeOne(const osg::MaterialPtr& material) {
  const osg::MaterialFields& fields = material->hostFields();
  const auto index = std::size_t(indexOf(material));
  QJsonObject json = _draft.materials[index];
  const auto presets = osg::FCPtr<PresetMaterial>::dcast(material);
  setMember(json, "name",
            fields.name.empty() ? nothing : QJsonValue(QString::fromStdString(fields.name)));
  setExtra(json, "switch", switchOf(material, extrasOf(json).value("switch").toObject()));
  setExtra(json, "states", presets ? presetsOf(*presets) : nothing);
  setExtra(json, "state", presets ? QJsonValue(presets->present) : nothing);
  setExtra(json, "environment", flag(isEnvironment(material)));
  setExtra(json, "locked", flag(fields.locked));
  setExtra(json, "pool", fields.pool ? nothing : QJsonValue(false));
  _draft.materials[index] = json;
}

QJsonValue MaterialWriter::switchOf(const osg::MaterialPtr& material, QJsonObject json) {
  const auto switchMaterial = osg::SwitchMaterialPtr::dcast(material);
  if (!switchMaterial) return nothing;
  QJsonArray materials;
  for (const osg::MaterialPtr& sub : switchMaterial->getMaterials()) {
    if (sub) materials.append(indexOf(sub));
  }
  json["materials"] = materials;
  json["choice"] = double(switchMaterial->getChoice());
  setMember(json, "environment",
            flag(osg::UEnvironmentSwitchMaterialPtr::dcast(material) != osg::NullFC));
  return json;
}

}  // namespace kuStandalone
