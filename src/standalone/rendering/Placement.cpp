#include "standalone/rendering/Placement.h"

#include <algorithm>
#include <cmath>

#include "standalone/rendering/Vectors.h"

namespace kuStandalone {

namespace {

std::array<double, 12> fromMatrix(const std::array<double, 16>& columns) {
  std::array<double, 12> rows{};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 4; ++column)
      rows[4 * row + column] = columns[4 * column + row];
  }
  return rows;
}

/** The rotation by a quaternion, whatever its length; the identity for one of length 0. */
std::array<double, 9> rotationOf(const std::array<double, 4>& q) {
  const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
  if (length == 0) return {1, 0, 0, 0, 1, 0, 0, 0, 1};
  const double x = q[0] / length, y = q[1] / length, z = q[2] / length, w = q[3] / length;
  return {1 - 2 * (y * y + z * z), 2 * (x * y - z * w),     2 * (x * z + y * w),
          2 * (x * y + z * w),     1 - 2 * (x * x + z * z), 2 * (y * z - x * w),
          2 * (x * z - y * w),     2 * (y * z + x * w),     1 - 2 * (x * x + y * y)};
}

}  // namespace

Placement::Placement(const Transform& transform) {
  if (transform.matrix) {
    _m = fromMatrix(*transform.matrix);
    return;
  }
  const std::array<double, 9> rotation = rotationOf(transform.rotation);
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column)
      _m[4 * row + column] = rotation[3 * row + column] * transform.scale[column];
    _m[4 * row + 3] = transform.translation[row];
  }
}

Placement Placement::operator*(const Placement& inner) const {
  Placement product;
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      double sum = column == 3 ? _m[4 * row + 3] : 0;
      for (std::size_t k = 0; k < 3; ++k)
        sum += _m[4 * row + k] * inner._m[4 * k + column];
      product._m[4 * row + column] = sum;
    }
  }
  return product;
}

QVector3D Placement::point(const QVector3D& p) const {
  const double x = double(p.x()), y = double(p.y()), z = double(p.z());
  return {float(_m[0] * x + _m[1] * y + _m[2] * z + _m[3]),
          float(_m[4] * x + _m[5] * y + _m[6] * z + _m[7]),
          float(_m[8] * x + _m[9] * y + _m[10] * z + _m[11])};
}

QVector3D Placement::direction(const QVector3D& d) const {
  const double x = double(d.x()), y = double(d.y()), z = double(d.z());
  return {float(_m[0] * x + _m[1] * y + _m[2] * z), float(_m[4] * x + _m[5] * y + _m[6] * z),
          float(_m[8] * x + _m[9] * y + _m[10] * z)};
}

QVector3D Placement::normal(const QVector3D& n) const {
  const std::array<float, 9> r = normalRows();
  return unit({r[0] * n.x() + r[1] * n.y() + r[2] * n.z(),
               r[3] * n.x() + r[4] * n.y() + r[5] * n.z(),
               r[6] * n.x() + r[7] * n.y() + r[8] * n.z()});
}

// The cofactors are the inverse transpose times the determinant, whose sign they are freed of.
std::array<float, 9> Placement::normalRows() const {
  const auto& m = _m;
  const std::array<double, 9> cofactors{
      m[5] * m[10] - m[6] * m[9], m[6] * m[8] - m[4] * m[10], m[4] * m[9] - m[5] * m[8],
      m[2] * m[9] - m[1] * m[10], m[0] * m[10] - m[2] * m[8], m[1] * m[8] - m[0] * m[9],
      m[1] * m[6] - m[2] * m[5],  m[2] * m[4] - m[0] * m[6],  m[0] * m[5] - m[1] * m[4]};
  double size = 0;
  for (const double number : cofactors)
    size = std::max(size, std::fabs(number));
  const double scale = size > 0 ? (determinant() < 0 ? -1 : 1) / size : 0;
  std::array<float, 9> rows{};
  for (std::size_t at = 0; at < rows.size(); ++at)
    rows[at] = float(cofactors[at] * scale);
  return rows;
}

double Placement::determinant() const {
  const auto& m = _m;
  return m[0] * (m[5] * m[10] - m[6] * m[9]) - m[1] * (m[4] * m[10] - m[6] * m[8]) +
         m[2] * (m[4] * m[9] - m[5] * m[8]);
}

bool Placement::isRegular() const {
  for (const double number : _m) {
    if (!std::isfinite(float(number))) return false;
  }
  double size = 0;
  for (const std::size_t at : {0U, 1U, 2U, 4U, 5U, 6U, 8U, 9U, 10U})
    size = std::max(size, std::fabs(_m[at]));
  return std::fabs(determinant()) > 1e-12 * size * size * size;
}

std::array<float, 12> Placement::rows() const {
  std::array<float, 12> rows{};
  for (std::size_t at = 0; at < rows.size(); ++at)
    rows[at] = float(_m[at]);
  return rows;
}

}  // namespace kuStandalone
