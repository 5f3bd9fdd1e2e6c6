#include "host/utils/kuNodePtr.h"

#include "standalone/scene/SceneNode.h"

kuNodePtr::~kuNodePtr() = default;

std::uint32_t kuNodePtr::getID() const {
  return isValid() ? kuStandalone::SceneNode::of(_node).id() : 0;
}
