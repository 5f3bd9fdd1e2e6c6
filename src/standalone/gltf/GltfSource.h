#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <vector>

#include "standalone/scene/Scene.h"

namespace kuStandalone {

/**
 * What a scene keeps of its glTF file: Scene::source of a loaded scene. The indices that nodes,
 * materials, cameras, clips, geometries, lights and sceneplates carry are those of the arrays in
 * `root`; what the loader made itself carries -1.
 */
class GltfSource final : public SceneSource {
 public:
  /** The whole JSON text, members that this host does not know included. */
  QJsonObject root;
  /** The bytes of every buffer by its index, as long as its byteLength says. */
  std::vector<QByteArray> buffers;
  /** The bytes of every image by its index that stands in a file or a data URI; empty for those
   * in buffer views. */
  std::vector<QByteArray> images;
};

}  // namespace kuStandalone
