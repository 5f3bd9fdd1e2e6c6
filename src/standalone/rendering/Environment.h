#pragma once

#include <QVector3D>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * The light that comes from all around: a neutral studio with a bright sky, a soft main light from
 * the front, the left and above, and a lit floor. Colours are linear.
 */
namespace Environment {

/** Light from a direction of length 1. */
KUHOST_EXPORT QVector3D radiance(const QVector3D& direction);

/** The same without the main light. */
KUHOST_EXPORT QVector3D sky(const QVector3D& direction);

/** A direction to the main light, and the light that is to be counted for it. */
struct MainLight {
  QVector3D direction;
  QVector3D light;
};

/** One of the directions to the main light; u and v in [0, 1). Their mean is the light of all. */
KUHOST_EXPORT MainLight mainLight(float u, float v);

/** Light that a surface with that normal receives from all around, divided by pi. */
KUHOST_EXPORT QVector3D diffuse(const QVector3D& normal);

/** What is seen where there is nothing, by height in the picture: 0 top, 1 bottom. As it shows: not
 * to be tone mapped. */
KUHOST_EXPORT QVector3D backdrop(float height);

}  // namespace Environment

}  // namespace kuStandalone
