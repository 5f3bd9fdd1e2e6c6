#include "standalone/rendering/Environment.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kuStandalone {

namespace {

constexpr float pi = 3.14159265f;
constexpr float floorLevel = 0.3f, horizonLevel = 0.5f, skyLevel = 0.72f, mainLevel = 1.8f;

float smooth(float from, float to, float x) {
  const float t = std::min(std::max((x - from) / (to - from), 0.0f), 1.0f);
  return t * t * (3 - 2 * t);
}

const QVector3D& mainDirection() {
  static const QVector3D direction = QVector3D(-0.45f, 0.8f, 0.55f).normalized();
  return direction;
}

/** Sky and floor, by the cosine to the way up. */
float around(float height) {
  return height < 0 ? horizonLevel + (floorLevel - horizonLevel) * smooth(0, 0.35f, -height)
                    : horizonLevel + (skyLevel - horizonLevel) * smooth(0, 0.8f, height);
}

/** Cosines between which the main light fades. */
constexpr float mainRim = 0.82f, mainCore = 0.97f;

/** The main light, by the cosine to its direction. */
float mainShine(float cosine) { return mainLevel * smooth(mainRim, mainCore, cosine); }

/** How much of a ring of directions about an axis a surface receives: the mean of the cosine to its
 * normal where that is above 0. Both angles are told by their cosines to the axis. */
double received(double normal, double ring) {
  const double along = normal * ring;
  const double aside = std::sqrt((1 - normal * normal) * (1 - ring * ring));
  if (along >= aside) return along;
  if (along <= -aside) return 0;
  const double rise = std::acos(-along / aside);
  return (along * rise + aside * std::sin(rise)) / 3.14159265358979;
}

/** What surfaces receive of a light that is the same all around an axis; summed up once. */
class Received {
 public:
  explicit Received(float (*light)(float)) {
    constexpr int rings = 500;
    for (std::size_t at = 0; at < _values.size(); ++at) {
      const double normal = 2 * double(at) / double(_values.size() - 1) - 1;
      double sum = 0;
      for (int ring = 0; ring < rings; ++ring) {
        const double cosine = 2 * (ring + 0.5) / rings - 1;
        sum += double(light(float(cosine))) * received(normal, cosine);
      }
      _values[at] = float(sum * 4 / rings);
    }
  }

  /** By the cosine of the surface's normal to the axis; divided by pi. */
  float at(float cosine) const {
    const float place =
        (std::min(std::max(cosine, -1.0f), 1.0f) + 1) / 2 * float(_values.size() - 1);
    const std::size_t below = std::min(std::size_t(place), _values.size() - 2);
    const float part = place - float(below);
    return _values[below] * (1 - part) + _values[below + 1] * part;
  }

 private:
  std::array<float, 65> _values{};
};

}  // namespace

QVector3D Environment::radiance(const QVector3D& direction) {
  return QVector3D(1, 1, 1) *
         (around(direction.y()) + mainShine(QVector3D::dotProduct(direction, mainDirection())));
}

QVector3D Environment::sky(const QVector3D& direction) {
  return QVector3D(1, 1, 1) * around(direction.y());
}

// Evenly over the cap that the light fills, so that each stands for the same piece of it.
Environment::MainLight Environment::mainLight(float u, float v) {
  const QVector3D& axis = mainDirection();
  static const QVector3D side = QVector3D::crossProduct(axis, {0, 0, 1}).normalized();
  static const QVector3D rise = QVector3D::crossProduct(side, axis);
  const float cosine = 1 - u * (1 - mainRim);
  const float sine = std::sqrt(std::max(1 - cosine * cosine, 0.0f));
  const float angle = 2 * pi * v;
  const float piece = 2 * pi * (1 - mainRim);
  return {axis * cosine + (side * std::cos(angle) + rise * std::sin(angle)) * sine,
          QVector3D(1, 1, 1) * (mainShine(cosine) * piece)};
}

QVector3D Environment::diffuse(const QVector3D& normal) {
  static const Received fromAround(around), fromMain(mainShine);
  return QVector3D(1, 1, 1) *
         (fromAround.at(normal.y()) + fromMain.at(QVector3D::dotProduct(normal, mainDirection())));
}

QVector3D Environment::backdrop(float height) {
  const QVector3D top(0.86f, 0.875f, 0.895f), bottom(0.74f, 0.75f, 0.765f);
  return top + (bottom - top) * std::min(std::max(height, 0.0f), 1.0f);
}

}  // namespace kuStandalone
