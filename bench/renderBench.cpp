// Pictures: what a ray costs beside the bare ray tracer, and what a second picture costs beside the
// first. Run by scripts/bench.
#include <benchmark/benchmark.h>
#include <embree3/rtcore.h>

#include <QGuiApplication>
#include <cstdlib>
#include <iostream>

#include "standalone/gltf/SceneFile.h"
#include "standalone/rendering/PathTracer.h"
#include "standalone/rendering/Renderer.h"
#include "standalone/rendering/View.h"
#include "standalone/scene/SceneNode.h"

using namespace kuStandalone;

namespace {

constexpr int width = 512, height = 512;

const char* samplePath = "samples/car/car.gltf";

std::unique_ptr<Scene> sample() {
  SceneLoadResult result = loadScene(samplePath);
  if (!result.scene) {
    std::cerr << result.error << '\n';
    std::exit(1);
  }
  return std::move(result.scene);
}

/** The scene as one flat list of triangles in the bare ray tracer. */
class BareScene {
 public:
  explicit BareScene(const RayScene& scene)
      : _device(rtcNewDevice(nullptr)), _scene(rtcNewScene(_device)) {
    for (const MeshInstance& instance : scene.instances()) {
      if (instance.shown) add(instance);
    }
    rtcCommitScene(_scene);
  }
  ~BareScene() {
    rtcReleaseScene(_scene);
    rtcReleaseDevice(_device);
  }
  BareScene(const BareScene&) = delete;
  BareScene& operator=(const BareScene&) = delete;

  RTCScene get() const { return _scene; }

 private:
  /** A hierarchy of its own for each mesh, placed by an instance, as the renderer has them. */
  void add(const MeshInstance& instance) {
    RTCScene mesh = rtcNewScene(_device);
    RTCGeometry triangles = rtcNewGeometry(_device, RTC_GEOMETRY_TYPE_TRIANGLE);
    const auto& positions = instance.mesh->positions;
    auto* vertices = static_cast<float*>(
        rtcSetNewGeometryBuffer(triangles, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3,
                                3 * sizeof(float), positions.size()));
    for (const QVector3D& p : positions) {
      *vertices++ = p.x();
      *vertices++ = p.y();
      *vertices++ = p.z();
    }
    const auto& list = instance.mesh->triangles;
    auto* indices = static_cast<Triangle*>(rtcSetNewGeometryBuffer(
        triangles, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3, sizeof(Triangle), list.size()));
    std::copy(list.begin(), list.end(), indices);
    rtcCommitGeometry(triangles);
    rtcAttachGeometry(mesh, triangles);
    rtcReleaseGeometry(triangles);
    rtcSetSceneFlags(mesh, RTC_SCENE_FLAG_ROBUST);
    rtcCommitScene(mesh);
    RTCGeometry placed = rtcNewGeometry(_device, RTC_GEOMETRY_TYPE_INSTANCE);
    rtcSetGeometryInstancedScene(placed, mesh);
    rtcReleaseScene(mesh);
    rtcSetGeometryTransform(placed, 0, RTC_FORMAT_FLOAT3X4_ROW_MAJOR,
                            instance.placement.rows().data());
    rtcCommitGeometry(placed);
    rtcAttachGeometry(_scene, placed);
    rtcReleaseGeometry(placed);
  }

  RTCDevice _device;
  RTCScene _scene;
};

std::vector<Ray> primaryRays(const Scene& scene, const RayScene& geometry) {
  const View view = viewOf(scene, geometry.bounds(), float(width) / height);
  std::vector<Ray> rays;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      rays.push_back(view.ray((float(x) + 0.5f) / width, (float(y) + 0.5f) / height));
  }
  return rays;
}

void countRays(benchmark::State& state, std::size_t perIteration) {
  state.counters["rays_per_second"] = benchmark::Counter(
      double(state.iterations()) * double(perIteration), benchmark::Counter::kIsRate);
}

/** What the sample shows, ready to be traced. */
struct Prepared {
  Prepared() : scene(sample()) {
    geometry.update(*scene, VisibleScene(*scene));
    rays = primaryRays(*scene, geometry);
  }
  std::unique_ptr<Scene> scene;
  RayScene geometry;
  std::vector<Ray> rays;
};

void bareRays(benchmark::State& state) {
  const Prepared prepared;
  const BareScene bare(prepared.geometry);
  for (auto _ : state) {
    std::size_t hits = 0;
    for (const Ray& ray : prepared.rays) {
      RTCIntersectContext context;
      rtcInitIntersectContext(&context);
      RTCRayHit query{};
      query.ray = {ray.origin.x(),
                   ray.origin.y(),
                   ray.origin.z(),
                   ray.nearest,
                   ray.direction.x(),
                   ray.direction.y(),
                   ray.direction.z(),
                   0,
                   ray.farthest,
                   ~0U,
                   0,
                   0};
      query.hit.geomID = query.hit.instID[0] = RTC_INVALID_GEOMETRY_ID;
      rtcIntersect1(bare.get(), &context, &query);
      hits += query.hit.geomID != RTC_INVALID_GEOMETRY_ID;
    }
    benchmark::DoNotOptimize(hits);
  }
  countRays(state, prepared.rays.size());
}

void primaryVisibility(benchmark::State& state) {
  const Prepared prepared;
  TracedScene traced;
  traced.geometry = &prepared.geometry;
  const PathTracer tracer(traced);
  for (auto _ : state) {
    std::size_t hits = 0;
    for (const Ray& ray : prepared.rays)
      hits += tracer.visibleDistance(ray).has_value();
    benchmark::DoNotOptimize(hits);
  }
  countRays(state, prepared.rays.size());
}

void preview(benchmark::State& state) {
  const std::unique_ptr<Scene> scene = sample();
  Renderer renderer;
  renderer.render(*scene, PictureSettings());
  for (auto _ : state)
    benchmark::DoNotOptimize(renderer.render(*scene, PictureSettings()));
}

/** A picture so cheap that what comes before the rays shows. */
PictureSettings smallest() {
  PictureSettings settings;
  settings.width = settings.height = 16;
  settings.samples = 1;
  settings.threads = 1;
  return settings;
}

void firstPicture(benchmark::State& state) {
  const std::unique_ptr<Scene> scene = sample();
  for (auto _ : state) {
    Renderer renderer;
    benchmark::DoNotOptimize(renderer.render(*scene, smallest()));
  }
}

/** Some node whose flag changes from picture to picture. */
osg::NodePtr changing(const Scene& scene) {
  const auto& children = SceneNode::of(scene.nodes.root).children();
  return SceneNode::of(children.front()).children().front();
}

void pictureAfterChange(benchmark::State& state) {
  const std::unique_ptr<Scene> scene = sample();
  Renderer renderer;
  renderer.render(*scene, smallest());
  const osg::NodePtr node = changing(*scene);
  for (auto _ : state) {
    SceneNode::of(node).setActiveFlag(!SceneNode::of(node).active());
    benchmark::DoNotOptimize(renderer.render(*scene, smallest()));
  }
}

BENCHMARK(bareRays)->Unit(benchmark::kMillisecond);
BENCHMARK(primaryVisibility)->Unit(benchmark::kMillisecond);
BENCHMARK(preview)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(firstPicture)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(pictureAfterChange)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
