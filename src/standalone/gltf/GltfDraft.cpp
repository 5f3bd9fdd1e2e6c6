#include "standalone/gltf/GltfDraft.h"

#include <cmath>

#include "standalone/gltf/GltfJson.h"

namespace kuStandalone {
namespace {

std::vector<QJsonObject> entriesOf(const QJsonObject& root, const char* name) {
  std::vector<QJsonObject> entries;
  for (const QJsonValue& entry : root.value(QLatin1String(name)).toArray())
    entries.push_back(entry.toObject());
  return entries;
}

void putEntries(QJsonObject& root, const char* name, const std::vector<QJsonObject>& entries) {
  if (entries.empty()) return;
  QJsonArray list;
  for (const QJsonObject& entry : entries)
    list.append(entry);
  root[QLatin1String(name)] = list;
}

QJsonObject newText() {
  return {{"asset", QJsonObject{{"version", "2.0"}, {"generator", "kuVariants"}}}};
}

template <std::size_t N>
void writeNumbers(QJsonObject& object, const char* name, const std::array<double, N>& numbers,
                  const std::array<double, N>& standard) {
  setMember(object, QLatin1String(name),
            numbers == standard ? QJsonValue(QJsonValue::Undefined) : jsonNumbers(numbers));
}

template <std::size_t N>
bool gives(const QJsonValue& value, const std::array<double, N>& numbers) {
  const QJsonArray list = value.toArray();
  if (list.size() != int(N)) return false;
  for (std::size_t i = 0; i < N; ++i) {
    if (list[int(i)].toDouble() != numbers[i]) return false;
  }
  return true;
}

template <std::size_t N>
bool gives(const QJsonObject& object, const char* name, const std::array<double, N>& numbers,
           const std::array<double, N>& standard) {
  const QJsonValue value = object[QLatin1String(name)];
  return value.isUndefined() ? numbers == standard : gives(value, numbers);
}

bool givesTransform(const QJsonObject& object, const Transform& transform) {
  const Transform standard;
  const QJsonValue matrix = object["matrix"];
  return gives(object, "translation", transform.translation, standard.translation) &&
         gives(object, "rotation", transform.rotation, standard.rotation) &&
         gives(object, "scale", transform.scale, standard.scale) &&
         (transform.matrix ? gives(matrix, *transform.matrix) : matrix.isUndefined());
}

}  // namespace

GltfDraft::GltfDraft(const QJsonObject& source)
    : root(source.isEmpty() ? newText() : source),
      nodes(entriesOf(root, "nodes")),
      meshes(entriesOf(root, "meshes")),
      materials(entriesOf(root, "materials")),
      cameras(entriesOf(root, "cameras")),
      _scene(root.value("scene").toInt(0)) {
  scene = root.value("scenes").toArray()[_scene].toObject();
}

void GltfDraft::useExtension(const QString& name) {
  QJsonArray used = root.value("extensionsUsed").toArray();
  if (used.contains(name)) return;
  used.append(name);
  root["extensionsUsed"] = used;
}

QJsonObject GltfDraft::finish() const {
  QJsonObject text = root;
  putEntries(text, "nodes", nodes);
  putEntries(text, "meshes", meshes);
  putEntries(text, "materials", materials);
  putEntries(text, "cameras", cameras);
  QJsonArray scenes = root.value("scenes").toArray();
  if (scenes.isEmpty()) {
    scenes.append(scene);
    text["scene"] = 0;
  } else {
    scenes[_scene] = scene;
  }
  text["scenes"] = scenes;
  return text;
}

void setMember(QJsonObject& object, const QString& name, const QJsonValue& value) {
  if (value.isUndefined()) {
    object.remove(name);
  } else {
    object[name] = value;
  }
}

void setExtra(QJsonObject& owner, const QString& name, const QJsonValue& value) {
  QJsonObject extras = extrasOf(owner);
  if (value.isUndefined() && !extras.contains(name)) return;
  setMember(extras, name, value);
  setMember(owner, "extras", extras.isEmpty() ? QJsonValue(QJsonValue::Undefined) : extras);
}

void setExtensionMember(QJsonObject& owner, const QString& extension, const QString& name,
                        const QJsonValue& value) {
  QJsonObject extensions = owner.value("extensions").toObject();
  QJsonObject own = extensions.value(extension).toObject();
  if (value.isUndefined() && !own.contains(name)) return;
  const QJsonValue nothing(QJsonValue::Undefined);
  setMember(own, name, value);
  setMember(extensions, extension, own.isEmpty() ? nothing : own);
  setMember(owner, "extensions", extensions.isEmpty() ? nothing : extensions);
}

QJsonObject extrasOf(const QJsonObject& owner) { return owner.value("extras").toObject(); }

QJsonObject extensionOf(const QJsonObject& owner, const QString& extension) {
  return owner.value("extensions").toObject().value(extension).toObject();
}

QJsonValue jsonNumber(double number) {
  if (!std::isfinite(number)) throw GltfRefusal({}, "a number of the scene is not finite");
  return number;
}

void writeTransform(QJsonObject& object, const Transform& transform) {
  if (givesTransform(object, transform)) return;
  const Transform standard;
  writeNumbers(object, "translation", transform.translation, standard.translation);
  writeNumbers(object, "rotation", transform.rotation, standard.rotation);
  writeNumbers(object, "scale", transform.scale, standard.scale);
  setMember(object, "matrix",
            transform.matrix ? jsonNumbers(*transform.matrix) : QJsonValue(QJsonValue::Undefined));
}

}  // namespace kuStandalone
