#include "standalone/gltf/SceneExtras.h"

#include <limits>
#include <unordered_map>
#include <unordered_set>

#include "standalone/gltf/GltfValues.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {
namespace {

const std::string prefix = "scene.extras.";

/** Where the cameras stand in the scene. */
struct Cameras {
  explicit Cameras(const Scene& scene) {
    for (std::size_t index = 0; index < scene.cameras.size(); ++index) {
      byName.emplace(scene.cameras[index].name, index);
      byNode.emplace(SceneNode::of(scene.cameras[index].node).source(), index);
    }
  }

  /** The first camera of each name. */
  std::unordered_map<std::string, std::size_t> byName;
  /** The camera of each node of the file. */
  std::unordered_map<std::int64_t, std::size_t> byNode;
};

template <class Map>
int placeIn(const Map& cameras, const typename Map::key_type& key) {
  const auto found = cameras.find(key);
  return found == cameras.end() ? -1 : int(found->second);
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

/** The place of a camera that is told by its name or its node; -1 if there is no such one. */
int cameraOf(const QJsonValue& value, const Cameras& cameras, const std::string& place) {
  if (!value.isDouble()) return placeIn(cameras.byName, textOf(value, place));
  constexpr int most = std::numeric_limits<int>::max();
  return placeIn(cameras.byNode, wholeNumber(value, 0, 0, most, place));
}

/** What a warning calls a camera that there is not. */
std::string calledIn(const QJsonValue& value) {
  return value.isDouble() ? "at node " + std::to_string(value.toInt())
                          : "'" + value.toString().toStdString() + "'";
}

/** An entry with a camera's own name moves that camera's viewpoint, which is at the same place. */
void enterViewpoint(Scene& scene, Viewpoint viewpoint, const Cameras& cameras) {
  std::size_t own = viewpoint.camera;
  if (scene.cameras[own].name != viewpoint.name) {
    const int other = placeIn(cameras.byName, viewpoint.name);
    if (other < 0) {
      scene.addViewpoint(std::move(viewpoint));
      return;
    }
    own = std::size_t(other);
  }
  viewpoint.id = scene.viewpoints[own].id;
  scene.viewpoints[own] = std::move(viewpoint);
}

void readViewpoints(const QJsonArray& list, Scene& scene, GltfWarnings& warnings) {
  const Cameras cameras(scene);
  int index = 0;
  for (const QJsonValue& value : list) {
    const std::string place = prefix + "viewpoints[" + std::to_string(index++) + "]";
    const QJsonObject json = objectOf(value, place);
    const int camera = cameraOf(json["camera"], cameras, place + ".camera");
    if (camera < 0) {
      warnings.add(place + ".camera", "there is no camera " + calledIn(json["camera"]));
      continue;
    }
    Viewpoint viewpoint;
    viewpoint.name = textOf(json["name"], place + ".name");
    viewpoint.camera = std::size_t(camera);
    viewpoint.pose = poseOf(json, scene.cameras[viewpoint.camera], place);
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
