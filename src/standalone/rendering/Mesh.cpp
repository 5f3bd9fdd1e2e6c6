#include "standalone/rendering/Mesh.h"

#include <QJsonArray>
#include <cmath>

#include "standalone/gltf/AccessorReader.h"
#include "standalone/gltf/GltfSource.h"
#include "standalone/rendering/Vectors.h"

namespace kuStandalone {

namespace {

constexpr int triangleList = 4, triangleStrip = 5, triangleFan = 6;

/** Some direction at a right angle to a normal. */
QVector3D across(const QVector3D& normal) {
  const QVector3D axis = std::fabs(normal.x()) < 0.9f ? QVector3D(1, 0, 0) : QVector3D(0, 1, 0);
  return QVector3D::crossProduct(normal, axis).normalized();
}

class MeshReader {
 public:
  MeshReader(const GltfSource& source, const QJsonObject& primitive)
      : _accessors(source),
        _attributes(primitive["attributes"].toObject()),
        _indices(primitive["indices"]),
        _mode(primitive["mode"].toInt(triangleList)) {}

  std::shared_ptr<const Mesh> read() {
    readPositions();
    readTriangles();
    readNormals();
    readTexcoords();
    readTangents();
    readColors();
    return std::make_shared<const Mesh>(std::move(_mesh));
  }

 private:
  std::vector<float> numbers(const QString& attribute) const {
    if (!_attributes.contains(attribute)) return {};
    return _accessors.floats(_accessors.view(_attributes[attribute].toInt()));
  }

  int components(const QString& attribute) const {
    return _accessors.view(_attributes[attribute].toInt()).components;
  }

  void readPositions() {
    const std::vector<float> list = numbers("POSITION");
    for (std::size_t at = 0; at + 2 < list.size(); at += 3)
      _mesh.positions.emplace_back(list[at], list[at + 1], list[at + 2]);
  }

  std::vector<std::uint32_t> order() const {
    if (!_indices.isUndefined()) return _accessors.wholes(_accessors.view(_indices.toInt()));
    std::vector<std::uint32_t> all(_mesh.positions.size());
    for (std::uint32_t at = 0; at < all.size(); ++at)
      all[at] = at;
    return all;
  }

  void readTriangles() {
    const std::vector<std::uint32_t> list = order();
    if (_mode == triangleList) {
      for (std::size_t at = 0; at + 2 < list.size(); at += 3)
        add(list[at], list[at + 1], list[at + 2]);
    } else if (_mode == triangleStrip) {
      for (std::size_t at = 0; at + 2 < list.size(); ++at)
        at % 2 == 0 ? add(list[at], list[at + 1], list[at + 2])
                    : add(list[at + 1], list[at], list[at + 2]);
    } else if (_mode == triangleFan) {
      for (std::size_t at = 1; at + 1 < list.size(); ++at)
        add(list[0], list[at], list[at + 1]);
    }
    // No triangle has such a vertex, and nothing else is to stumble over its numbers.
    for (QVector3D& position : _mesh.positions) {
      if (!isWithinReach(position)) position = QVector3D();
    }
  }

  /** Adds a triangle that has an area. */
  void add(std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    const std::size_t count = _mesh.positions.size();
    if (a >= count || b >= count || c >= count) return;
    const QVector3D &p = _mesh.positions[a], &q = _mesh.positions[b], &r = _mesh.positions[c];
    if (!isWithinReach(p) || !isWithinReach(q) || !isWithinReach(r)) return;
    const QVector3D area = QVector3D::crossProduct(q - p, r - p);
    if (isFinite(area) && !area.isNull()) _mesh.triangles.push_back({a, b, c});
  }

  void readNormals() {
    const std::vector<float> list = numbers("NORMAL");
    if (list.empty()) {
      makeFlat();
      return;
    }
    for (std::size_t at = 0; at + 2 < list.size(); at += 3)
      _mesh.normals.push_back(unit({list[at], list[at + 1], list[at + 2]}, {0, 1, 0}));
  }

  /** Without normals the triangles are flat, so that each needs vertices of its own. */
  void makeFlat() {
    std::vector<QVector3D> positions;
    for (Triangle& triangle : _mesh.triangles) {
      const auto first = std::uint32_t(positions.size());
      for (const std::uint32_t vertex : triangle) {
        positions.push_back(_mesh.positions[vertex]);
        _sourceVertex.push_back(vertex);
      }
      const QVector3D normal = QVector3D::crossProduct(positions[first + 1] - positions[first],
                                                       positions[first + 2] - positions[first]);
      _mesh.normals.insert(_mesh.normals.end(), 3, unit(normal, {0, 1, 0}));
      triangle = {first, first + 1, first + 2};
    }
    _mesh.positions = std::move(positions);
  }

  /** The list of an attribute for the vertices as they are now. */
  template <class Value>
  std::vector<Value> spread(std::vector<Value> list) const {
    if (_sourceVertex.empty() || list.empty()) return list;
    std::vector<Value> spreadList;
    spreadList.reserve(_sourceVertex.size());
    for (const std::uint32_t vertex : _sourceVertex)
      spreadList.push_back(list[vertex]);
    return spreadList;
  }

  void readTexcoords() {
    for (std::size_t set = 0; set < _mesh.texcoords.size(); ++set) {
      const std::vector<float> list = numbers(QStringLiteral("TEXCOORD_%1").arg(set));
      std::vector<QVector2D> coordinates;
      for (std::size_t at = 0; at + 1 < list.size(); at += 2) {
        const bool finite = std::isfinite(list[at]) && std::isfinite(list[at + 1]);
        coordinates.push_back(finite ? QVector2D(list[at], list[at + 1]) : QVector2D());
      }
      _mesh.texcoords[set] = spread(std::move(coordinates));
    }
  }

  void readTangents() {
    const std::vector<float> list = numbers("TANGENT");
    if (list.empty() || !_sourceVertex.empty()) {
      makeTangents();
      return;
    }
    for (std::size_t at = 0; at + 3 < list.size(); at += 4) {
      const QVector3D fallback = across(_mesh.normals[at / 4]);
      const QVector3D tangent = unit({list[at], list[at + 1], list[at + 2]}, fallback);
      _mesh.tangents.emplace_back(tangent, list[at + 3] < 0 ? -1.0f : 1.0f);
    }
  }

  /** From the first texture coordinates, averaged over the triangles of a vertex. */
  void makeTangents() {
    const std::vector<QVector2D>& uv = _mesh.texcoords[0];
    if (uv.empty()) return;
    std::vector<QVector3D> along(_mesh.positions.size()), aside(_mesh.positions.size());
    for (const Triangle& t : _mesh.triangles) {
      const QVector3D e1 = _mesh.positions[t[1]] - _mesh.positions[t[0]];
      const QVector3D e2 = _mesh.positions[t[2]] - _mesh.positions[t[0]];
      const QVector2D d1 = uv[t[1]] - uv[t[0]], d2 = uv[t[2]] - uv[t[0]];
      const float area = d1.x() * d2.y() - d2.x() * d1.y();
      if (area == 0) continue;
      for (const std::uint32_t vertex : t) {
        along[vertex] += (e1 * d2.y() - e2 * d1.y()) / area;
        aside[vertex] += (e2 * d1.x() - e1 * d2.x()) / area;
      }
    }
    for (std::size_t at = 0; at < along.size(); ++at) {
      const QVector3D& normal = _mesh.normals[at];
      const QVector3D flat = along[at] - normal * QVector3D::dotProduct(normal, along[at]);
      const QVector3D tangent = unit(flat, across(normal));
      const float side = QVector3D::dotProduct(QVector3D::crossProduct(normal, tangent), aside[at]);
      // A normal map's second axis points up in its picture, against the coordinate.
      _mesh.tangents.emplace_back(tangent, side > 0 ? -1.0f : 1.0f);
    }
  }

  void readColors() {
    const std::vector<float> list = numbers("COLOR_0");
    if (list.empty()) return;
    const auto step = std::size_t(components("COLOR_0"));
    std::vector<QVector4D> colors;
    for (std::size_t at = 0; at + step <= list.size(); at += step) {
      const float alpha = step == 4 ? list[at + 3] : 1;
      const QVector4D color(list[at], list[at + 1], list[at + 2], alpha);
      colors.push_back(
          isFinite(color.toVector3D()) && std::isfinite(alpha) ? color : QVector4D(1, 1, 1, 1));
    }
    _mesh.colors = spread(std::move(colors));
  }

  AccessorReader _accessors;
  QJsonObject _attributes;
  QJsonValue _indices;
  int _mode;
  Mesh _mesh;
  /** The file's vertex behind each one of ours; empty while they are the same. */
  std::vector<std::uint32_t> _sourceVertex;
};

}  // namespace

std::shared_ptr<const Mesh> readMesh(const GltfSource& source, int mesh, int primitive) {
  const QJsonArray primitives =
      source.root["meshes"].toArray()[mesh].toObject()["primitives"].toArray();
  const QJsonValue found = primitives.at(primitive);
  if (!found.isObject()) return std::make_shared<const Mesh>();
  return MeshReader(source, found.toObject()).read();
}

}  // namespace kuStandalone
