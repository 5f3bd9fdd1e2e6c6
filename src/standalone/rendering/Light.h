#pragma once

#include <QVector3D>

#include "host/kuHostExport.h"

namespace kuStandalone {

class GltfSource;

/** A light in its own place, as KHR_lights_punctual has it: it shines along -z. */
struct Light {
  enum class Type { Directional, Point, Spot };

  Type type = Type::Point;
  /** Linear colour times intensity: lux for a directional light, otherwise candela. */
  QVector3D intensity{1, 1, 1};
  /** Distance beyond which it has no effect; 0 for none. */
  float range = 0;
  /** Half angles of a spot's cone in radians: full light inside, none outside. */
  float innerCone = 0, outerCone = 0.785398f;
};

/** The light of that index of the file; a plain point light of 1 candela for -1. */
KUHOST_EXPORT Light readLight(const GltfSource* source, int index);

}  // namespace kuStandalone
