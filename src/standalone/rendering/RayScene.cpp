#include "standalone/rendering/RayScene.h"

#include <embree3/rtcore.h>

#include <cmath>

#include "standalone/gltf/GltfSource.h"
#include "standalone/rendering/Vectors.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

void Bounds::add(const QVector3D& point) {
  if (isEmpty()) {
    least = most = point;
    return;
  }
  for (int axis = 0; axis < 3; ++axis) {
    least[axis] = std::min(least[axis], point[axis]);
    most[axis] = std::max(most[axis], point[axis]);
  }
}

QVector3D Bounds::corner(int number) const {
  return {number & 1 ? most.x() : least.x(), number & 2 ? most.y() : least.y(),
          number & 4 ? most.z() : least.z()};
}

/** A mesh with the hierarchy that the ray tracer made for it. */
struct RayScene::BuiltMesh {
  explicit BuiltMesh(RTCDevice device, std::shared_ptr<const Mesh> built);
  ~BuiltMesh() { rtcReleaseScene(scene); }
  BuiltMesh(const BuiltMesh&) = delete;
  BuiltMesh& operator=(const BuiltMesh&) = delete;

  void attachTriangles(RTCDevice device);

  std::shared_ptr<const Mesh> mesh;
  Bounds bounds;
  RTCScene scene;
};

RayScene::BuiltMesh::BuiltMesh(RTCDevice device, std::shared_ptr<const Mesh> built)
    : mesh(std::move(built)), scene(rtcNewScene(device)) {
  for (const Triangle& triangle : mesh->triangles) {
    for (const std::uint32_t vertex : triangle)
      bounds.add(mesh->positions[vertex]);
  }
  if (!mesh->triangles.empty()) attachTriangles(device);
  rtcSetSceneFlags(scene, RTC_SCENE_FLAG_ROBUST);
  rtcCommitScene(scene);
}

void RayScene::BuiltMesh::attachTriangles(RTCDevice device) {
  RTCGeometry geometry = rtcNewGeometry(device, RTC_GEOMETRY_TYPE_TRIANGLE);
  // Its own copy, since the tracer reads a few bytes beyond the last vertex.
  auto* vertices = static_cast<float*>(rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_VERTEX, 0,
                                                               RTC_FORMAT_FLOAT3, 3 * sizeof(float),
                                                               mesh->positions.size()));
  for (const QVector3D& position : mesh->positions) {
    for (int axis = 0; axis < 3; ++axis)
      *vertices++ = position[axis];
  }
  auto* indices = static_cast<Triangle*>(rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0,
                                                                 RTC_FORMAT_UINT3, sizeof(Triangle),
                                                                 mesh->triangles.size()));
  std::copy(mesh->triangles.begin(), mesh->triangles.end(), indices);
  rtcCommitGeometry(geometry);
  rtcAttachGeometry(scene, geometry);
  rtcReleaseGeometry(geometry);
}

RayScene::RayScene() : _device(rtcNewDevice(nullptr)) {}

RayScene::~RayScene() {
  reset(nullptr);
  rtcReleaseDevice(_device);
}

void RayScene::reset(const std::shared_ptr<SceneSource>& source) {
  for (RTCGeometry geometry : _geometries) {
    if (geometry) rtcReleaseGeometry(geometry);
  }
  if (_top) rtcReleaseScene(_top);
  _top = nullptr;
  _geometries.clear();
  _instances.clear();
  _instanceOf.clear();
  _free.clear();
  _meshes.clear();
  _source = source;
  _surfaces.reset();
}

void RayScene::update(const Scene& scene, const VisibleScene& visible) {
  if (!_top || scene.source != _source) begin(scene.source);
  std::vector<bool> before;
  for (MeshInstance& instance : _instances) {
    before.push_back(instance.shown);
    instance.shown = false;
  }
  bool changed = false;
  for (const VisibleGeometry& geometry : visible.geometries) {
    const BuiltMesh* mesh = meshOf(*geometry.core);
    if (mesh && geometry.placement.isRegular()) changed |= place(geometry, *mesh);
  }
  before.resize(_instances.size());
  changed |= applyShown(before);
  changed |= releaseDead();
  if (changed) {
    rtcCommitScene(_top);
    ++_topBuilds;
  }
  refreshBounds();
}

void RayScene::begin(const std::shared_ptr<SceneSource>& source) {
  reset(source);
  _surfaces = std::make_unique<Surfaces>(std::dynamic_pointer_cast<GltfSource>(_source));
  _top = rtcNewScene(_device);
  rtcSetSceneFlags(_top, RTC_SCENE_FLAG_ROBUST | RTC_SCENE_FLAG_DYNAMIC);
  rtcCommitScene(_top);
}

bool RayScene::applyShown(const std::vector<bool>& before) {
  bool changed = false;
  for (std::size_t at = 0; at < _instances.size(); ++at) {
    if (_instances[at].shown == before[at]) continue;
    _instances[at].shown ? rtcEnableGeometry(_geometries[at]) : rtcDisableGeometry(_geometries[at]);
    changed = true;
  }
  return changed;
}

bool RayScene::releaseDead() {
  bool changed = false;
  for (unsigned at = 0; at < _instances.size(); ++at) {
    MeshInstance& instance = _instances[at];
    if (instance.shown || !_geometries[at] || SceneNode::byId(instance.node)) continue;
    rtcDetachGeometry(_top, at);
    rtcReleaseGeometry(_geometries[at]);
    _geometries[at] = nullptr;
    _instanceOf.erase({instance.node, instance.mesh.get()});
    instance = MeshInstance();
    _free.push_back(at);
    changed = true;
  }
  return changed;
}

const RayScene::BuiltMesh* RayScene::meshOf(const GeometryCore& core) {
  const auto* source = dynamic_cast<const GltfSource*>(_source.get());
  if (!source || core.mesh < 0 || core.primitive < 0) return nullptr;
  std::unique_ptr<BuiltMesh>& built = _meshes[{core.mesh, core.primitive}];
  if (!built) {
    built = std::make_unique<BuiltMesh>(_device, readMesh(*source, core.mesh, core.primitive));
    ++_meshBuilds;
  }
  return built->mesh->triangles.empty() ? nullptr : built.get();
}

bool RayScene::place(const VisibleGeometry& geometry, const BuiltMesh& mesh) {
  const auto found = _instanceOf.try_emplace({geometry.node, mesh.mesh.get()}, 0);
  unsigned& index = found.first->second;
  if (found.second) index = attach(mesh, geometry.node);
  MeshInstance& instance = _instances[index];
  const bool moved = found.second || instance.placement != geometry.placement;
  if (moved) move(index, geometry.placement, mesh.bounds);
  instance.surface = _surfaces->of(geometry.material);
  instance.shown = instance.surface && isWithinReach(instance.bounds.least) &&
                   isWithinReach(instance.bounds.most);
  return showTo(index, geometry.seenBy) || moved;
}

bool RayScene::showTo(unsigned index, RayKinds kinds) {
  if (_instances[index].seenBy == kinds) return false;
  _instances[index].seenBy = kinds;
  rtcSetGeometryMask(_geometries[index], kinds);
  rtcCommitGeometry(_geometries[index]);
  return true;
}

void RayScene::move(unsigned index, const Placement& placement, const Bounds& bounds) {
  MeshInstance& instance = _instances[index];
  instance.placement = placement;
  instance.normalRows = placement.normalRows();
  instance.bounds = Bounds();
  for (int corner = 0; corner < 8; ++corner)
    instance.bounds.add(placement.point(bounds.corner(corner)));
  rtcSetGeometryTransform(_geometries[index], 0, RTC_FORMAT_FLOAT3X4_ROW_MAJOR,
                          placement.rows().data());
  rtcCommitGeometry(_geometries[index]);
}

unsigned RayScene::attach(const BuiltMesh& mesh, std::uint32_t node) {
  RTCGeometry geometry = rtcNewGeometry(_device, RTC_GEOMETRY_TYPE_INSTANCE);
  rtcSetGeometryInstancedScene(geometry, mesh.scene);
  rtcSetGeometryTimeStepCount(geometry, 1);
  const unsigned index = freePlace();
  rtcAttachGeometryByID(_top, geometry, index);
  rtcDisableGeometry(geometry);
  _geometries[index] = geometry;
  _instances[index].mesh = mesh.mesh;
  _instances[index].node = node;
  return index;
}

unsigned RayScene::freePlace() {
  if (_free.empty()) {
    _geometries.push_back(nullptr);
    _instances.emplace_back();
    return unsigned(_instances.size() - 1);
  }
  const unsigned index = _free.back();
  _free.pop_back();
  return index;
}

void RayScene::refreshBounds() {
  _bounds = Bounds();
  _hasOpenings = false;
  for (const MeshInstance& instance : _instances) {
    if (!instance.shown) continue;
    _bounds.add(instance.bounds.least);
    _bounds.add(instance.bounds.most);
    _hasOpenings |= instance.surface->alpha != Surface::Alpha::Opaque;
  }
}

namespace {

RTCRay tracerRay(const Ray& ray) {
  RTCRay query{};
  query.org_x = ray.origin.x();
  query.org_y = ray.origin.y();
  query.org_z = ray.origin.z();
  query.tnear = ray.nearest;
  query.dir_x = ray.direction.x();
  query.dir_y = ray.direction.y();
  query.dir_z = ray.direction.z();
  query.tfar = ray.farthest;
  query.mask = RayKinds(ray.kind);
  return query;
}

}  // namespace

std::optional<RayHit> RayScene::intersect(const Ray& ray) const {
  if (ray.isEmpty()) return std::nullopt;
  RTCIntersectContext context;
  rtcInitIntersectContext(&context);
  RTCRayHit query{};
  query.ray = tracerRay(ray);
  query.hit.geomID = query.hit.instID[0] = RTC_INVALID_GEOMETRY_ID;
  rtcIntersect1(_top, &context, &query);
  if (query.hit.geomID == RTC_INVALID_GEOMETRY_ID) return std::nullopt;
  const RTCHit& hit = query.hit;
  return RayHit{query.ray.tfar, &_instances[hit.instID[0]],    hit.primID, hit.u,
                hit.v,          {hit.Ng_x, hit.Ng_y, hit.Ng_z}};
}

bool RayScene::occluded(const Ray& ray) const {
  if (ray.isEmpty()) return false;
  RTCIntersectContext context;
  rtcInitIntersectContext(&context);
  RTCRay query = tracerRay(ray);
  rtcOccluded1(_top, &context, &query);
  return query.tfar < 0;
}

}  // namespace kuStandalone
