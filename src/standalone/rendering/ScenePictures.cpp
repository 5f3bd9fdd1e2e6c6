#include "standalone/rendering/ScenePictures.h"

#include <algorithm>

#include "host/rendering/kuRaytracingManager.h"

namespace kuStandalone {

namespace {

/** More than this the renderer refuses. */
constexpr int mostSamples = 65536;

/** Holds a flag true for as long as this object lives. */
class Raised {
 public:
  explicit Raised(bool& flag) : _flag(flag) { _flag = true; }
  ~Raised() { _flag = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& _flag;
};

}  // namespace

ScenePictures& ScenePictures::the() {
  static ScenePictures pictures;
  return pictures;
}

int ScenePictures::samples() {
  const int setting = kuRaytracingManager::getRaytracingUtils()->getRenderSetting();
  return setting < 1 ? PictureSettings().samples : std::min(setting, mostSamples);
}

QImage ScenePictures::take(const PictureSettings& settings, const Renderer::Progress& progress) {
  // The threads of the outer picture still trace the kept renderer's geometry.
  if (_taking) return Renderer().render(Scene::the(), settings, progress);
  const Raised taking(_taking);
  if (!_renderer) _renderer = std::make_unique<Renderer>();
  return _renderer->render(Scene::the(), settings, progress);
}

void ScenePictures::forget() { _renderer.reset(); }

}  // namespace kuStandalone
