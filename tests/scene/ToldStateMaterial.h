#pragma once

#include <string>
#include <vector>

#include "host/osg/Material.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/ScenePool.h"

/**
 * A material with states of its own that tells any index as its present one, also one that has gone
 * stale. -1000 stands for a material that tells no present state at all.
 */
class ToldStateMaterial final : public osg::Material {
 public:
  static constexpr int TellsNone = -1000;

  /** A new one in the pool of the scene. */
  static osg::FCPtr<ToldStateMaterial> create(const std::string& name,
                                              std::vector<std::string> states, int told) {
    osg::FCPtr<ToldStateMaterial> material(new ToldStateMaterial(std::move(states), told));
    material->hostFields().name = name;
    kuStandalone::ScenePool::of(kuStandalone::Scene::the().pool).enter(material);
    return material;
  }

  bool isMultiState() const override { return true; }
  void getStateNames(std::vector<std::string>& names) const override {
    names.insert(names.end(), _states.begin(), _states.end());
  }
  bool setCurrentState(unsigned index) override {
    set.push_back(static_cast<int>(index));
    return true;
  }
  bool getCurrentState(int& index) const override {
    ++asked;
    index = told;
    return told != TellsNone;
  }
  bool getCurrentStateName(std::string&) const override { return false; }
  bool hasSubMaterial(const osg::MaterialPtr&, bool) const override { return false; }

  int told;
  /** How often it was asked for its present state. */
  mutable int asked = 0;
  /** The indices that it was set to, in order. */
  std::vector<int> set;

 private:
  ToldStateMaterial(std::vector<std::string> states, int firstTold)
      : osg::Material(osg::Material::_type), told(firstTold), _states(std::move(states)) {}

  std::vector<std::string> _states;
};
