#include "host/utils/kuLights.h"

#include "host/osg/EditCP.h"
#include "host/osg/UberLight.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::LightCore;
using kuStandalone::Scene;
using kuStandalone::SceneNode;

namespace {

osg::UberLightPtr lightOf(const osg::NodePtr& node) {
  return node ? osg::UberLightPtr::dcast(node->getCore()) : osg::UberLightPtr();
}

void appendLights(const osg::NodePtr& node, std::vector<osg::NodePtr>& lights) {
  if (kuLights::isLight(node)) lights.push_back(node);
  for (const osg::NodePtr& child : SceneNode::of(node).children())
    appendLights(child, lights);
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
  appendLights(Scene::the().nodes.root, lights);
}
