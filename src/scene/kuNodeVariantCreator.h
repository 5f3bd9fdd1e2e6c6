#pragma once

#include "scene/kuVariantCreator.h"

/**
 * Makes a node variant for every switch that has children, switches below switches included. Nobody
 * is told.
 */
class KUVARIANTS_EXPORT kuNodeVariantCreator : public kuVariantCreator {
 public:
  kuNodeVariantCreator();

  osg::GraphOp* create() override;
  bool traverse(osg::NodePtr node) override;

 private:
  osg::Action::ResultE traverseEnter(const osg::NodePtr& node) override;
};
