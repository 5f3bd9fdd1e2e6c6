#include "host/services/kudSwitchNode.h"

#include "host/osg/EditCP.h"
#include "host/osg/Switch.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::SceneNode;

namespace {

osg::SwitchPtr switchOf(std::uint32_t id) {
  const SceneNode* node = SceneNode::byId(id);
  return node ? osg::SwitchPtr::dcast(node->core()) : osg::SwitchPtr();
}

}  // namespace

kudSwitchNode::~kudSwitchNode() = default;

int kudSwitchNode::getChoice() const {
  const osg::SwitchPtr core = switchOf(getId());
  return core ? core->getChoice() : -1;
}

void kudSwitchNode::setChoice(int choice) {
  const osg::SwitchPtr core = switchOf(getId());
  if (!core) return;
  const osg::EditCP edit(core, osg::SwitchBase::ChoiceFieldMask);
  core->setChoice(choice);
}
