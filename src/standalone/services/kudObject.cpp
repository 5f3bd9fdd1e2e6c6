#include "host/services/kudObject.h"

#include "host/osg/Switch.h"
#include "host/services/kudCameraBaseNode.h"
#include "host/services/kudCameraTrackNode.h"
#include "host/services/kudSwitchNode.h"
#include "standalone/services/Addressed.h"

using kuStandalone::SceneNode;

namespace {

/** The class that a living object has here; null if nothing lives under that identifier. */
const QMetaObject* classOf(std::uint32_t id) {
  const SceneNode* node = SceneNode::byId(id);
  if (!node && kuStandalone::addressedViewpoint(id)) return &kudCameraBaseNode::staticMetaObject;
  if (!node && kuStandalone::addressedTrack(id)) return &kudCameraTrackNode::staticMetaObject;
  if (!node) return nullptr;
  const bool isSwitch = osg::SwitchPtr::dcast(node->core()) != osg::NullFC;
  return isSwitch ? &kudSwitchNode::staticMetaObject : &kudNode::staticMetaObject;
}

}  // namespace

kudObject::~kudObject() = default;

bool kudObject::isNull() const { return classOf(_id) == nullptr; }

bool kudObject::isTypeOf(const QMetaObject* type) const {
  const QMetaObject* own = classOf(_id);
  return own && type && own->inherits(type);
}
