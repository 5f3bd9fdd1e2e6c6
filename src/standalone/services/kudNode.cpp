#include "host/services/kudNode.h"

#include "host/osg/EditCP.h"
#include "standalone/services/Addressed.h"

using kuStandalone::SceneNode;

kudNode::~kudNode() = default;

QString kudNode::getName() const {
  if (const kuStandalone::Viewpoint* viewpoint = kuStandalone::addressedViewpoint(getId())) {
    return QString::fromStdString(viewpoint->name);
  }
  if (const kuStandalone::Camera* camera = kuStandalone::addressedTrack(getId())) {
    return QString::fromStdString(camera->name);
  }
  const SceneNode* node = SceneNode::byId(getId());
  return node ? QString::fromStdString(node->name()) : QString();
}

bool kudNode::getVisibilityFlag() const {
  const SceneNode* node = kuStandalone::addressedNode(getId());
  return node && node->active();
}

void kudNode::setVisibilityFlag(bool visible) {
  SceneNode* node = kuStandalone::addressedNode(getId());
  if (!node) return;
  const osg::EditCP edit(osg::NodePtr(node), osg::Node::TravMaskFieldMask);
  node->setActive(visible);
}

unsigned kudNode::getChildCount() const {
  const SceneNode* node = kuStandalone::addressedNode(getId());
  return node ? node->getNChildren() : 0;
}

kudNode kudNode::getChild(unsigned index) const {
  const SceneNode* node = kuStandalone::addressedNode(getId());
  const osg::NodePtr child = node ? node->getChild(index) : osg::NodePtr();
  return kudNode(child ? SceneNode::of(child).id() : 0);
}
