#include "standalone/gltf/CoreReader.h"

#include <limits>

#include "standalone/gltf/GltfValues.h"
#include "standalone/scene/Cores.h"

namespace kuStandalone {
namespace {

constexpr std::int64_t leastInt = std::numeric_limits<int>::min();
constexpr std::int64_t mostInt = std::numeric_limits<int>::max();
constexpr std::int64_t mostUnsigned = std::numeric_limits<unsigned>::max();

bool hasLight(const QJsonObject& node) {
  return node[QLatin1String("extensions")].toObject().contains(
      QLatin1String("KHR_lights_punctual"));
}

/** Whether a mesh or light is the node itself, and not a part of it among others. */
bool isLeaf(const QJsonObject& node) {
  if (node[QLatin1String("extras")].toObject().value("self").toBool()) return true;
  return node[QLatin1String("children")].toArray().isEmpty() &&
         !node.contains(QLatin1String("camera"));
}

}  // namespace

CoreReader::CoreReader(const QJsonObject& root, Scene& scene,
                       const std::vector<osg::MaterialPtr>& materials)
    : _meshes(root["meshes"].toArray()),
      _images(root["images"].toArray().size()),
      _materials(materials),
      _variants(root, scene, materials) {
  const QJsonValue lights = root["extensions"].toObject().value("KHR_lights_punctual");
  _lights = arrayOf(objectOf(lights, "extensions.KHR_lights_punctual").value("lights"),
                    "extensions.KHR_lights_punctual.lights")
                .size();
}

osg::NodeCorePtr CoreReader::make(int index, const QJsonObject& node) {
  const QJsonObject extras = node[QLatin1String("extras")].toObject();
  return extras.isEmpty() ? makeStandard(index, node) : makeRole(index, node, extras);
}

/** What the extras say; without a word of ours what the standard says. */
osg::NodeCorePtr CoreReader::makeRole(int index, const QJsonObject& node,
                                      const QJsonObject& extras) {
  const std::string place = gltfPlace("nodes", index, "extras.");
  if (extras.contains("switch")) return makeSwitch(extras, place);
  if (extras.contains("transforms")) return makeTransforms(extras, place);
  if (extras.contains("materialGroup")) {
    return makeMaterialGroup(extras["materialGroup"], place + "materialGroup");
  }
  if (extras.contains("sceneplate")) {
    return makeSceneplate(extras["sceneplate"], place + "sceneplate");
  }
  if (extras.contains("geometry")) {
    const QJsonObject json = objectOf(extras["geometry"], place + "geometry");
    return GeometryCore::create(materialAt(json["material"], place + "geometry.material"));
  }
  if (flagOf(extras["bare"], false, place + "bare")) return osg::NullFC;
  return makeStandard(index, node);
}

osg::NodeCorePtr CoreReader::makeStandard(int index, const QJsonObject& node) {
  const int mesh = node[QLatin1String("mesh")].toInt(-1);
  if (hasLight(node)) return isLeaf(node) && mesh < 0 ? light(index, node) : GroupCore::create();
  return isLeaf(node) && mesh >= 0 && primitives(mesh) == 1 ? geometry(mesh, 0)
                                                            : GroupCore::create();
}

osg::MaterialPtr CoreReader::materialAt(const QJsonValue& index, const std::string& place) const {
  const int which = indexIn(index, int(_materials.size()), place);
  return which < 0 ? osg::MaterialPtr() : _materials[std::size_t(which)];
}

int CoreReader::primitives(int mesh) const {
  return _meshes[mesh].toObject().value("primitives").toArray().size();
}

osg::NodeCorePtr CoreReader::geometry(int mesh, int primitive) {
  osg::NodeCorePtr& core = _geometries[{mesh, primitive}];
  if (core) return core;
  const QJsonObject json =
      _meshes[mesh].toObject().value("primitives").toArray()[primitive].toObject();
  const std::string place =
      gltfPlace("meshes", mesh, "primitives[" + std::to_string(primitive) + "]");
  core = GeometryCore::create(_variants.materialOf(json, place), mesh, primitive);
  return core;
}

osg::NodeCorePtr CoreReader::light(int index, const QJsonObject& node) const {
  const std::string place = gltfPlace("nodes", index, "extensions.KHR_lights_punctual");
  const QJsonObject json =
      objectOf(node["extensions"].toObject().value("KHR_lights_punctual"), place);
  const bool on =
      flagOf(node["extras"].toObject().value("on"), true, gltfPlace("nodes", index, "extras.on"));
  return LightCore::create(on, neededIndexIn(json["light"], _lights, place + ".light"));
}

osg::NodeCorePtr CoreReader::makeSwitch(const QJsonObject& extras, const std::string& place) const {
  const osg::NodeCorePtr core = SwitchCore::create(
      int(wholeNumber(extras["switch"], -1, leastInt, mostInt, place + "switch")));
  SwitchCore::of(core).environment =
      flagOf(extras["environmentSwitch"], false, place + "environmentSwitch");
  return core;
}

osg::NodeCorePtr CoreReader::makeTransforms(const QJsonObject& extras,
                                            const std::string& place) const {
  std::vector<TransformState> states;
  for (const QJsonValue& state : arrayOf(extras["transforms"], place + "transforms")) {
    const std::string where = place + "transforms[" + std::to_string(states.size()) + "]";
    const QJsonObject json = objectOf(state, where);
    states.push_back({textOf(json["name"], where + ".name"), transformOf(json, where + ".")});
  }
  const std::int64_t choice =
      wholeNumber(extras["transform"], 0, 0, mostUnsigned, place + "transform");
  const std::int64_t fallback = choice > mostInt ? -1 : choice;
  const std::int64_t supposed =
      wholeNumber(extras["supposed"], fallback, -1, mostInt, place + "supposed");
  return TransformSwitchCore::create(std::move(states), unsigned(choice), int(supposed));
}

osg::NodeCorePtr CoreReader::makeMaterialGroup(const QJsonValue& value,
                                               const std::string& place) const {
  const QJsonObject json = objectOf(value, place);
  return MaterialGroupCore::create(materialAt(json["material"], place + ".material"),
                                   flagOf(json["ignore"], false, place + ".ignore"));
}

osg::NodeCorePtr CoreReader::makeSceneplate(const QJsonValue& value,
                                            const std::string& place) const {
  const QJsonObject json = objectOf(value, place);
  std::array<double, 4> rect{0, 0, 1, 1};
  readNumbers(json["rect"], rect, place + ".rect");
  return SceneplateCore::create(indexIn(json["image"], _images, place + ".image"), rect);
}

}  // namespace kuStandalone
