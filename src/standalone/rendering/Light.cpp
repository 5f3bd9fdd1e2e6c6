#include "standalone/rendering/Light.h"

#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>
#include <cmath>

#include "standalone/gltf/GltfSource.h"

namespace kuStandalone {

namespace {

float atLeastZero(const QJsonValue& value, double otherwise) {
  const auto number = float(value.toDouble(otherwise));
  return std::isfinite(number) ? std::max(number, 0.0f) : 0.0f;
}

Light::Type typeOf(const QString& name) {
  if (name == QLatin1String("directional")) return Light::Type::Directional;
  return name == QLatin1String("spot") ? Light::Type::Spot : Light::Type::Point;
}

}  // namespace

Light readLight(const GltfSource* source, int index) {
  Light light;
  if (!source || index < 0) return light;
  const QJsonObject extensions = source->root["extensions"].toObject();
  const QJsonArray lights = extensions["KHR_lights_punctual"].toObject()["lights"].toArray();
  const QJsonObject json = lights.at(index).toObject();
  light.type = typeOf(json["type"].toString());
  const QJsonArray color = json["color"].toArray();
  if (color.size() >= 3)
    light.intensity = {atLeastZero(color[0], 1), atLeastZero(color[1], 1),
                       atLeastZero(color[2], 1)};
  light.intensity *= atLeastZero(json["intensity"], 1);
  light.range = atLeastZero(json["range"], 0);
  const QJsonObject spot = json["spot"].toObject();
  light.innerCone = atLeastZero(spot["innerConeAngle"], 0);
  light.outerCone = std::min(atLeastZero(spot["outerConeAngle"], 0.7853981633974483), 1.5707963f);
  light.innerCone = std::min(light.innerCone, light.outerCone);
  return light;
}

}  // namespace kuStandalone
