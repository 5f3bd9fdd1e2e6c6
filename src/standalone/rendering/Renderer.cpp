#include "standalone/rendering/Renderer.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "standalone/rendering/CutContour.h"
#include "standalone/rendering/PathTracer.h"
#include "standalone/rendering/SceneplatePainter.h"
#include "standalone/rendering/ToneMapping.h"
#include "standalone/rendering/View.h"

namespace kuStandalone {

namespace {

constexpr int mostPixels = 16384;

bool isSound(const PictureSettings& settings) {
  const auto fits = [](int side) { return side >= 1 && side <= mostPixels; };
  return fits(settings.width) && fits(settings.height) && settings.samples >= 1 &&
         settings.samples <= 65536;
}

/**
 * The height of the ground to stand in, unless the scene has one: something flat at its bottom that
 * spreads beyond all the rest.
 */
std::optional<float> standInGround(const RayScene& scene) {
  const Bounds& all = scene.bounds();
  if (all.isEmpty()) return std::nullopt;
  Bounds others;
  bool hasFloor = false;
  for (const MeshInstance& instance : scene.instances()) {
    if (!instance.shown) continue;
    const QVector3D size = instance.bounds.size();
    const bool flat = size.y() <= 0.02f * std::max(size.x(), size.z());
    const bool low = instance.bounds.least.y() <= all.least.y() + 0.05f * all.size().y();
    const bool wide = size.x() >= 0.95f * all.size().x() && size.z() >= 0.95f * all.size().z();
    if (flat && low && wide) {
      hasFloor = true;
    } else {
      others.add(instance.bounds.least);
      others.add(instance.bounds.most);
    }
  }
  if (hasFloor && !others.isEmpty()) return std::nullopt;
  return all.least.y();
}

/** Threads that take the rows of a picture one by one. */
class RowWork {
 public:
  RowWork(int rows, unsigned threads, std::function<void(int)> work)
      : _rows(rows), _work(std::move(work)) {
    if (threads == 0) threads = std::max(1U, std::thread::hardware_concurrency());
    threads = std::min(threads, 256U);
    for (unsigned i = 0; i < threads; ++i)
      _threads.emplace_back([this] { run(); });
  }
  ~RowWork() {
    _next = _rows;
    for (std::thread& thread : _threads)
      thread.join();
  }
  RowWork(const RowWork&) = delete;
  RowWork& operator=(const RowWork&) = delete;

  /** Waits for the end; the answer is whether it was reached. */
  bool wait(const Renderer::Progress& progress) {
    for (;;) {
      std::unique_lock<std::mutex> lock(_mutex);
      _rowDone.wait_for(lock, std::chrono::milliseconds(50), [this] { return _done == _rows; });
      const int done = _done;
      lock.unlock();
      if (progress && !progress(double(done) / _rows)) return false;
      if (done == _rows) return true;
    }
  }

 private:
  void run() {
    for (int row = _next++; row < _rows; row = _next++) {
      _work(row);
      const std::lock_guard<std::mutex> lock(_mutex);
      if (++_done == _rows) _rowDone.notify_all();
    }
  }

  int _rows;
  std::function<void(int)> _work;
  std::atomic<int> _next{0};
  int _done = 0;
  std::mutex _mutex;
  std::condition_variable _rowDone;
  std::vector<std::thread> _threads;
};

/** The mean of a pixel's samples. */
QVector3D pixel(const PathTracer& tracer, const View& view, const PictureSettings& settings, int x,
                int y) {
  QVector3D sum;
  const auto number = std::uint32_t(y) * std::uint32_t(settings.width) + std::uint32_t(x);
  for (int at = 0; at < settings.samples; ++at) {
    const Sampler random(number, std::uint32_t(at));
    const float across = (float(x) + random.at(0)) / float(settings.width);
    const float down = (float(y) + random.at(1)) / float(settings.height);
    sum += tracer.sample(view.ray(across, down), down, random);
  }
  return sum / float(settings.samples);
}

/** The traced picture; null where there is no memory for it or the progress ended it. */
QImage trace(const PathTracer& tracer, const View& view, const PictureSettings& settings,
             const Renderer::Progress& progress) {
  QImage picture(settings.width, settings.height, QImage::Format_RGB32);
  if (picture.isNull()) return picture;
  uchar* const bits = picture.bits();
  const int stride = picture.bytesPerLine();
  RowWork work(settings.height, settings.threads, [&, bits, stride](int y) {
    auto* line = reinterpret_cast<QRgb*>(bits + std::ptrdiff_t(y) * stride);
    for (int x = 0; x < settings.width; ++x) {
      const QVector3D color = pixel(tracer, view, settings, x, y);
      line[x] = qRgb(srgbByte(color.x()), srgbByte(color.y()), srgbByte(color.z()));
    }
  });
  return work.wait(progress) ? picture : QImage();
}

TracedScene tracedScene(const RayScene& geometry, const std::vector<VisibleLight>& lights) {
  const ClippingSettings& clipping = ClippingSettings::the();
  TracedScene traced;
  traced.geometry = &geometry;
  traced.lights = lights;
  traced.cut = cutAway(clipping);
  if (traced.cut) {
    traced.pane.emplace(clipping, *traced.cut, geometry.bounds());
    traced.hidden = clipping.hideScene;
  }
  if (!traced.hidden) traced.ground = standInGround(geometry);
  return traced;
}

/** Lays over the picture where the plane cuts. */
void addContour(QImage& picture, const View& view, const PathTracer& tracer,
                const TracedScene& traced) {
  const ClippingSettings& clipping = ClippingSettings::the();
  if (!traced.cut || !clipping.showContour) return;
  const auto& color = clipping.contourColor;
  drawContour(picture, view, tracer, cutLines(*traced.geometry, *traced.cut),
              {color[0], color[1], color[2]}, clipping.contourWidth);
}

}  // namespace

Renderer::Renderer() : _sceneplates(std::make_unique<SceneplatePainter>()) {}

Renderer::~Renderer() = default;

QImage Renderer::render(const Scene& scene, const PictureSettings& settings,
                        const Progress& progress) {
  if (!isSound(settings)) return QImage();
  const VisibleScene visible(scene);
  _geometry.update(scene, visible);
  const float aspect = float(settings.width) / float(settings.height);
  const View view = viewOf(scene, _geometry.bounds(), aspect);
  const TracedScene traced = tracedScene(_geometry, visible.lights);
  const PathTracer tracer(traced);
  QImage picture = trace(tracer, view, settings, progress);
  if (picture.isNull()) return picture;
  addContour(picture, view, tracer, traced);
  _sceneplates->paint(scene, picture);
  return picture;
}

}  // namespace kuStandalone
