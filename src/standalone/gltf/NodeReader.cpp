#include "standalone/gltf/NodeReader.h"

#include "standalone/gltf/GltfValues.h"
#include "standalone/gltf/RenderLayerJson.h"
#include "standalone/scene/Cores.h"

namespace kuStandalone {
namespace {

bool readVisible(const QJsonObject& node, int index) {
  const QJsonValue extensions = node[QLatin1String("extensions")];
  if (extensions.isUndefined()) return true;
  return flagOf(extensions["KHR_node_visibility"]["visible"], true,
                gltfPlace("nodes", index, "extensions.KHR_node_visibility.visible"));
}

}  // namespace

NodeReader::NodeReader(const QJsonObject& root, Scene& scene,
                       const std::vector<osg::MaterialPtr>& materials, const SceneLimits& limits)
    : _nodes(root["nodes"].toArray()),
      _cameras(root["cameras"].toArray()),
      _scene(scene),
      _limits(limits),
      _cores(root, scene, materials),
      _clones(_nodes, scene.nodes.root, limits.depth,
              {[this](int index) { return nodeToClone(index); }, [this] { count(); }}),
      _made(std::size_t(_nodes.size())) {}

void NodeReader::read(const QJsonArray& topLevel) {
  for (const QJsonValue& top : topLevel) {
    const int index = top.toInt();
    const osg::NodePtr node = make(index, _made);
    if (!_nodes[index].toObject().value("extras").toObject().value("sceneplates").toBool()) {
      SceneNode::of(_scene.nodes.root).addChild(node);
    } else if (_scene.sceneplates.root) {
      throw GltfRefusal(gltfPlace("nodes", index, "extras.sceneplates"), "is the second one");
    } else {
      _scene.sceneplates.setRoot(node);
    }
  }
  _clones.fillAll();
  addCameras();
}

void NodeReader::count() {
  if (++_count > _limits.nodes) throw GltfRefusal("nodes", "are too many");
}

osg::NodePtr NodeReader::nodeToClone(int index) {
  const osg::NodePtr& inScene = _made[std::size_t(index)];
  if (inScene) return inScene;
  if (_outside.empty()) _outside.resize(_made.size());
  if (!_outside[std::size_t(index)]) make(index, _outside);
  return _outside[std::size_t(index)];
}

osg::NodePtr NodeReader::make(int index, std::vector<osg::NodePtr>& made) {
  count();
  const QJsonObject json = _nodes[index].toObject();
  const QJsonObject extras = json[QLatin1String("extras")].toObject();
  const bool clone = extras.contains(QLatin1String("cloneOf"));
  const osg::NodePtr node =
      SceneNode::create(json[QLatin1String("name")].toString().toStdString(),
                        clone ? osg::NodeCorePtr() : _cores.make(index, json));
  SceneNode& scene = SceneNode::of(node);
  scene.setSource(index);
  scene.setTransform(transformOf(json, gltfPlace("nodes", index) + "."));
  scene.setActiveFlag(readVisible(json, index));
  if (extras.contains(QLatin1String("renderLayer"))) {
    scene.setRenderLayer(
        readRenderLayer(extras["renderLayer"], gltfPlace("nodes", index, "extras.renderLayer")));
  }
  made[std::size_t(index)] = node;
  if (clone) {
    _clones.note(node, index, extras["cloneOf"], extras["ownChildren"].toBool());
  }
  for (const QJsonValue& child : json[QLatin1String("children")].toArray())
    scene.addChild(make(child.toInt(), made));
  if (!clone) addContent(node, index, json);
  return node;
}

void NodeReader::addContent(const osg::NodePtr& node, int index, const QJsonObject& json) {
  SceneNode& parent = SceneNode::of(node);
  const bool geometry = osg::GeometryPtr::dcast(parent.core()) != osg::NullFC;
  if (json.contains(QLatin1String("mesh")) && !geometry) addGeometries(node, json["mesh"].toInt());
  if (!json[QLatin1String("extensions")].toObject().contains(
          QLatin1String("KHR_lights_punctual")) ||
      osg::UberLightPtr::dcast(parent.core()) != osg::NullFC) {
    return;
  }
  count();
  parent.addChild(SceneNode::create(parent.name() + ".light", _cores.light(index, json)));
}

void NodeReader::addGeometries(const osg::NodePtr& node, int mesh) {
  SceneNode& parent = SceneNode::of(node);
  const int primitives = _cores.primitives(mesh);
  for (int primitive = 0; primitive < primitives; ++primitive) {
    count();
    parent.addChild(SceneNode::create(parent.name() + ".geometry" + std::to_string(primitive + 1),
                                      _cores.geometry(mesh, primitive)));
  }
}

void NodeReader::addCameras() {
  for (int index = 0; index < _nodes.size(); ++index) {
    const osg::NodePtr& node = _made[std::size_t(index)];
    const QJsonObject json = _nodes[index].toObject();
    if (node && json.contains(QLatin1String("camera"))) addCamera(node, json["camera"].toInt());
  }
}

void NodeReader::addCamera(const osg::NodePtr& node, int index) {
  const QJsonObject json = _cameras[index].toObject();
  Camera camera;
  const QJsonObject own = _nodes[SceneNode::of(node).source()].toObject();
  camera.name = own["extras"].toObject().value("cameraName").toString().toStdString();
  if (camera.name.empty()) camera.name = SceneNode::of(node).name();
  if (camera.name.empty()) camera.name = json["name"].toString().toStdString();
  camera.node = node;
  camera.perspective = json["type"].toString() != "orthographic";
  const QJsonObject lens =
      json[QLatin1String(camera.perspective ? "perspective" : "orthographic")].toObject();
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
  _scene.addCamera(std::move(camera));
  _scene.addViewpoint(std::move(viewpoint));
}

}  // namespace kuStandalone
