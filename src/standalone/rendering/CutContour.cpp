#include "standalone/rendering/CutContour.h"

#include <QPainter>
#include <cmath>

#include "standalone/rendering/ToneMapping.h"

namespace kuStandalone {

namespace {

using Line = std::pair<QVector3D, QVector3D>;

/** Adds the line in which a triangle is cut, if it is. */
void cutTriangle(const QVector3D (&corners)[3], const HalfSpace& half, std::vector<Line>& lines) {
  QVector3D ends[2];
  int count = 0;
  for (int at = 0; at < 3 && count < 2; ++at) {
    const QVector3D &a = corners[at], &b = corners[(at + 1) % 3];
    const float sideA = half.side(a), sideB = half.side(b);
    if ((sideA < 0) == (sideB < 0)) continue;
    ends[count++] = a + (b - a) * (sideA / (sideA - sideB));
  }
  if (count == 2) lines.emplace_back(ends[0], ends[1]);
}

bool crosses(const Bounds& bounds, const HalfSpace& half) {
  const QVector3D extent = bounds.size() / 2;
  const QVector3D& n = half.normal;
  const float reach =
      std::fabs(n.x()) * extent.x() + std::fabs(n.y()) * extent.y() + std::fabs(n.z()) * extent.z();
  return std::fabs(half.side(bounds.center())) <= reach;
}

/** Whether nothing stands between the eye and a point on the cut. */
bool isSeen(const QVector3D& point, float x, float y, const View& view, const PathTracer& tracer) {
  Ray ray = view.ray(x, y);
  const float distance = QVector3D::dotProduct(point - ray.origin, ray.direction);
  if (!(distance > ray.nearest && distance < ray.farthest)) return false;
  ray.farthest = distance * 0.9995f;
  return !tracer.visibleDistance(ray);
}

}  // namespace

std::vector<Line> cutLines(const RayScene& scene, const HalfSpace& half) {
  std::vector<Line> lines;
  for (const MeshInstance& instance : scene.instances()) {
    if (!instance.shown || !hasKind(instance.seenBy, RayKind::Camera)) continue;
    if (!crosses(instance.bounds, half)) continue;
    const std::vector<QVector3D>& positions = instance.mesh->positions;
    for (const Triangle& triangle : instance.mesh->triangles) {
      const QVector3D corners[3] = {instance.placement.point(positions[triangle[0]]),
                                    instance.placement.point(positions[triangle[1]]),
                                    instance.placement.point(positions[triangle[2]])};
      cutTriangle(corners, half, lines);
    }
  }
  return lines;
}

void drawContour(QImage& picture, const View& view, const PathTracer& tracer,
                 const std::vector<Line>& lines, const QVector3D& color, int width) {
  if (width <= 0) return;
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor shown(srgbByte(color.x()), srgbByte(color.y()), srgbByte(color.z()));
  painter.setPen(QPen(shown, std::min(width, 64), Qt::SolidLine, Qt::RoundCap));
  constexpr float pixelsPerPiece = 6;
  const auto toPicture = [&](const QVector3D& point, QPointF& at) {
    float x = 0, y = 0;
    if (!view.project(point, x, y)) return false;
    at = QPointF(double(x) * picture.width(), double(y) * picture.height());
    return x > -1 && x < 2 && y > -1 && y < 2;
  };
  for (const Line& line : lines) {
    QPointF from, to;
    if (!toPicture(line.first, from) || !toPicture(line.second, to)) continue;
    const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
    const int pieces = std::max(1, int(length / double(pixelsPerPiece)));
    for (int piece = 0; piece < pieces; ++piece) {
      const float middle = (float(piece) + 0.5f) / float(pieces);
      const QVector3D point = line.first + (line.second - line.first) * middle;
      float x = 0, y = 0;
      if (!view.project(point, x, y) || !isSeen(point, x, y, view, tracer)) continue;
      QPointF start, end;
      toPicture(line.first + (line.second - line.first) * (float(piece) / float(pieces)), start);
      toPicture(line.first + (line.second - line.first) * (float(piece + 1) / float(pieces)), end);
      painter.drawLine(start, end);
    }
  }
}

}  // namespace kuStandalone
