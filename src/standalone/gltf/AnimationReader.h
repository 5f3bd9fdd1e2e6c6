#pragma once

#include "standalone/gltf/GltfSource.h"
#include "standalone/gltf/GltfWarnings.h"

namespace kuStandalone {

/** Makes the file's clips. @param nodes the scene's node of each of the file's, null for those
 * that are not in the scene. Throws GltfRefusal. */
void readAnimations(const GltfSource& source, const std::vector<osg::NodePtr>& nodes, Scene& scene,
                    GltfWarnings& warnings);

}  // namespace kuStandalone
