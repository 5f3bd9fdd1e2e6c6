#include "standalone/gltf/MaterialReader.h"

#include "standalone/gltf/GltfJson.h"
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
    if (extras.contains("switch")) {
      material = makeSwitch(index, name, extras["switch"], depth);
    } else if (extras.contains("states")) {
      material = makePresets(index, name, extras);
    } else if (extras["environment"].toBool()) {
      material = EnvironmentMaterial::create(name);
    } else {
      material = PlainMaterial::create(name);
    }
    material->hostFields().locked = extras["locked"].toBool();
    material->hostFields().source = index;
    return material;
  }

  osg::MaterialPtr makeSwitch(int index, const std::string& name, const QJsonValue& value,
                              int depth) {
    const std::string place = gltfPlace("materials", index, "extras.switch");
    const QJsonObject json = value.toObject();
    if (!json["materials"].isArray()) throw GltfRefusal(place + ".materials", "is no array");
    const double choice = json["choice"].toDouble(0);
    if (choice < 0 || choice > 4294967295.0 || choice != double(unsigned(choice))) {
      throw GltfRefusal(place + ".choice", "is no index");
    }
    osg::MFMaterialPtr subMaterials;
    for (const QJsonValue& sub : json["materials"].toArray()) {
      const int which = sub.toInt(-1);
      if (which < 0 || which >= _list.size()) {
        throw GltfRefusal(place + ".materials[" + std::to_string(subMaterials.size()) + "]",
                          "there is no such material");
      }
      subMaterials.push_back(make(which, depth + 1));
    }
    return createSwitchMaterial(name, std::move(subMaterials), unsigned(choice),
                                json["environment"].toBool());
  }

  static osg::MaterialPtr makePresets(int index, const std::string& name,
                                      const QJsonObject& extras) {
    std::vector<std::string> presets;
    for (const QJsonValue& preset : extras["states"].toArray()) {
      presets.push_back(preset.toString().toStdString());
    }
    const int present = extras["state"].toInt(0);
    if (!extras["states"].isArray() || present < -1) {
      throw GltfRefusal(gltfPlace("materials", index, "extras"), "states or state is malformed");
    }
    return PresetMaterial::create(name, std::move(presets), present);
  }

  QJsonArray _list;
  std::vector<osg::MaterialPtr> _made;
};

}  // namespace

std::vector<osg::MaterialPtr> readMaterials(const QJsonObject& root, Scene& scene) {
  std::vector<osg::MaterialPtr> materials = MaterialReader(root).read();
  for (const osg::MaterialPtr& material : materials)
    ScenePool::of(scene.pool).enter(material);
  return materials;
}

}  // namespace kuStandalone
