#include "standalone/gltf/VariantReader.h"

#include <algorithm>

#include "standalone/gltf/GltfValues.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/ScenePool.h"

namespace kuStandalone {
namespace {

const QString extensionName = QStringLiteral("KHR_materials_variants");

bool holdsAll(const osg::SwitchMaterialPtr& material, const std::vector<int>& wanted,
              const std::vector<osg::MaterialPtr>& materials) {
  return std::all_of(wanted.begin(), wanted.end(), [&](int index) {
    return material->hasSubMaterial(materials[std::size_t(index)], false);
  });
}

unsigned indexOf(const osg::SwitchMaterialPtr& material, const osg::MaterialPtr& sub) {
  const osg::MFMaterialPtr& subs = material->getMaterials();
  return unsigned(std::find(subs.begin(), subs.end(), sub) - subs.begin());
}

}  // namespace

VariantReader::VariantReader(const QJsonObject& root, Scene& scene,
                             const std::vector<osg::MaterialPtr>& materials)
    : _scene(scene), _materials(materials) {
  const QJsonObject extension = root["extensions"].toObject().value(extensionName).toObject();
  const std::string place = "extensions.KHR_materials_variants.variants";
  int index = 0;
  for (const QJsonValue& variant : arrayOf(extension["variants"], place)) {
    const std::string where = place + "[" + std::to_string(index++) + "]";
    scene.fileVariants.push_back(
        {textOf(objectOf(variant, where).value("name"), where + ".name"), {}});
  }
}

osg::MaterialPtr VariantReader::materialOf(const QJsonObject& primitive, const std::string& place) {
  const int own = indexIn(primitive["material"], int(_materials.size()), place + ".material");
  const QJsonValue extension = primitive["extensions"].toObject().value(extensionName);
  const std::string where = place + ".extensions.KHR_materials_variants";
  std::vector<int> order;
  const Mapping mapping = mappingOf(objectOf(extension, where), order, where + ".mappings");
  if (mapping.empty()) return own < 0 ? osg::MaterialPtr() : _materials[std::size_t(own)];
  osg::SwitchMaterialPtr& material = _switches[{own, mapping}];
  if (!material) {
    material = switchOf(own, order);
    enterChoices(material, mapping, where);
  }
  return material;
}

VariantReader::Mapping VariantReader::mappingOf(const QJsonObject& extension,
                                                std::vector<int>& order,
                                                const std::string& place) const {
  Mapping mapping;
  int index = 0;
  for (const QJsonValue& value : arrayOf(extension["mappings"], place)) {
    const std::string where = place + "[" + std::to_string(index++) + "]";
    const QJsonObject json = objectOf(value, where);
    const int material =
        neededIndexIn(json["material"], int(_materials.size()), where + ".material");
    order.push_back(material);
    for (const QJsonValue& variant : arrayOf(json["variants"], where + ".variants")) {
      const int which =
          neededIndexIn(variant, int(_scene.fileVariants.size()), where + ".variants");
      if (!mapping.emplace(which, material).second) {
        throw GltfRefusal(where + ".variants",
                          "variant " + std::to_string(which) + " has a material already");
      }
    }
  }
  return mapping;
}

/** The material that a primitive without one has. */
osg::MaterialPtr VariantReader::ownOf(int own) {
  if (own >= 0) return _materials[std::size_t(own)];
  if (!_default) {
    _default = PlainMaterial::create(uniqueName("Default"));
    ScenePool::of(_scene.pool).enter(_default);
  }
  return _default;
}

osg::SwitchMaterialPtr VariantReader::switchOf(int own, const std::vector<int>& order) {
  const osg::MaterialPtr first = ownOf(own);
  const auto present = osg::SwitchMaterialPtr::dcast(first);
  // So it stands in files that were saved with the switch. For a second mapping another is made.
  if (present && holdsAll(present, order, _materials) && _asTheyAre.insert(own).second) {
    return present;
  }
  osg::MFMaterialPtr subMaterials{first};
  for (const int index : order) {
    const osg::MaterialPtr& sub = _materials[std::size_t(index)];
    if (std::find(subMaterials.begin(), subMaterials.end(), sub) == subMaterials.end()) {
      subMaterials.push_back(sub);
    }
  }
  osg::SwitchMaterialPtr made = createSwitchMaterial(
      uniqueName(first->hostFields().name + " Switch"), std::move(subMaterials), 0);
  ScenePool::of(_scene.pool).enter(made);
  return made;
}

void VariantReader::enterChoices(const osg::SwitchMaterialPtr& material, const Mapping& mapping,
                                 const std::string& place) {
  constexpr std::size_t most = 10'000'000;
  _choices += _scene.fileVariants.size();
  if (_choices > most) throw GltfRefusal(place, "there are too many variants");
  for (std::size_t variant = 0; variant < _scene.fileVariants.size(); ++variant) {
    const auto found = mapping.find(int(variant));
    const unsigned choice =
        found == mapping.end() ? 0 : indexOf(material, _materials[std::size_t(found->second)]);
    _scene.fileVariants[variant].choices.emplace_back(material, choice);
  }
}

std::string VariantReader::uniqueName(const std::string& wanted) {
  int& number = _numbers[wanted];
  std::string name = wanted;
  const ScenePool& pool = ScenePool::of(_scene.pool);
  for (number = std::max(number, 1); !pool.find(name).empty();)
    name = wanted + " " + std::to_string(++number);
  return name;
}

}  // namespace kuStandalone
