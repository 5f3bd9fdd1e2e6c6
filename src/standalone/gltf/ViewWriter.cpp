#include "standalone/gltf/ViewWriter.h"

namespace kuStandalone {
namespace {

const QJsonValue nothing(QJsonValue::Undefined);

QJsonValue text(const std::string& value) { return QString::fromStdString(value); }

QJsonValue textOrNothing(const std::string& value) { return value.empty() ? nothing : text(value); }

/** A member of a lens where 0 stands for "left out". */
QJsonValue lengthOrNothing(double length) { return length == 0 ? nothing : jsonNumber(length); }

QJsonObject lensOf(const Camera& camera, QJsonObject lens) {
  if (camera.perspective) {
    lens["yfov"] = jsonNumber(camera.yfov);
    setMember(lens, "aspectRatio", lengthOrNothing(camera.aspectRatio));
  } else {
    lens["xmag"] = jsonNumber(camera.xmag);
    lens["ymag"] = jsonNumber(camera.ymag);
  }
  lens["znear"] = jsonNumber(camera.znear);
  setMember(lens, "zfar", lengthOrNothing(camera.zfar));
  return lens;
}

/** The camera's entry, made from the one that it has in the file. */
QJsonObject entryOf(const Camera& camera, QJsonObject entry) {
  const QString type = camera.perspective ? "perspective" : "orthographic";
  entry["type"] = type;
  entry[type] = lensOf(camera, entry.value(type).toObject());
  return entry;
}

/** Whether an entry of the file gives this camera's lens. */
bool gives(const QJsonObject& entry, const Camera& camera) {
  if ((entry.value("type").toString() != "orthographic") != camera.perspective) return false;
  const QJsonObject lens = entry[camera.perspective ? "perspective" : "orthographic"].toObject();
  const Camera standard;
  const auto same = [&](const char* name, double value, double otherwise) {
    return lens.value(QLatin1String(name)).toDouble(otherwise) == value;
  };
  if (!same("znear", camera.znear, standard.znear) || !same("zfar", camera.zfar, standard.zfar)) {
    return false;
  }
  return camera.perspective
             ? same("yfov", camera.yfov, standard.yfov) &&
                   same("aspectRatio", camera.aspectRatio, standard.aspectRatio)
             : same("xmag", camera.xmag, standard.xmag) && same("ymag", camera.ymag, standard.ymag);
}

/** What an entry leaves out is as the camera's node has it, so nothing that counts is left out. */
void writePose(QJsonObject& entry, const Transform& pose, const Transform& node) {
  writeTransform(entry, pose);
  if (pose.matrix) return;
  entry["translation"] = jsonNumbers(pose.translation);
  entry["rotation"] = jsonNumbers(pose.rotation);
  if (pose.scale != node.scale) entry["scale"] = jsonNumbers(pose.scale);
}

}  // namespace

ViewWriter::ViewWriter(const Scene& scene, GltfDraft& draft, const NodeLayout& layout)
    : _scene(scene), _draft(draft), _layout(layout) {}

void ViewWriter::write() {
  for (const SceneNode* node : _layout.written()) {
    if (_layout.bearsCamera(*node)) continue;
    _draft.nodes[std::size_t(_layout.placeOf(*node).index)].remove("camera");
  }
  for (const Camera& camera : _scene.cameras)
    writeCamera(camera);
  writeViewpoints();
  setExtra(_draft.scene, "activeCamera", textOrNothing(_scene.activeViewpoint));
  writeBlocks();
}

void ViewWriter::writeCamera(const Camera& camera) {
  const int node = _layout.indexOf(camera.node);
  if (node < 0) return;
  _firstOfName.emplace(camera.name, &camera);
  const int index = indexOf(camera);
  QJsonObject& json = _draft.nodes[std::size_t(node)];
  json["camera"] = index;
  // Without a name of its own the camera would be named after its node.
  std::string name = SceneNode::of(camera.node).name();
  if (name.empty())
    name = _draft.cameras[std::size_t(index)].value("name").toString().toStdString();
  setExtra(json, "cameraName", name == camera.name ? nothing : text(camera.name));
}

int ViewWriter::indexOf(const Camera& camera) {
  const bool known = camera.source >= 0 && std::size_t(camera.source) < _draft.cameras.size();
  const QJsonObject former = known ? _draft.cameras[std::size_t(camera.source)] : QJsonObject();
  if (known && gives(former, camera)) return camera.source;
  // Other nodes may look through the camera of the file.
  _draft.cameras.push_back(entryOf(camera, former));
  return int(_draft.cameras.size()) - 1;
}

void ViewWriter::writeViewpoints() {
  const QJsonArray former = extrasOf(_draft.scene).value("viewpoints").toArray();
  QJsonArray entries;
  for (const Viewpoint& viewpoint : _scene.viewpoints) {
    const QJsonValue entry = viewpointOf(viewpoint, former);
    if (entry.isObject()) entries.append(entry);
  }
  setExtra(_draft.scene, "viewpoints", entries.isEmpty() ? nothing : entries);
}

/** The entry of a viewpoint; undefined for one that comes with its camera as it is. */
QJsonValue ViewWriter::viewpointOf(const Viewpoint& viewpoint, const QJsonArray& former) const {
  if (viewpoint.camera >= _scene.cameras.size()) return nothing;
  const Camera& camera = _scene.cameras[viewpoint.camera];
  if (_layout.indexOf(camera.node) < 0) return nothing;
  const bool moved = viewpoint.pose != SceneNode::of(camera.node).transform();
  if (!viewpoint.named && !moved) return nothing;
  QJsonObject entry;
  for (const QJsonValue& one : former) {
    if (one.toObject().value("name") == text(viewpoint.name)) entry = one.toObject();
  }
  entry["name"] = text(viewpoint.name);
  const bool unique = _firstOfName.at(camera.name) == &camera;
  entry["camera"] = unique ? text(camera.name) : _layout.indexOf(camera.node);
  writePose(entry, viewpoint.pose, SceneNode::of(camera.node).transform());
  return entry;
}

void ViewWriter::writeBlocks() {
  QJsonObject blocks;
  for (const auto& [name, clips] : _scene.animationBlocks) {
    QJsonArray names;
    for (const std::string& clip : clips)
      names.append(text(clip));
    blocks[QString::fromStdString(name)] = names;
  }
  setExtra(_draft.scene, "animationBlocks", blocks.isEmpty() ? nothing : blocks);
}

}  // namespace kuStandalone
