#include "standalone/gltf/SceneWriter.h"

#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>

#include "standalone/gltf/AnimationWriter.h"
#include "standalone/gltf/GltfJson.h"
#include "standalone/gltf/GltfOutput.h"
#include "standalone/gltf/NodeWriter.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/gltf/ViewWriter.h"
#include "standalone/kernel/SystemError.h"

namespace kuStandalone {
namespace {

/** Goes on after a part was written: only the next attempt tells why there is no more room. */
bool writeWhole(QSaveFile& file, const QByteArray& bytes) {
  int written = 0;
  while (written < bytes.size()) {
    const qint64 count = file.write(bytes.constData() + written, bytes.size() - written);
    if (count <= 0) return false;
    written += int(count);
  }
  return true;
}

/** Why a file could not be written: in words, empty if it could, and as the system's number. */
struct WriteFault {
  QString reason;
  int systemError = 0;
};

/** Writes all bytes or leaves what stands there. */
WriteFault writeFile(const QString& path, const QByteArray& bytes) {
  const QFileInfo present(path);
  if (present.isDir()) return {"is a directory", EISDIR};
  // What is no file, a device or a pipe, would be replaced by one.
  if (present.exists() && !present.isFile()) return {"is no regular file"};
  QSaveFile file(path);
  file.setDirectWriteFallback(false);
  const bool opened = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  if (opened && writeWhole(file, bytes) && file.commit()) return {};
  const int systemError = systemErrorOf(file);
  return {file.errorString(), systemError};
}

}  // namespace

QByteArray sceneData(const Scene& scene, bool binary) {
  const auto* source = dynamic_cast<const GltfSource*>(scene.source.get());
  GltfSource data = source ? *source : GltfSource();
  GltfDraft draft(data.root);
  const NodeLayout layout(scene, draft);
  MaterialWriter materials(scene, draft);
  NodeWriter(scene, draft, layout, materials).write();
  materials.write();
  ViewWriter(scene, draft, layout).write();
  writeAnimations(scene, layout, draft, data);
  const QJsonObject root = draft.finish();
  return binary ? binaryFile(root, data) : textFile(root, data);
}

SceneSaveResult saveScene(const Scene& scene, const std::string& path) {
  SceneSaveResult result;
  try {
    const QString file = QString::fromStdString(path);
    const bool binary = file.endsWith(".glb", Qt::CaseInsensitive);
    const WriteFault fault = writeFile(file, sceneData(scene, binary));
    if (fault.reason.isEmpty()) {
      result.status = SceneSaveResult::Status::Saved;
    } else {
      result.error = path + ": " + fault.reason.toStdString();
      result.systemError = fault.systemError;
    }
  } catch (const std::exception& refusal) {
    result.error = path + ": " + refusal.what();
  }
  return result;
}

}  // namespace kuStandalone
