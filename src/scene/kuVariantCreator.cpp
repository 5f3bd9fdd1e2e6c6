#include "scene/kuVariantCreator.h"

void kuVariantCreator::setParams(std::string) {}

std::string kuVariantCreator::usage() { return std::string(); }

osg::Action::ResultE kuVariantCreator::traverseLeave(const osg::NodePtr&, osg::Action::ResultE) {
  return osg::Action::Continue;
}
