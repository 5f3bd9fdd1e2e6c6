#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "host/osg/MultiMaterial.h"

namespace kuStandalone {

class Scene;
class SceneNode;

/**
 * Which materials a scene's pool held at one moment, and how they and all that nodes bear stood:
 * names, parts, choices and presets. See SceneSnapshot.
 */
class MaterialSnapshot {
 public:
  explicit MaterialSnapshot(const Scene& scene);

  void restore(Scene& scene) const;

 private:
  struct State {
    osg::MaterialPtr material;
    std::string name;
    osg::MFMaterialPtr subMaterials;
    unsigned choice;
    /** Of a material with presets of its own. */
    int preset;
  };
  using Known = std::unordered_set<const osg::Material*>;

  void take(const osg::MaterialPtr& material, Known& known);
  void takeBelow(const SceneNode& node, Known& known);
  static void restore(const State& state);
  void restorePool(Scene& scene) const;

  osg::MFMaterialPtr _pool;
  std::vector<State> _states;
};

}  // namespace kuStandalone
