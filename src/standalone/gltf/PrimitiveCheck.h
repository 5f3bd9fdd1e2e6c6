#pragma once

#include "standalone/gltf/GltfSource.h"
#include "standalone/gltf/GltfWarnings.h"

namespace kuStandalone {

/** Checks the meshes of a file whose buffers are read: the types, counts and ranges of all that
 * their primitives name. Throws GltfRefusal. */
void checkPrimitives(const GltfSource& source, GltfWarnings& warnings);

}  // namespace kuStandalone
