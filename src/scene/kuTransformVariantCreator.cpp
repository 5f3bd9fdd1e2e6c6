#include "scene/kuTransformVariantCreator.h"

#include "host/kernel/kuController.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"

kuTransformVariantCreator::kuTransformVariantCreator()
    : kuVariantCreator("kuTransformVariantCreator") {}

osg::GraphOp* kuTransformVariantCreator::create() { return new kuTransformVariantCreator; }

bool kuTransformVariantCreator::traverse(osg::NodePtr node) {
  osg::GraphOp::traverse(node);
  kuController::call("transformVariantChanged", 0);  // the mode is 0, where the lights have 1
  return true;
}

osg::Action::ResultE kuTransformVariantCreator::traverseEnter(const osg::NodePtr& node) {
  if (node && kuNodeUtils::hasTransformVariants(node)) {
    kuVariants::createTransformVariant(node, false);
  }
  return osg::Action::Continue;
}
