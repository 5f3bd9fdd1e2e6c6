#include "standalone/gltf/NodeReader.h"

#include "standalone/gltf/GltfJson.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {
namespace {

template <std::size_t N>
void readNumbers(const QJsonValue& value, std::array<double, N>& numbers) {
  const QJsonArray list = value.toArray();
  if (list.size() != int(N)) return;
  for (std::size_t i = 0; i < N; ++i)
    numbers[i] = list[int(i)].toDouble();
}

Transform readTransform(const QJsonObject& json) {
  Transform transform;
  readNumbers(json["translation"], transform.translation);
  readNumbers(json["rotation"], transform.rotation);
  readNumbers(json["scale"], transform.scale);
  if (json["matrix"].isArray()) readNumbers(json["matrix"], transform.matrix.emplace());
  return transform;
}

/** A whole number from @p least; anything else is refused. */
double wholeNumber(const QJsonValue& value, double fallback, double least, double most,
                   const std::string& place) {
  if (value.isUndefined()) return fallback;
  const double number = value.toDouble();
  if (!value.isDouble() || !(number >= least && number <= most) ||
      number != double(std::int64_t(number))) {
    throw GltfRefusal(place, "is no whole number in range");
  }
  return number;
}

}  // namespace

NodeReader::NodeReader(const QJsonObject& root, Scene& scene,
                       std::vector<osg::MaterialPtr> materials, const SceneLimits& limits)
    : _nodes(root["nodes"].toArray()),
      _meshes(root["meshes"].toArray()),
      _cameras(root["cameras"].toArray()),
      _scene(scene),
      _materials(std::move(materials)),
      _limits(limits) {}

void NodeReader::read(const QJsonArray& topLevel) {
  for (const QJsonValue& top : topLevel) {
    const int index = top.toInt();
    const osg::NodePtr node = make(index, true);
    if (!_nodes[index].toObject().value("extras").toObject().value("sceneplates").toBool()) {
      SceneNode::of(_scene.nodes.root).addChild(node);
    } else if (_scene.sceneplates.root) {
      throw GltfRefusal(gltfPlace("nodes", index, "extras.sceneplates"), "is the second one");
    } else {
      _scene.sceneplates.setRoot(node);
    }
  }
}

void NodeReader::count() {
  if (++_count > _limits.nodes) throw GltfRefusal("nodes", "are too many");
}

osg::NodePtr NodeReader::make(int index, bool topLevel) {
  count();
  const QJsonObject json = _nodes[index].toObject();
  const QJsonObject extras = json["extras"].toObject();
  const QJsonObject extensions = json["extensions"].toObject();
  const osg::NodePtr node =
      SceneNode::create(json["name"].toString().toStdString(), makeCore(index, json, extras));
  SceneNode& made = SceneNode::of(node);
  made.setSource(index);
  made.setTransform(readTransform(json));
  made.setActiveFlag(extensions["KHR_node_visibility"].toObject().value("visible").toBool(true));
  if (extras["sceneplates"].toBool() && !topLevel) {
    warnings.push_back(gltfPlace("nodes", index, "extras.sceneplates") +
                       ": is not at the top and means nothing");
  }
  if (json.contains("camera")) addCamera(node, json["camera"].toInt());
  for (const QJsonValue& child : json["children"].toArray()) {
    made.addChild(make(child.toInt(), false));
  }
  const bool geometry = osg::GeometryPtr::dcast(made.core()) != osg::NullFC;
  if (json.contains("mesh") && !geometry) addGeometries(node, json["mesh"].toInt());
  if (extensions.contains("KHR_lights_punctual") && !osg::UberLightPtr::dcast(made.core())) {
    count();
    made.addChild(SceneNode::create(
        made.name() + ".light",
        LightCore::create(extras["on"].toBool(true),
                          extensions["KHR_lights_punctual"].toObject().value("light").toInt(-1))));
  }
  return node;
}

osg::NodeCorePtr NodeReader::makeCore(int index, const QJsonObject& node,
                                      const QJsonObject& extras) {
  const std::string place = gltfPlace("nodes", index, "extras.");
  if (extras.contains("cloneOf")) {
    throw GltfRefusal(place + "cloneOf", "is not supported yet");
  }
  if (extras.contains("switch")) {
    const double choice =
        wholeNumber(extras["switch"], -1, -2147483648.0, 2147483647.0, place + "switch");
    const osg::NodeCorePtr core = SwitchCore::create(int(choice));
    SwitchCore::of(core).environment = extras["environmentSwitch"].toBool();
    return core;
  }
  if (extras.contains("transforms")) return makeTransforms(index, extras);
  if (extras.contains("materialGroup")) {
    const QJsonObject group = extras["materialGroup"].toObject();
    return MaterialGroupCore::create(
        materialAt(group["material"], place + "materialGroup.material"), group["ignore"].toBool());
  }
  if (extras.contains("sceneplate")) {
    const QJsonObject plate = extras["sceneplate"].toObject();
    std::array<double, 4> rect{0, 0, 1, 1};
    readNumbers(plate["rect"], rect);
    return SceneplateCore::create(plate["image"].toInt(-1), rect);
  }
  const bool leaf = node["children"].toArray().isEmpty() && !node.contains("camera");
  const QJsonObject light = node["extensions"].toObject().value("KHR_lights_punctual").toObject();
  if (!light.isEmpty()) {
    if (leaf && !node.contains("mesh")) {
      return LightCore::create(extras["on"].toBool(true), light["light"].toInt(-1));
    }
    return GroupCore::create();
  }
  const int mesh = node["mesh"].toInt(-1);
  if (leaf && mesh >= 0 && _meshes[mesh].toObject().value("primitives").toArray().size() == 1) {
    return geometryCore(mesh, 0);
  }
  return GroupCore::create();
}

osg::NodeCorePtr NodeReader::makeTransforms(int index, const QJsonObject& extras) const {
  const std::string place = gltfPlace("nodes", index, "extras.");
  if (!extras["transforms"].isArray()) throw GltfRefusal(place + "transforms", "is no array");
  std::vector<TransformState> states;
  for (const QJsonValue& state : extras["transforms"].toArray()) {
    const QJsonObject json = state.toObject();
    states.push_back({json["name"].toString().toStdString(), readTransform(json)});
  }
  const double choice = wholeNumber(extras["transform"], 0, 0, 4294967295.0, place + "transform");
  const double fallback = choice > 2147483647.0 ? -1 : choice;
  const double supposed =
      wholeNumber(extras["supposed"], fallback, -1, 2147483647.0, place + "supposed");
  return TransformSwitchCore::create(std::move(states), unsigned(choice), int(supposed));
}

osg::MaterialPtr NodeReader::materialAt(const QJsonValue& index, const std::string& place) const {
  if (index.isUndefined()) return osg::NullFC;
  const int which = index.toInt(-1);
  if (which < 0 || std::size_t(which) >= _materials.size()) {
    throw GltfRefusal(place, "there is no such material");
  }
  return _materials[std::size_t(which)];
}

osg::NodeCorePtr NodeReader::geometryCore(int mesh, int primitive) {
  osg::NodeCorePtr& core = _geometries[{mesh, primitive}];
  if (core) return core;
  const std::string place =
      gltfPlace("meshes", mesh, "primitives[" + std::to_string(primitive) + "]");
  const QJsonObject json =
      _meshes[mesh].toObject().value("primitives").toArray()[primitive].toObject();
  if (json["extensions"].toObject().contains("KHR_materials_variants")) {
    warnings.push_back(place + ": the mappings of KHR_materials_variants are left alone");
  }
  core = GeometryCore::create(materialAt(json["material"], place + ".material"), mesh, primitive);
  return core;
}

void NodeReader::addGeometries(const osg::NodePtr& node, int mesh) {
  SceneNode& parent = SceneNode::of(node);
  const int primitives = _meshes[mesh].toObject().value("primitives").toArray().size();
  for (int primitive = 0; primitive < primitives; ++primitive) {
    count();
    parent.addChild(SceneNode::create(parent.name() + ".geometry" + std::to_string(primitive + 1),
                                      geometryCore(mesh, primitive)));
  }
}

void NodeReader::addCamera(const osg::NodePtr& node, int index) {
  const QJsonObject json = _cameras[index].toObject();
  const QJsonObject perspective = json["perspective"].toObject();
  const QJsonObject orthographic = json["orthographic"].toObject();
  Camera camera;
  camera.name = SceneNode::of(node).name();
  if (camera.name.empty()) camera.name = json["name"].toString().toStdString();
  camera.node = node;
  camera.perspective = json["type"].toString() != "orthographic";
  const QJsonObject lens = camera.perspective ? perspective : orthographic;
  camera.yfov = lens["yfov"].toDouble(camera.yfov);
  camera.aspectRatio = lens["aspectRatio"].toDouble(camera.aspectRatio);
  camera.xmag = lens["xmag"].toDouble(camera.xmag);
  camera.ymag = lens["ymag"].toDouble(camera.ymag);
  camera.znear = lens["znear"].toDouble(camera.znear);
  camera.zfar = lens["zfar"].toDouble(camera.zfar);
  camera.source = index;
  Viewpoint viewpoint;
  viewpoint.name = camera.name;
  viewpoint.camera = _scene.cameras.size();
  viewpoint.pose = SceneNode::of(node).transform();
  _scene.cameras.push_back(std::move(camera));
  _scene.addViewpoint(std::move(viewpoint));
}

}  // namespace kuStandalone
