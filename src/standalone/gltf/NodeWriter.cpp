#include "standalone/gltf/NodeWriter.h"

#include <algorithm>
#include <set>

#include "standalone/gltf/RenderLayerJson.h"

namespace kuStandalone {
namespace {

const QJsonValue nothing(QJsonValue::Undefined);
const QString lights = "KHR_lights_punctual";
const QString variants = "KHR_materials_variants";
const QString visibility = "KHR_node_visibility";

QJsonValue flag(bool value) { return value ? QJsonValue(true) : nothing; }

QJsonValue indexOrNothing(int index) { return index >= 0 ? QJsonValue(index) : nothing; }

QJsonValue textOrNothing(const std::string& text) {
  return text.empty() ? nothing : QJsonValue(QString::fromStdString(text));
}

/** The node's core as @p Core, or null if it is of another class or is told by another node. */
template <class Core, class Handle>
Core* ownCore(const SceneNode& node, const NodePlace& place) {
  if (place.original || !Handle::dcast(node.core())) return nullptr;
  return &Core::of(node.core());
}

}  // namespace

NodeWriter::NodeWriter(const Scene& scene, GltfDraft& draft, const NodeLayout& layout,
                       MaterialWriter& materials)
    : _scene(scene), _draft(draft), _layout(layout), _materials(materials) {}

void NodeWriter::write() {
  _draft.nodes.resize(std::size_t(_layout.count()));
  for (const SceneNode* node : _layout.written())
    writeNode(*node);
  detachOthers();
  writeTopLevel();
}

void NodeWriter::writeNode(const SceneNode& node) {
  const NodePlace& place = _layout.placeOf(node);
  QJsonObject json = _draft.nodes[std::size_t(place.index)];
  setMember(json, "name", textOrNothing(node.name()));
  writeTransform(json, node.transform());
  setExtensionMember(json, visibility, "visible", node.active() ? nothing : QJsonValue(false));
  if (!node.active()) _draft.useExtension(visibility);
  setExtra(json, "sceneplates",
           flag(_scene.sceneplates.root && _scene.sceneplates.root.get() == &node));
  writeRenderLayer(json, node);
  writeChildren(json, node);
  writeCore(json, node);
  _draft.nodes[std::size_t(place.index)] = json;
}

void NodeWriter::writeRenderLayer(QJsonObject& json, const SceneNode& node) {
  const RenderLayerPtr& layer = node.renderLayer();
  const QJsonObject former = extrasOf(json).value("renderLayer").toObject();
  setExtra(json, "renderLayer", layer ? QJsonValue(renderLayerJson(*layer, former)) : nothing);
}

void NodeWriter::writeChildren(QJsonObject& json, const SceneNode& node) {
  QJsonArray children;
  for (std::size_t i = 0; i < _layout.placeOf(node).children; ++i)
    children.append(_layout.indexOf(node.children()[i]));
  setMember(json, "children", children.isEmpty() ? nothing : children);
}

void NodeWriter::writeCore(QJsonObject& json, const SceneNode& node) {
  const NodePlace& place = _layout.placeOf(node);
  setExtra(json, "cloneOf",
           place.original ? QJsonValue(_layout.placeOf(*place.original).index) : nothing);
  setExtra(json, "ownChildren", flag(place.ownChildren));
  setExtra(json, "bare", flag(!place.original && !node.core()));
  writeSwitch(json, node);
  writeTransforms(json, node);
  writeMaterialGroup(json, node);
  writeSceneplate(json, node);
  writeGeometry(json, node);
  writeLight(json, node);
}

void NodeWriter::writeSwitch(QJsonObject& json, const SceneNode& node) {
  const auto* core = ownCore<SwitchCore, osg::SwitchPtr>(node, _layout.placeOf(node));
  setExtra(json, "switch", core ? QJsonValue(core->choice) : nothing);
  setExtra(json, "environmentSwitch", flag(core && core->environment));
}

void NodeWriter::writeTransforms(QJsonObject& json, const SceneNode& node) {
  const auto* core =
      ownCore<TransformSwitchCore, osg::SwitchComponentTransformPtr>(node, _layout.placeOf(node));
  QJsonArray states;
  const QJsonArray former = extrasOf(json).value("transforms").toArray();
  for (std::size_t i = 0; core && i < core->states.size(); ++i) {
    QJsonObject state = former[int(i)].toObject();
    state["name"] = QString::fromStdString(core->states[i].name);
    writeTransform(state, core->states[i].transform);
    states.append(state);
  }
  setExtra(json, "transforms", core ? QJsonValue(states) : nothing);
  setExtra(json, "transform", core ? QJsonValue(double(core->choice)) : nothing);
  setExtra(json, "supposed", core ? QJsonValue(core->supposed) : nothing);
}

void NodeWriter::writeMaterialGroup(QJsonObject& json, const SceneNode& node) {
  const auto* core = ownCore<MaterialGroupCore, osg::MaterialGroupPtr>(node, _layout.placeOf(node));
  if (!core) return setExtra(json, "materialGroup", nothing);
  QJsonObject group = extrasOf(json).value("materialGroup").toObject();
  setMember(group, "material", _materials.valueOf(core->material));
  group["ignore"] = core->ignore;
  setExtra(json, "materialGroup", group);
}

void NodeWriter::writeSceneplate(QJsonObject& json, const SceneNode& node) {
  const auto* core = ownCore<SceneplateCore, osg::SceneplatePtr>(node, _layout.placeOf(node));
  if (!core) return setExtra(json, "sceneplate", nothing);
  QJsonObject plate = extrasOf(json).value("sceneplate").toObject();
  setMember(plate, "image", indexOrNothing(core->image));
  plate["rect"] = jsonNumbers(core->rect);
  setExtra(json, "sceneplate", plate);
}

void NodeWriter::writeGeometry(QJsonObject& json, const SceneNode& node) {
  const NodePlace& place = _layout.placeOf(node);
  const auto* core = ownCore<GeometryCore, osg::GeometryPtr>(node, place);
  const int mesh = core ? meshOf(*core) : place.mesh;
  setMember(json, "mesh", indexOrNothing(mesh));
  for (std::size_t i = place.children; !core && mesh >= 0 && i < node.children().size(); ++i) {
    const osg::NodeCorePtr child = SceneNode::of(node.children()[i]).core();
    if (!osg::GeometryPtr::dcast(child)) continue;
    const GeometryCore& geometry = GeometryCore::of(child);
    setPrimitiveMaterial(mesh, geometry.primitive, geometry.material);
  }
  if (!core || mesh >= 0) return setExtra(json, "geometry", nothing);
  QJsonObject geometry = extrasOf(json).value("geometry").toObject();
  setMember(geometry, "material", _materials.valueOf(core->material));
  setExtra(json, "geometry", geometry);
}

void NodeWriter::writeLight(QJsonObject& json, const SceneNode& node) {
  const NodePlace& place = _layout.placeOf(node);
  const auto* core = ownCore<LightCore, osg::UberLightPtr>(node, place);
  const LightCore* light = core ? core : place.light;
  setExtensionMember(json, lights, "light", light ? QJsonValue(lightOf(*light)) : nothing);
  setExtra(json, "on", light && !light->on ? QJsonValue(false) : nothing);
  if (light) _draft.useExtension(lights);
  // With children or a camera the node would else be a group that has the content below it.
  const bool content = core || json.contains("mesh");
  const bool group = osg::GroupPtr::dcast(node.core()) != osg::NullFC;
  const bool leaf = node.children().empty() && !_layout.bearsCamera(node);
  setExtra(json, "self", flag(content && !place.original && !group && !leaf));
}

/** The index of a light in the file; one that a program made comes to its end. */
int NodeWriter::lightOf(const LightCore& core) {
  QJsonObject extensions = _draft.root.value("extensions").toObject();
  QJsonObject own = extensions.value(lights).toObject();
  QJsonArray list = own.value("lights").toArray();
  if (core.light >= 0 && core.light < list.size()) return core.light;
  list.append(QJsonObject{{"type", "point"}});
  own["lights"] = list;
  extensions[lights] = own;
  _draft.root["extensions"] = extensions;
  return list.size() - 1;
}

int NodeWriter::meshOf(const GeometryCore& core) {
  if (core.mesh < 0 || std::size_t(core.mesh) >= _draft.meshes.size()) return -1;
  const QJsonObject mesh = _draft.meshes[std::size_t(core.mesh)];
  const QJsonArray primitives = mesh.value("primitives").toArray();
  if (core.primitive < 0 || core.primitive >= primitives.size()) return -1;
  int index = core.mesh;
  if (primitives.size() > 1) {
    const auto [own, isNew] = _ownMeshes.emplace(&core, int(_draft.meshes.size()));
    index = own->second;
    QJsonObject single = mesh;
    single["primitives"] = QJsonArray{primitives[core.primitive]};
    if (isNew) _draft.meshes.push_back(single);
  }
  setPrimitiveMaterial(index, 0, core.material);
  return index;
}

void NodeWriter::setPrimitiveMaterial(int mesh, int primitive, const osg::MaterialPtr& material) {
  QJsonObject& owner = _draft.meshes[std::size_t(mesh)];
  QJsonArray primitives = owner.value("primitives").toArray();
  QJsonObject json = primitives[primitive].toObject();
  setMember(json, "material", _materials.valueOf(material));
  if (!keepsMappings(json, material)) setExtensionMember(json, variants, "mappings", nothing);
  primitives[primitive] = json;
  owner["primitives"] = primitives;
}

/** Whether the material is a switch that the mappings are about; they would else make one of it. */
bool NodeWriter::keepsMappings(const QJsonObject& primitive, const osg::MaterialPtr& material) {
  const auto switchMaterial = osg::SwitchMaterialPtr::dcast(material);
  if (!switchMaterial) return false;
  std::set<int> held;
  for (const osg::MaterialPtr& sub : switchMaterial->getMaterials())
    held.insert(_materials.indexOf(sub));
  for (const QJsonValue& mapping : extensionOf(primitive, variants).value("mappings").toArray()) {
    if (!held.count(mapping.toObject().value("material").toInt(-1))) return false;
  }
  return true;
}

/** Nodes that the scene does not have must not hold any that it has. */
void NodeWriter::detachOthers() {
  std::vector<bool> inScene(_draft.nodes.size());
  for (const SceneNode* node : _layout.written())
    inScene[std::size_t(_layout.placeOf(*node).index)] = true;
  for (std::size_t index = 0; index < inScene.size(); ++index) {
    if (inScene[index]) continue;
    QJsonArray left;
    const QJsonArray children = _draft.nodes[index].value("children").toArray();
    for (const QJsonValue& child : children) {
      if (!inScene[std::size_t(child.toInt())]) left.append(child);
    }
    if (left.size() == children.size()) continue;
    setMember(_draft.nodes[index], "children", left.isEmpty() ? nothing : left);
  }
}

void NodeWriter::writeTopLevel() {
  QJsonArray nodes;
  for (const osg::NodePtr& top : SceneNode::of(_scene.nodes.root).children())
    nodes.append(_layout.indexOf(top));
  if (_scene.sceneplates.root) {
    const QJsonValue plates = _layout.indexOf(_scene.sceneplates.root);
    const QJsonArray former = _draft.scene.value("nodes").toArray();
    const auto place = std::find(former.begin(), former.end(), plates) - former.begin();
    nodes.insert(std::min(int(place), nodes.size()), plates);
  }
  setMember(_draft.scene, "nodes", nodes.isEmpty() ? nothing : nodes);
}

}  // namespace kuStandalone
