#pragma once

#include "scene/kuVariantCreator.h"

/**
 * Makes a transform variant for every node with named transform states, and announces the change of
 * the kind once for the whole walk, be there any or none.
 */
class KUVARIANTS_EXPORT kuTransformVariantCreator : public kuVariantCreator {
 public:
  kuTransformVariantCreator();

  osg::GraphOp* create() override;
  bool traverse(osg::NodePtr node) override;

 private:
  osg::Action::ResultE traverseEnter(const osg::NodePtr& node) override;
};
