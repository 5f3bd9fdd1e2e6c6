#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/osg/MaterialPool.h"
#include "host/osg/SwitchMaterial.h"
#include "standalone/scene/SceneTree.h"
#include "standalone/scene/Transform.h"

namespace kuStandalone {

/** A camera of the scene; it stands where its node stands. */
struct Camera {
  std::string name;
  /** Identifier of the track that the camera's viewpoints stand in, from the same numbers as the
   * node identifiers; 0 until the scene has the camera. */
  std::uint32_t track = 0;
  /** The node that bears it. */
  osg::NodePtr node;
  bool perspective = true;
  /** Vertical field of view in radians (perspective). */
  double yfov = 0.8;
  /** Half width and half height of the view in scene units (orthographic). */
  double xmag = 1, ymag = 1;
  /** Width by height; 0 takes the picture's. */
  double aspectRatio = 0;
  /** Near and far distance in scene units; a far of 0 is infinite. */
  double znear = 0.01, zfar = 0;
  /** Index of the camera in the file that the scene came from, or -1. */
  int source = -1;
};

/** A named place to look from. Every camera has one of its own name, the camera as loaded. */
struct Viewpoint {
  std::string name;
  /** Identifier for the camera service, from the same numbers as the node identifiers. */
  std::uint32_t id = 0;
  /** Index of the camera in Scene::cameras that looks. */
  std::size_t camera = 0;
  /** The local transform that the camera's node takes. */
  Transform pose;
  /** Whether the file names it, beside the viewpoints that come with the cameras. */
  bool named = false;
};

/** One animated property of one node. */
struct AnimationChannel {
  enum class Property { Translation, Rotation, Scale };
  enum class Interpolation { Linear, Step, CubicSpline };

  osg::NodePtr node;
  Property property = Property::Translation;
  Interpolation interpolation = Interpolation::Linear;
  /** Key times in seconds, rising. */
  std::vector<float> times;
  /** The values at the times: 3 or 4 numbers each; with CubicSpline in-tangent, value and
   * out-tangent for each time. */
  std::vector<float> values;
};

/** An animation of the scene. */
struct AnimationClip {
  std::string name;
  std::vector<AnimationChannel> channels;
  /** Index of the animation in the file that the scene came from, or -1. */
  int source = -1;
};

/** A variant that the file itself defines (KHR_materials_variants). */
struct FileVariant {
  std::string name;
  /** For each switch material that follows the file's variants the index of its sub-material. */
  std::vector<std::pair<osg::SwitchMaterialPtr, unsigned>> choices;
};

/** What a scene keeps of the file that it came from, for whoever writes it again. */
class KUHOST_EXPORT SceneSource {
 public:
  virtual ~SceneSource();

  /** The files that the scene's own file names: full paths in UTF-8, a file as often as named. */
  std::vector<std::string> files;
};

/**
 * A scene: the tree of nodes, the tree of sceneplates, materials, cameras and animations. A
 * loader builds one on its own and makes it the present one when it is whole.
 */
class KUHOST_EXPORT Scene {
 public:
  /** An empty scene: a root named "Root", no sceneplates. */
  Scene();
  ~Scene();
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  /** The present scene; an empty one until another is installed. */
  static Scene& the();

  /** Makes @p scene, which must not be null, the present one and destroys the former. */
  static void install(std::unique_ptr<Scene> scene);

  /** The viewpoint of that name, or null; the first wins. */
  Viewpoint* findViewpoint(const std::string& name);
  /** The viewpoint of that identifier, or null. */
  Viewpoint* findViewpoint(std::uint32_t id);
  /** The camera that pictures are taken with: that of the active viewpoint, or the first one where
   * none is active. Null where there is none, or it has lost its node. */
  const Camera* activeCamera() const;
  /** Whether the viewpoint bears the name of the active one. */
  bool isActive(const Viewpoint& viewpoint) const;
  /** The camera whose track has that identifier, or null. */
  const Camera* findTrack(std::uint32_t id) const;
  /** Appends a camera and gives its track an identifier. */
  Camera& addCamera(Camera camera);

  /** Appends a viewpoint and gives it an identifier. */
  Viewpoint& addViewpoint(Viewpoint viewpoint);

  SceneTree nodes;
  /** Its root is null while the scene has no sceneplates. */
  SceneTree sceneplates;
  osg::MaterialPoolPtr pool;
  std::vector<Camera> cameras;
  std::vector<Viewpoint> viewpoints;
  /** Name of the viewpoint looked through; empty for none. */
  std::string activeViewpoint;
  std::vector<AnimationClip> animations;
  /** Named groups of clips: block name to clip names. */
  std::map<std::string, std::vector<std::string>> animationBlocks;
  /** The variants that the file defines, in its order. */
  std::vector<FileVariant> fileVariants;
  /** The file's own data, or null for a scene made by a program. */
  std::shared_ptr<SceneSource> source;
};

}  // namespace kuStandalone
