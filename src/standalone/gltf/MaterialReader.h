#pragma once

#include <QJsonObject>
#include <vector>

#include "standalone/scene/Scene.h"

namespace kuStandalone {

/** Makes the file's materials by index and enters them in the pool. Throws GltfRefusal. */
std::vector<osg::MaterialPtr> readMaterials(const QJsonObject& root, Scene& scene);

}  // namespace kuStandalone
