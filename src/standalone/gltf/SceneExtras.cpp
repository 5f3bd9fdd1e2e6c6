#include "standalone/gltf/SceneExtras.h"

#include <unordered_map>
#include <unordered_set>

#include "standalone/gltf/GltfValues.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {
namespace {

const std::string prefix = "scene.extras.";

/** Index of the first camera of each name. */
using Cameras = std::unordered_map<std::string, std::size_t>;

Cameras camerasByName(const Scene& scene) {
  Cameras cameras;
  for (std::size_t index = 0; index < scene.cameras.size(); ++index)
    cameras.emplace(scene.cameras[index].name, index);
  return cameras;
}

/** The camera's own transform with what the entry says. */
Transform poseOf(const QJsonObject& json, const Camera& camera, const std::string& place) {
  const Transform said = transformOf(json, place + ".");
  Transform pose = SceneNode::of(camera.node).transform();
  if (json.contains("matrix") || pose.matrix) return said;
  if (json.contains("translation")) pose.translation = said.translation;
  if (json.contains("rotation")) pose.rotation = said.rotation;
  if (json.contains("scale")) pose.scale = said.scale;
  return pose;
}

/** An entry with a camera's own name moves that camera's viewpoint, which is at the same place. */
void enterViewpoint(Scene& scene, Viewpoint viewpoint, const Cameras& cameras) {
  const auto own = cameras.find(viewpoint.name);
  if (own == cameras.end()) {
    scene.addViewpoint(std::move(viewpoint));
    return;
  }
  viewpoint.id = scene.viewpoints[own->second].id;
  scene.viewpoints[own->second] = std::move(viewpoint);
}

void readViewpoints(const QJsonArray& list, Scene& scene, GltfWarnings& warnings) {
  const Cameras cameras = camerasByName(scene);
  int index = 0;
  for (const QJsonValue& value : list) {
    const std::string place = prefix + "viewpoints[" + std::to_string(index++) + "]";
    const QJsonObject json = objectOf(value, place);
    const std::string name = textOf(json["camera"], place + ".camera");
    const auto camera = cameras.find(name);
    if (camera == cameras.end()) {
      warnings.add(place + ".camera", "there is no camera '" + name + "'");
      continue;
    }
    Viewpoint viewpoint;
    viewpoint.name = textOf(json["name"], place + ".name");
    viewpoint.camera = camera->second;
    viewpoint.pose = poseOf(json, scene.cameras[camera->second], place);
    viewpoint.named = true;
    enterViewpoint(scene, std::move(viewpoint), cameras);
  }
}

void readActiveCamera(const QJsonValue& value, Scene& scene, GltfWarnings& warnings) {
  const std::string name = textOf(value, prefix + "activeCamera");
  if (name.empty()) return;
  if (scene.findViewpoint(name)) {
    scene.activeViewpoint = name;
  } else {
    warnings.add(prefix + "activeCamera", "there is no viewpoint '" + name + "'");
  }
}

void readBlocks(const QJsonObject& blocks, Scene& scene, GltfWarnings& warnings) {
  std::unordered_set<std::string> known;
  for (const AnimationClip& clip : scene.animations)
    known.insert(clip.name);
  for (auto block = blocks.begin(); block != blocks.end(); ++block) {
    const std::string place = prefix + "animationBlocks." + block.key().toStdString();
    std::vector<std::string>& clips = scene.animationBlocks[block.key().toStdString()];
    for (const QJsonValue& value : arrayOf(*block, place)) {
      clips.push_back(textOf(value, place + "[" + std::to_string(clips.size()) + "]"));
      if (!known.count(clips.back())) {
        warnings.add(place, "there is no animation '" + clips.back() + "'");
      }
    }
  }
}

}  // namespace

void readSceneExtras(const QJsonObject& extras, Scene& scene, GltfWarnings& warnings) {
  readViewpoints(arrayOf(extras["viewpoints"], prefix + "viewpoints"), scene, warnings);
  readActiveCamera(extras["activeCamera"], scene, warnings);
  readBlocks(objectOf(extras["animationBlocks"], prefix + "animationBlocks"), scene, warnings);
}

}  // namespace kuStandalone
