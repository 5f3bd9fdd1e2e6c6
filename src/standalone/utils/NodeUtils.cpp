#include "host/utils/NodeUtils.h"

#include "host/osg/EditCP.h"
#include "standalone/scene/SceneNode.h"

// Views of this host compare the revision of the scene, so there is nobody else to notify.
void NodeUtils::setName(const osg::NodePtr& node, const char* name, bool) {
  if (!node || !name) return;
  const osg::EditCP edit(node);
  kuStandalone::SceneNode::of(node).setName(name);
}
