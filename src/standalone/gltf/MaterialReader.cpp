#include "standalone/gltf/MaterialReader.h"

#include "standalone/gltf/GltfValues.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/ScenePool.h"

namespace kuStandalone {
namespace {

class MaterialReader {
 public:
  explicit MaterialReader(const QJsonObject& root)
      : _list(root["materials"].toArray()), _made(std::size_t(_list.size())) {}

  std::vector<osg::MaterialPtr> read() {
    for (int index = 0; index < _list.size(); ++index)
      make(index, 0);
    return std::move(_made);
  }

 private:
  static constexpr int maximalDepth = 100;

  /** The material of that index; switches make their sub-materials first. */
  osg::MaterialPtr make(int index, int depth) {
    osg::MaterialPtr& material = _made[std::size_t(index)];
    if (material) return material;
    if (depth > maximalDepth) {
      throw GltfRefusal(gltfPlace("materials", index), "contains itself or lies too deep");
    }
    const QJsonObject json = _list[index].toObject();
    const QJsonObject extras = json["extras"].toObject();
    const std::string name = json["name"].toString().toStdString();
    const std::string place = gltfPlace("materials", index, "extras.");
    checkRoles(extras, gltfPlace("materials", index, "extras"));
    if (extras.contains("switch")) {
      material = makeSwitch(name, extras, depth, place);
    } else if (extras.contains("states")) {
      material = makePresets(name, extras, place);
    } else if (flagOf(extras["environment"], false, place + "environment")) {
      material = EnvironmentMaterial::create(name);
    } else {
      material = PlainMaterial::create(name);
    }
    material->hostFields().locked = flagOf(extras["locked"], false, place + "locked");
    material->hostFields().source = index;
    return material;
  }

  static void checkRoles(const QJsonObject& extras, const std::string& place) {
    if (!extras.contains("states")) return;
    for (const char* other : {"switch", "environment"}) {
      if (!extras.contains(QLatin1String(other))) continue;
      throw GltfRefusal(place, std::string("has both 'states' and '") + other + "'");
    }
  }

  /** "environment" may stand in the switch or beside it. */
  osg::MaterialPtr makeSwitch(const std::string& name, const QJsonObject& extras, int depth,
                              const std::string& prefix) {
    const std::string place = prefix + "switch";
    const QJsonObject json = objectOf(extras["switch"], place);
    if (!json["materials"].isArray()) throw GltfRefusal(place + ".materials", "is no array");
    const std::int64_t choice = wholeNumber(json["choice"], 0, 0, 4294967295, place + ".choice");
    const bool environment = flagOf(extras["environment"], false, prefix + "environment") ||
                             flagOf(json["environment"], false, place + ".environment");
    osg::MFMaterialPtr subMaterials;
    for (const QJsonValue& sub : json["materials"].toArray()) {
      const std::string where = place + ".materials[" + std::to_string(subMaterials.size()) + "]";
      subMaterials.push_back(make(neededIndexIn(sub, _list.size(), where), depth + 1));
    }
    return createSwitchMaterial(name, std::move(subMaterials), unsigned(choice), environment);
  }

  static osg::MaterialPtr makePresets(const std::string& name, const QJsonObject& extras,
                                      const std::string& place) {
    std::vector<std::string> presets;
    for (const QJsonValue& preset : arrayOf(extras["states"], place + "states")) {
      presets.push_back(textOf(preset, place + "states[" + std::to_string(presets.size()) + "]"));
    }
    const int fallback = presets.empty() ? -1 : 0;
    const std::int64_t present = wholeNumber(extras["state"], fallback, -1,
                                             std::int64_t(presets.size()) - 1, place + "state");
    return PresetMaterial::create(name, std::move(presets), int(present));
  }

  QJsonArray _list;
  std::vector<osg::MaterialPtr> _made;
};

}  // namespace

std::vector<osg::MaterialPtr> readMaterials(const QJsonObject& root, Scene& scene) {
  std::vector<osg::MaterialPtr> materials = MaterialReader(root).read();
  const QJsonArray list = root["materials"].toArray();
  for (int index = 0; index < list.size(); ++index) {
    const QJsonValue pool = list[index].toObject().value("extras").toObject().value("pool");
    if (flagOf(pool, true, gltfPlace("materials", index, "extras.pool"))) {
      ScenePool::of(scene.pool).enter(materials[std::size_t(index)]);
    }
  }
  return materials;
}

}  // namespace kuStandalone
