#pragma once

#include <array>
#include <cstddef>

namespace osg {

/** N numbers, as a direction or a colour. Default-made it is all zero. */
template <class T, std::size_t N>
class Vector {
 public:
  Vector() = default;
  Vector(T x, T y, T z) : _values{x, y, z} { static_assert(N == 3, "three values"); }

  T& operator[](std::size_t i) { return _values[i]; }
  const T& operator[](std::size_t i) const { return _values[i]; }

  bool operator==(const Vector& other) const { return _values == other._values; }
  bool operator!=(const Vector& other) const { return _values != other._values; }

 private:
  std::array<T, N> _values{};
};

/** N numbers, as a place. */
template <class T, std::size_t N>
class Point : public Vector<T, N> {
 public:
  using Vector<T, N>::Vector;
};

using Vec3f = Vector<float, 3>;
using Pnt3f = Point<float, 3>;

}  // namespace osg
