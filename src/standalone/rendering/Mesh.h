#pragma once

#include <QVector2D>
#include <QVector3D>
#include <QVector4D>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "host/kuHostExport.h"

namespace kuStandalone {

class GltfSource;

/** Three vertices by index, counter-clockwise seen from the front. */
using Triangle = std::array<std::uint32_t, 3>;

/**
 * The triangles of one primitive. The lists of attributes are as long as the positions, or empty
 * where the file has none; normals are always there. All numbers are finite.
 */
struct Mesh {
  std::vector<QVector3D> positions;
  /** Of length 1. */
  std::vector<QVector3D> normals;
  /** Direction of the first texture coordinate, of length 1, and in w the side to which pictures
   * point up, against the second one: 1 where that is normal x tangent, otherwise -1. */
  std::vector<QVector4D> tangents;
  std::array<std::vector<QVector2D>, 2> texcoords;
  /** Linear colours and opacity. */
  std::vector<QVector4D> colors;
  std::vector<Triangle> triangles;
};

/**
 * The triangles of a primitive of the file; strips and fans are taken apart. Triangles that have no
 * area or a vertex that is not finite or farther out than 1e18 are left out, and so are points and
 * lines: the answer may have no triangle. Never null.
 */
KUHOST_EXPORT std::shared_ptr<const Mesh> readMesh(const GltfSource& source, int mesh,
                                                   int primitive);

}  // namespace kuStandalone
