#pragma once

#include <array>
#include <optional>

namespace kuStandalone {

/**
 * A local transform: translation, rotation (unit quaternion x, y, z, w) and scale, applied in the
 * order scale, rotation, translation; or a matrix (column-major) in their place.
 */
struct Transform {
  std::array<double, 3> translation{0, 0, 0};
  std::array<double, 4> rotation{0, 0, 0, 1};
  std::array<double, 3> scale{1, 1, 1};
  std::optional<std::array<double, 16>> matrix;

  bool operator==(const Transform& other) const {
    return translation == other.translation && rotation == other.rotation && scale == other.scale &&
           matrix == other.matrix;
  }
  bool operator!=(const Transform& other) const { return !(*this == other); }
};

}  // namespace kuStandalone
