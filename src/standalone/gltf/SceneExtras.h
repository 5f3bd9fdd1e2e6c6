#pragma once

#include <QJsonObject>

#include "standalone/gltf/GltfWarnings.h"
#include "standalone/scene/Scene.h"

namespace kuStandalone {

/** Reads a scene's viewpoints, its present camera and its blocks of animations from the `extras`
 * of the file's scene, into a scene whose cameras and clips are there. Throws GltfRefusal. */
void readSceneExtras(const QJsonObject& extras, Scene& scene, GltfWarnings& warnings);

}  // namespace kuStandalone
