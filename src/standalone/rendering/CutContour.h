#pragma once

#include <QImage>
#include <QVector3D>
#include <utility>
#include <vector>

#include "standalone/rendering/PathTracer.h"

namespace kuStandalone {

/** The lines in which a plane cuts the geometry that shows, in world space. */
KUHOST_EXPORT std::vector<std::pair<QVector3D, QVector3D>> cutLines(const RayScene& scene,
                                                                    const HalfSpace& half);

/** Draws them into a picture, without those parts that the scene hides. @param color as it shows,
 * linear; @param width in pixels. */
KUHOST_EXPORT void drawContour(QImage& picture, const View& view, const PathTracer& tracer,
                               const std::vector<std::pair<QVector3D, QVector3D>>& lines,
                               const QVector3D& color, int width);

}  // namespace kuStandalone
