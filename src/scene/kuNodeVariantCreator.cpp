#include "scene/kuNodeVariantCreator.h"

#include "manager/kuVariants.h"
#include "scene/kuNodeStates.h"

kuNodeVariantCreator::kuNodeVariantCreator() : kuVariantCreator("kuNodeVariantCreator") {}

osg::GraphOp* kuNodeVariantCreator::create() { return new kuNodeVariantCreator; }

// Nobody is told of the variants that the walk made.
bool kuNodeVariantCreator::traverse(osg::NodePtr node) {
  osg::GraphOp::traverse(node);
  return true;
}

osg::Action::ResultE kuNodeVariantCreator::traverseEnter(const osg::NodePtr& node) {
  if (kuNodeStates::isSwitchWithChildren(node)) kuVariants::createNodeVariant(node, false);
  return osg::Action::Continue;
}
