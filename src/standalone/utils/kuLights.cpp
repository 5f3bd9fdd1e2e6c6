#include "host/utils/kuLights.h"

#include "host/osg/EditCP.h"
#include "host/osg/UberLight.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::LightCore;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::SceneTree;

namespace {

osg::UberLightPtr lightOf(const osg::NodePtr& node) {
  return node ? osg::UberLightPtr::dcast(node->getCore()) : osg::UberLightPtr();
}

}  // namespace

bool kuLights::isLight(const osg::NodePtr& node) { return lightOf(node) != osg::NullFC; }

bool kuLights::getOn(const osg::NodePtr& node) {
  const osg::UberLightPtr light = lightOf(node);
  return light && LightCore::of(light).on;
}

void kuLights::setOn(const osg::NodePtr& node, bool on) {
  const osg::UberLightPtr light = lightOf(node);
  if (!light) return;
  const osg::EditCP edit(light, LightCore::OnFieldMask);
  LightCore::of(light).setOn(on);
}

void kuLights::toggle(const osg::NodePtr& node) { setOn(node, !getOn(node)); }

void kuLights::getLights(std::vector<osg::NodePtr>& lights) {
  SceneTree& scene = Scene::the().nodes;
  for (SceneNode* light : scene.lights.find(scene.root))
    lights.emplace_back(light);
}
