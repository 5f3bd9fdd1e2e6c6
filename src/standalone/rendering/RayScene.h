#pragma once

#include <QVector3D>
#include <array>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "standalone/rendering/Mesh.h"
#include "standalone/rendering/Ray.h"
#include "standalone/rendering/Surface.h"
#include "standalone/rendering/VisibleScene.h"

struct RTCDeviceTy;
struct RTCSceneTy;
struct RTCGeometryTy;

namespace kuStandalone {

/** A box with its sides along the axes; empty at first. */
struct KUHOST_EXPORT Bounds {
  QVector3D least{1, 1, 1}, most{-1, -1, -1};

  bool isEmpty() const { return least.x() > most.x(); }
  void add(const QVector3D& point);
  /** One of its eight corners, from 0. */
  QVector3D corner(int number) const;
  QVector3D center() const { return (least + most) / 2; }
  QVector3D size() const { return isEmpty() ? QVector3D() : most - least; }
};

/** A mesh in one place of the scene, with what it looks like. */
struct MeshInstance {
  /** Identifier of its node. */
  std::uint32_t node = 0;
  std::shared_ptr<const Mesh> mesh;
  Placement placement;
  /** The placement's normalRows(). */
  std::array<float, 9> normalRows{1, 0, 0, 0, 1, 0, 0, 0, 1};
  /** Null for a switch material that shows none: then it is not to be seen, and neither is what
   * lies beyond the numbers of the ray tracer. */
  std::shared_ptr<const Surface> surface;
  Bounds bounds;
  /** The rays that see it while it is shown. */
  RayKinds seenBy = allRayKinds;
  bool shown = false;

  /** A normal of the mesh in the world, of any length. */
  QVector3D worldNormal(const QVector3D& n) const {
    const auto& r = normalRows;
    return {r[0] * n.x() + r[1] * n.y() + r[2] * n.z(), r[3] * n.x() + r[4] * n.y() + r[5] * n.z(),
            r[6] * n.x() + r[7] * n.y() + r[8] * n.z()};
  }
};

/** Where a ray met a triangle. */
struct RayHit {
  float distance;
  const MeshInstance* instance;
  std::uint32_t triangle;
  /** Weights of the triangle's second and third vertex. */
  float u, v;
  /** Of the triangle, in the mesh's own space and of any length. */
  QVector3D faceNormal;
};

/**
 * The geometry of a scene as the ray tracer holds it. It follows the scene: a mesh is built once,
 * however many nodes show it and whatever happens to them; a node that is hidden, shown or moved
 * costs an update of the topmost level alone, and a material that changes costs nothing there. What
 * a node leaves behind that has died is cleared away.
 */
class KUHOST_EXPORT RayScene {
 public:
  RayScene();
  ~RayScene();
  RayScene(const RayScene&) = delete;
  RayScene& operator=(const RayScene&) = delete;

  /** Brings it to what a scene shows now. */
  void update(const Scene& scene, const VisibleScene& visible);

  /** The first thing that a ray of its kind meets, back faces and what is transparent included. */
  std::optional<RayHit> intersect(const Ray& ray) const;
  /** Whether it meets anything. */
  bool occluded(const Ray& ray) const;

  const std::vector<MeshInstance>& instances() const { return _instances; }
  /** Of all that shows. */
  const Bounds& bounds() const { return _bounds; }
  /** Whether light passes through any surface that shows, or a surface has no back. */
  bool hasOpenings() const { return _hasOpenings; }

  /** How often a mesh was built, and how often the topmost level. */
  std::uint64_t meshBuilds() const { return _meshBuilds; }
  std::uint64_t topBuilds() const { return _topBuilds; }

 private:
  struct BuiltMesh;
  using MeshKey = std::pair<int, int>;

  void reset(const std::shared_ptr<SceneSource>& source);
  void begin(const std::shared_ptr<SceneSource>& source);
  const BuiltMesh* meshOf(const GeometryCore& core);
  /** Places a geometry; the answer is whether the topmost level changed. */
  bool place(const VisibleGeometry& geometry, const BuiltMesh& mesh);
  /** Takes over which rays see an instance; the answer is as place()'s. */
  bool showTo(unsigned index, RayKinds kinds);
  void move(unsigned index, const Placement& placement, const Bounds& bounds);
  unsigned attach(const BuiltMesh& mesh, std::uint32_t node);
  unsigned freePlace();
  /** Takes over what shows and what not, and what has died; the answers are as place()'s. */
  bool applyShown(const std::vector<bool>& before);
  bool releaseDead();
  void refreshBounds();

  RTCDeviceTy* _device;
  RTCSceneTy* _top = nullptr;
  std::shared_ptr<SceneSource> _source;
  std::unique_ptr<Surfaces> _surfaces;
  std::map<MeshKey, std::unique_ptr<BuiltMesh>> _meshes;
  std::vector<MeshInstance> _instances;
  std::vector<RTCGeometryTy*> _geometries;
  /** Places in the lists above that are free. */
  std::vector<unsigned> _free;
  /** By node and mesh, since a node may be given another core and its own one again. */
  std::map<std::pair<std::uint32_t, const Mesh*>, unsigned> _instanceOf;
  Bounds _bounds;
  bool _hasOpenings = false;
  std::uint64_t _meshBuilds = 0, _topBuilds = 0;
};

}  // namespace kuStandalone
