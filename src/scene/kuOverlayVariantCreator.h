#pragma once

#include "scene/kuVariantCreator.h"

/**
 * Makes an overlay variant for every switch that has children, switches below switches included.
 * Nobody is told. Whether the tree is that of the sceneplates is for the caller to see to.
 */
class KUVARIANTS_EXPORT kuOverlayVariantCreator : public kuVariantCreator {
 public:
  kuOverlayVariantCreator();

  osg::GraphOp* create() override;
  bool traverse(osg::NodePtr node) override;

 private:
  osg::Action::ResultE traverseEnter(const osg::NodePtr& node) override;
};
