#pragma once

#include <QJsonObject>

#include "standalone/gltf/GltfWarnings.h"

namespace kuStandalone {

/** Refuses nodes that have two roles, and warns of what means nothing here or is left alone.
 * Throws GltfRefusal. */
void checkRoles(const QJsonObject& root, GltfWarnings& warnings);

}  // namespace kuStandalone
