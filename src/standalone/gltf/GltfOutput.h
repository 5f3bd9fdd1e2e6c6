#pragma once

#include <QByteArray>

#include "standalone/gltf/GltfSource.h"

namespace kuStandalone {

/** The bytes of a .gltf that stands alone: @p root with all buffers and pictures inside it. */
QByteArray textFile(QJsonObject root, const GltfSource& data);

/** The same as a .glb: the first buffer is its binary chunk. */
QByteArray binaryFile(QJsonObject root, const GltfSource& data);

}  // namespace kuStandalone
