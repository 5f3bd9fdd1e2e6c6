#include "standalone/rendering/Environment.h"

#include <algorithm>
#include <cmath>

namespace kuStandalone {

namespace {

constexpr float floorLevel = 0.3f, horizonLevel = 0.5f, skyLevel = 0.72f, mainLevel = 1.8f;

float smooth(float from, float to, float x) {
  const float t = std::min(std::max((x - from) / (to - from), 0.0f), 1.0f);
  return t * t * (3 - 2 * t);
}

const QVector3D& mainDirection() {
  static const QVector3D direction = QVector3D(-0.45f, 0.8f, 0.55f).normalized();
  return direction;
}

float level(const QVector3D& direction) {
  const float height = direction.y();
  const float around = height < 0 ? horizonLevel + (floorLevel - horizonLevel) * smooth(0, 0.35f, -height)
                                  : horizonLevel + (skyLevel - horizonLevel) * smooth(0, 0.8f, height);
  return around + mainLevel * smooth(0.82f, 0.97f, QVector3D::dotProduct(direction, mainDirection()));
}

}  // namespace

QVector3D Environment::radiance(const QVector3D& direction) {
  const float amount = level(direction);
  return {amount, amount, amount};
}

QVector3D Environment::diffuse(const QVector3D& normal) {
  // The gradient's mean over the half sphere, and the main light as if it were a small disc.
  const float around = floorLevel + (skyLevel - floorLevel) * (normal.y() + 1) / 2;
  constexpr float mainShare = 0.11f;  // the disc's solid angle divided by pi, softened rim included
  const float main = mainLevel * mainShare *
                     std::max(QVector3D::dotProduct(normal, mainDirection()), 0.0f);
  return QVector3D(1, 1, 1) * (around + main);
}

QVector3D Environment::backdrop(float height) {
  const QVector3D top(0.86f, 0.875f, 0.895f), bottom(0.74f, 0.75f, 0.765f);
  return top + (bottom - top) * std::min(std::max(height, 0.0f), 1.0f);
}

}  // namespace kuStandalone
