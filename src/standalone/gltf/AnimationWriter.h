#pragma once

#include "standalone/gltf/GltfSource.h"
#include "standalone/gltf/NodeLayout.h"

namespace kuStandalone {

/** Appends the clips that did not come from the file, with a buffer of their own in @p data. */
void writeAnimations(const Scene& scene, const NodeLayout& layout, GltfDraft& draft,
                     GltfSource& data);

}  // namespace kuStandalone
