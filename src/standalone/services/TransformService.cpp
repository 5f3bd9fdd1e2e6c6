#include "standalone/services/TransformService.h"

#include "host/kernel/kuLog.h"
#include "host/osg/EditCP.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {
namespace {

constexpr osg::FieldMask StateFieldsMask =
    TransformSwitchCore::ChoiceFieldMask | TransformSwitchCore::SupposedFieldMask;

void switchTo(const SceneNode& node, int index) {
  const auto transform = osg::SwitchComponentTransformPtr::dcast(node.core());
  if (!transform) return;
  if (index < 0 || static_cast<unsigned>(index) >= transform->getCount()) {
    kuLog::warning("Node '%s' has no transform state %d", node.name().c_str(), index);
    return;
  }
  const osg::EditCP edit(transform, StateFieldsMask);
  transform->setChoice(static_cast<unsigned>(index));
  TransformSwitchCore::of(transform).setSupposed(index);
}

}  // namespace

void TransformService::switchTransformVariants(const QList<QRPC::NodeTrafoId>& states, int, int) {
  for (const QRPC::NodeTrafoId& state : states) {
    const SceneNode* node = SceneNode::byId(state.getNodeId());
    if (node) switchTo(*node, state.getTransformIndex());
  }
}

}  // namespace kuStandalone
