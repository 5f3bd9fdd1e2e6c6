#include "standalone/gltf/SceneFile.h"

#include <QFile>
#include <QFileInfo>

#include "standalone/gltf/GltfJson.h"
#include "standalone/gltf/GltfSource.h"
#include "standalone/gltf/MaterialReader.h"
#include "standalone/gltf/NodeReader.h"

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

void readExtras(const QJsonObject& extras, Scene& scene) {
  const QJsonObject blocks = extras["animationBlocks"].toObject();
  for (auto block = blocks.begin(); block != blocks.end(); ++block) {
    std::vector<std::string>& clips = scene.animationBlocks[block.key().toStdString()];
    for (const QJsonValue& clip : block->toArray())
      clips.push_back(clip.toString().toStdString());
  }
  scene.activeViewpoint = extras["activeCamera"].toString().toStdString();
}

void noteWhatIsLeftAlone(const QJsonObject& root, std::vector<std::string>& warnings) {
  if (root["scenes"].toArray().isEmpty()) warnings.push_back("scenes: there is none");
  if (root.contains("animations")) warnings.push_back("animations: are left alone");
  if (presentScene(root).value("extras").toObject().contains("viewpoints")) {
    warnings.push_back("scene: viewpoints are left alone");
  }
}

SceneLoadResult build(const QByteArray& bytes, const SceneLimits& limits) {
  const QJsonObject root = parseGltf(bytes).root;
  checkGltf(root, limits.depth);
  SceneLoadResult result;
  auto scene = std::make_unique<Scene>();
  NodeReader reader(root, *scene, readMaterials(root, *scene), limits);
  reader.read(presentScene(root).value("nodes").toArray());
  readExtras(presentScene(root).value("extras").toObject(), *scene);
  result.warnings = std::move(reader.warnings);
  noteWhatIsLeftAlone(root, result.warnings);
  auto source = std::make_shared<GltfSource>();
  source->root = root;
  scene->source = std::move(source);
  result.scene = std::move(scene);
  result.status = Status::Loaded;
  return result;
}

}  // namespace

SceneLoadResult loadSceneData(const QByteArray& bytes, const std::string& name,
                              const SceneLimits& limits) {
  try {
    SceneLoadResult result = build(bytes, limits);
    for (std::string& warning : result.warnings)
      warning = name + ": " + warning;
    return result;
  } catch (const std::exception& refusal) {
    return failure(Status::Invalid, name, refusal.what());
  }
}

SceneLoadResult loadScene(const std::string& path, const SceneLimits& limits) {
  QFile file(QString::fromStdString(path));
  if (QFileInfo(file).isDir()) return failure(Status::CannotRead, path, "is a directory");
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
  return loadSceneData(bytes, path, limits);
}

}  // namespace kuStandalone
