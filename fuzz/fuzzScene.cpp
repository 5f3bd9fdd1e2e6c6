// Any bytes as a scene file: loaded within small limits, so that a file which asks for much is
// refused and not obeyed. What is loaded must be a scene, what is refused must say why; and a scene
// that was saved must load again.

#include <QGuiApplication>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "standalone/StandaloneHost.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/gltf/SceneWriter.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // These last until the process ends, as the fuzzer calls no exit of ours.
  static const auto* application = new QGuiApplication(*argc, *argv);
  static const auto* host = new kuStandalone::StandaloneHost;
  return application && host ? 0 : 1;
}

namespace {

constexpr kuStandalone::SceneLimits limits{1 << 20, 2000, 50};

void check(bool held) {
  if (!held) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
  const kuStandalone::SceneLoadResult result = kuStandalone::loadSceneData(bytes, "f", limits);
  const bool loaded = result.status == kuStandalone::SceneLoadResult::Status::Loaded;
  check(loaded == (result.scene != nullptr));
  check(loaded == result.error.empty());
  if (!loaded) return 0;
  const bool binary = size % 2 == 0;
  const QByteArray saved = kuStandalone::sceneData(*result.scene, binary);
  const kuStandalone::SceneLoadResult again = kuStandalone::loadSceneData(saved, "saved", limits);
  if (!again.scene) std::fprintf(stderr, "%s\n%s\n", again.error.c_str(), saved.constData());
  check(again.scene != nullptr);
  return 0;
}
