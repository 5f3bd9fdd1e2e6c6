#pragma once

#include <QByteArray>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "standalone/scene/Scene.h"

/**
 * @file
 * Scenes from glTF 2.0 files and back; docs/scene-files.md tells what means what. Nothing here
 * throws, and nothing here touches the present scene.
 */
namespace kuStandalone {

/** What a file may ask for; one that asks for more is refused. */
struct SceneLimits {
  /** Bytes of the scene file and of all files that it names, together. */
  std::size_t fileBytes = std::size_t(1) << 31;
  /** Nodes of the scene, those that clones add included. */
  std::size_t nodes = 2'000'000;
  /** Nodes below one another. */
  std::size_t depth = 1000;
};

/** The answer of loadScene(). */
struct SceneLoadResult {
  enum class Status {
    Loaded,
    /** A file does not exist, is no file, or may not be read. */
    CannotRead,
    /** The file was read and is no scene. */
    Invalid
  };

  Status status = Status::Invalid;
  /** "file: place: reason" (without a place where there is none); empty after Loaded. */
  std::string error;
  /** "file: place: what": what the file has and this loader leaves alone. */
  std::vector<std::string> warnings;
  /** The scene; null unless Loaded. */
  std::unique_ptr<Scene> scene;
};

/** Reads a .gltf or .glb file; which one it is its first bytes tell. @param path UTF-8. */
KUHOST_EXPORT SceneLoadResult loadScene(const std::string& path, const SceneLimits& limits = {});

/** The same for a file's bytes; a file that these name is refused. @param name for messages. */
KUHOST_EXPORT SceneLoadResult loadSceneData(const QByteArray& bytes, const std::string& name,
                                            const SceneLimits& limits = {});

/** The answer of saveScene(). */
struct SceneSaveResult {
  enum class Status { Saved, CannotWrite };

  Status status = Status::CannotWrite;
  /** "file: reason"; empty after Saved. */
  std::string error;
  /** The number of the system's error; 0 where the reason is another one. */
  int systemError = 0;
};

/**
 * Writes a scene, as .glb if the name ends so and else as .gltf. The file stands alone: buffers
 * and pictures are in it. It is written whole or not at all; a failure leaves what stood there.
 */
KUHOST_EXPORT SceneSaveResult saveScene(const Scene& scene, const std::string& path);

}  // namespace kuStandalone
