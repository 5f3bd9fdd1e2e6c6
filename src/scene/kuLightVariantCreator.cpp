#include "scene/kuLightVariantCreator.h"

#include "host/kernel/kuController.h"
#include "host/osg/UberLight.h"
#include "manager/kuVariants.h"

kuLightVariantCreator::kuLightVariantCreator() : kuVariantCreator("kuLightVariantCreator") {}

osg::GraphOp* kuLightVariantCreator::create() { return new kuLightVariantCreator; }

bool kuLightVariantCreator::traverse(osg::NodePtr node) {
  osg::GraphOp::traverse(node);
  kuController::call("lightVariantChanged", 1);
  return true;
}

// By the class of the core, whatever kuLights::isLight says.
osg::Action::ResultE kuLightVariantCreator::traverseEnter(const osg::NodePtr& node) {
  if (node && osg::UberLightPtr::dcast(node->getCore())) {
    kuVariants::createLightVariant(node, false);
  }
  return osg::Action::Continue;
}
