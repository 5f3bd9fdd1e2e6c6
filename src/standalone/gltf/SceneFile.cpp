#include "standalone/gltf/SceneFile.h"

#include <QFile>
#include <QFileInfo>

#include "standalone/gltf/AnimationReader.h"
#include "standalone/gltf/BufferReader.h"
#include "standalone/gltf/MaterialReader.h"
#include "standalone/gltf/NodeReader.h"
#include "standalone/gltf/PrimitiveCheck.h"
#include "standalone/gltf/RoleCheck.h"
#include "standalone/gltf/SceneExtras.h"

namespace kuStandalone {
namespace {

using Status = SceneLoadResult::Status;

SceneLoadResult failure(Status status, const std::string& file, const std::string& reason) {
  SceneLoadResult result;
  result.status = status;
  result.error = file + ": " + reason;
  return result;
}

/** The scene that the file names; without scenes an empty object. */
QJsonObject presentScene(const QJsonObject& root) {
  return root["scenes"].toArray()[root["scene"].toInt(0)].toObject();
}

SceneLoadResult build(const QByteArray& bytes, UriReader files, const SceneLimits& limits) {
  const GltfContent content = parseGltf(bytes);
  auto source = std::make_shared<GltfSource>();
  source->root = content.root;
  checkGltf(source->root, limits.depth);
  GltfWarnings warnings;
  checkRoles(source->root, warnings);
  readBuffers(*source, content.binary, files);
  source->files = files.files();
  checkPrimitives(*source, warnings);

  auto scene = std::make_unique<Scene>();
  const std::vector<osg::MaterialPtr> materials = readMaterials(source->root, *scene);
  const QJsonObject present = presentScene(source->root);
  NodeReader nodes(source->root, *scene, materials, limits);
  nodes.read(present["nodes"].toArray());
  readAnimations(*source, nodes.nodes(), *scene, warnings);
  readSceneExtras(present["extras"].toObject(), *scene, warnings);
  scene->source = std::move(source);

  SceneLoadResult result;
  result.warnings = warnings.take();
  result.scene = std::move(scene);
  result.status = Status::Loaded;
  return result;
}

SceneLoadResult load(const QByteArray& bytes, const std::string& name, UriReader files,
                     const SceneLimits& limits) {
  try {
    SceneLoadResult result = build(bytes, std::move(files), limits);
    for (std::string& warning : result.warnings)
      warning = name + ": " + warning;
    return result;
  } catch (const GltfUnreadable& refusal) {
    return failure(Status::CannotRead, name, refusal.what());
  } catch (const std::exception& refusal) {
    return failure(Status::Invalid, name, refusal.what());
  }
}

}  // namespace

SceneLoadResult loadSceneData(const QByteArray& bytes, const std::string& name,
                              const SceneLimits& limits) {
  return load(bytes, name, UriReader({}, limits.fileBytes), limits);
}

SceneLoadResult loadScene(const std::string& path, const SceneLimits& limits) {
  QFile file(QString::fromStdString(path));
  if (QFileInfo(file).isDir()) return failure(Status::CannotRead, path, "is a directory");
  if (file.exists() && !QFileInfo(file).isFile()) {
    return failure(Status::CannotRead, path, "is no file");
  }
  if (!file.open(QIODevice::ReadOnly)) {
    return failure(Status::CannotRead, path, file.errorString().toStdString());
  }
  if (std::size_t(file.size()) >= limits.fileBytes) {
    return failure(Status::Invalid, path, "is too large");
  }
  const QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) {
    return failure(Status::CannotRead, path, file.errorString().toStdString());
  }
  const std::size_t rest = limits.fileBytes - std::size_t(bytes.size());
  return load(bytes, path, UriReader(QFileInfo(file).absolutePath(), rest), limits);
}

}  // namespace kuStandalone
