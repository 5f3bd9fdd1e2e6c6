#pragma once

#include <memory>

#include "standalone/rendering/Renderer.h"

namespace kuStandalone {

/**
 * Takes the pictures of the present scene: the frames of the render widget and the exported ones.
 * One renderer is kept for all of them, so that the next picture costs only what changed in the
 * scene. Main thread only.
 */
class KUHOST_EXPORT ScenePictures {
 public:
  static ScenePictures& the();

  /** Samples per pixel that the host's render setting asks for. */
  static int samples();

  /** As Renderer::render; a progress may take further pictures meanwhile. */
  QImage take(const PictureSettings& settings, const Renderer::Progress& progress = {});

  /** The renderer; null before the first picture and after forget(). */
  const Renderer* renderer() const { return _renderer.get(); }

  /** Lets go of all that was built. It must not be called while a picture is taken. */
  void forget();

 private:
  ScenePictures() = default;

  std::unique_ptr<Renderer> _renderer;
  bool _taking = false;
};

}  // namespace kuStandalone
