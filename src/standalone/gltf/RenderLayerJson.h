#pragma once

#include <QJsonObject>
#include <string>

#include "standalone/scene/RenderLayer.h"

namespace kuStandalone {

/** The render layer that an object of the file tells. @param place the object's. Throws
 * GltfRefusal. */
RenderLayerPtr readRenderLayer(const QJsonValue& value, const std::string& place);

/** A render layer as an object of the file. @param former what stood there: the members that mean
 * nothing here are kept. */
QJsonObject renderLayerJson(const RenderLayer& layer, const QJsonObject& former);

}  // namespace kuStandalone
