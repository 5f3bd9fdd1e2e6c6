#include "scene/kuOverlayVariantCreator.h"

#include "manager/kuVariants.h"
#include "scene/kuNodeStates.h"

kuOverlayVariantCreator::kuOverlayVariantCreator() : kuVariantCreator("kuOverlayVariantCreator") {}

osg::GraphOp* kuOverlayVariantCreator::create() { return new kuOverlayVariantCreator; }

// Nobody is told of the variants that the walk made.
bool kuOverlayVariantCreator::traverse(osg::NodePtr node) {
  osg::GraphOp::traverse(node);
  return true;
}

osg::Action::ResultE kuOverlayVariantCreator::traverseEnter(const osg::NodePtr& node) {
  if (kuNodeStates::isSwitchWithChildren(node)) kuVariants::createOverlayVariant(node, false);
  return osg::Action::Continue;
}
