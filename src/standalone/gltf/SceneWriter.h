#pragma once

#include <QByteArray>

#include "standalone/scene/Scene.h"

namespace kuStandalone {

/**
 * The bytes of a file that gives the scene again: the text that it came from, edited where the
 * scene differs from it. Throws GltfRefusal.
 * @param binary whether it is a .glb.
 */
KUHOST_EXPORT QByteArray sceneData(const Scene& scene, bool binary);

}  // namespace kuStandalone
