#include "SceneState.h"

osg::MaterialPtr materialOf(const osg::NodeCorePtr& core) {
  if (const osg::MaterialGroupPtr group = osg::MaterialGroupPtr::dcast(core)) {
    return group->getMaterial();
  }
  const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(core);
  return geometry ? geometry->getMaterial() : osg::MaterialPtr();
}

std::vector<std::string> stateNames(const osg::Material& material) {
  std::vector<std::string> names;
  material.getStateNames(names);
  return names;
}

std::optional<std::string> presentState(const osg::Material& material) {
  std::string name;
  if (!material.getCurrentStateName(name)) return std::nullopt;
  return name;
}
