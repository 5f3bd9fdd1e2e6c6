#pragma once

#include "scene/kuVariantCreator.h"

/**
 * Makes a light variant for every node whose core is a light, and announces the change of the kind
 * once for the whole walk, be there lights or none.
 */
class KUVARIANTS_EXPORT kuLightVariantCreator : public kuVariantCreator {
 public:
  kuLightVariantCreator();

  osg::GraphOp* create() override;
  bool traverse(osg::NodePtr node) override;

 private:
  osg::Action::ResultE traverseEnter(const osg::NodePtr& node) override;
};
