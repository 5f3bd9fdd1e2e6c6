#include "scene/kuSubTree.h"

#include "host/osg/EditCP.h"
#include "host/osg/Geometry.h"

namespace kuSubTree {

void setActive(const osg::NodePtr& node, bool active) {
  const osg::EditCP edit(node, osg::Node::TravMaskFieldMask);
  node->setActive(active);
}

void enable(const osg::NodePtr& node) {
  setActive(node, true);
  const unsigned count = node->getNChildren();
  for (unsigned i = 0; i < count; ++i)
    enable(node->getChild(i));
}

void disableGeometries(const osg::NodePtr& node) {
  if (osg::GeometryPtr::dcast(node->getCore())) setActive(node, false);
  const unsigned count = node->getNChildren();
  for (unsigned i = 0; i < count; ++i)
    disableGeometries(node->getChild(i));
}

}  // namespace kuSubTree
