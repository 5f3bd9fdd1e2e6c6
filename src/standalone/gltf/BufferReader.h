#pragma once

#include "standalone/gltf/GltfSource.h"
#include "standalone/gltf/UriReader.h"

namespace kuStandalone {

/**
 * Resolves the buffers and images of `source.root`, whose indices have been checked, and checks
 * the buffer views. @param binary the binary chunk, null for none. Throws GltfRefusal.
 */
void readBuffers(GltfSource& source, const QByteArray& binary, UriReader& files);

}  // namespace kuStandalone
