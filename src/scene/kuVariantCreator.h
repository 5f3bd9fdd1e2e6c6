#pragma once

#include "host/osg/GraphOp.h"
#include "model/kuVariantsExport.h"

/**
 * What the operations that make variants for the nodes of a tree have in common: they take no
 * parameters, pass over what does not fit, and always go on below a node.
 *
 * The variants belong to the manager, which also decides what happens where a name has one already.
 */
class KUVARIANTS_EXPORT kuVariantCreator : public osg::GraphOp {
 public:
  using osg::GraphOp::GraphOp;

  /** Ignores the text. */
  void setParams(std::string params) override;
  /** Empty. */
  std::string usage() override;

  /** Makes the variants for the node and all below it; it stands before the bare walk of
   * osg::GraphOp. Always true. */
  virtual bool traverse(osg::NodePtr node) = 0;

 private:
  friend struct kuVariantsTestAccess;

  osg::Action::ResultE traverseEnter(const osg::NodePtr& node) override = 0;
  osg::Action::ResultE traverseLeave(const osg::NodePtr& node,
                                     osg::Action::ResultE result) override;
};
