#pragma once

#include <QVector3D>
#include <array>
#include <optional>

#include "host/kuHostExport.h"
#include "standalone/scene/Transform.h"

namespace kuStandalone {

/**
 * Where something stands in the world: an affine map in double precision. Nested transforms are
 * multiplied in it, so that deep trees and large scenes do not lose digits.
 */
class KUHOST_EXPORT Placement {
 public:
  /** The identity. */
  Placement() = default;
  explicit Placement(const Transform& transform);

  Placement operator*(const Placement& inner) const;

  QVector3D point(const QVector3D& p) const;
  QVector3D direction(const QVector3D& d) const;
  /** A surface's normal, not of length 1; right under uneven scales and mirrors too. */
  QVector3D normal(const QVector3D& n) const;
  QVector3D origin() const { return point({}); }

  /** Signed change of volume; 0 where the map flattens, not finite where a number is not. */
  double determinant() const;
  /** Whether it can be undone: finite, and flattens nothing. */
  bool isRegular() const;

  /** The three rows of the upper 3x4 matrix, row by row, for the ray tracer. */
  std::array<float, 12> rows() const;

  /** What takes normals along, row by row: the inverse transpose at some positive length. */
  std::array<float, 9> normalRows() const;

  bool operator==(const Placement& other) const { return _m == other._m; }
  bool operator!=(const Placement& other) const { return !(*this == other); }

 private:
  // Row by row, the fourth column is the translation.
  std::array<double, 12> _m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0};
};

}  // namespace kuStandalone
