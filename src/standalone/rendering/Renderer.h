#pragma once

#include <QImage>
#include <functional>
#include <memory>

#include "standalone/rendering/RayScene.h"
#include "standalone/scene/Scene.h"

namespace kuStandalone {

class SceneplatePainter;

/** How a picture is to be. */
struct PictureSettings {
  /** In pixels, from 1 to 16384. */
  int width = 264, height = 256;
  /** Rays through each pixel, from 1: more make edges cleaner and soft light smoother. */
  int samples = 24;
  /** Threads that work on it; 0 for as many as the machine has. The picture is the same. */
  unsigned threads = 0;
};

/**
 * Takes pictures of scenes by ray tracing, without a window and without a graphics card. It keeps
 * what it built: a second picture of the same scene costs only what changed.
 *
 * A picture shows what the scene says at that moment: what is visible, switches, named transforms,
 * materials, lights, the active viewpoint, the clipping settings, the sceneplates. Where the scene
 * has no ground under it, a soft shadow stands in for one.
 */
class KUHOST_EXPORT Renderer {
 public:
  /** Told the finished share from 0 to 1, in the caller's thread, 1 at the end; false ends the
   * work. */
  using Progress = std::function<bool(double)>;

  Renderer();
  ~Renderer();
  Renderer(const Renderer&) = delete;
  Renderer& operator=(const Renderer&) = delete;

  /** The picture, opaque; null where the settings are out of range or the progress ended it. */
  QImage render(const Scene& scene, const PictureSettings& settings, const Progress& progress = {});

  /** The geometry as it stands after the last picture. */
  const RayScene& geometry() const { return _geometry; }

 private:
  RayScene _geometry;
  std::unique_ptr<SceneplatePainter> _sceneplates;
};

}  // namespace kuStandalone
