#include "scene/kuVariantMessages.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "host/kernel/kuController.h"
#include "host/osg/Switch.h"
#include "host/utils/kuNodeUtils.h"
#include "scene/kuNodePath.h"
#include "scene/kuNodeStates.h"

namespace {

struct ShownNodes {
  std::vector<std::string> visible;
  std::vector<std::string> invisible;
};

ShownNodes shownChildren(const osg::Switch& core, const osg::Node& node) {
  ShownNodes shown;
  const int choice = kuNodeStates::shownChild(core, node);
  const unsigned count = node.getNChildren();
  // A choice below 0 shows nothing here, also the one that shows all children.
  if (choice >= 0 && unsigned(choice) >= count) {
    // Both kinds that tell of their nodes print this very text.
    std::fprintf(stderr, "kuNodeVariant::callVariantsNodesChanged: choice (%d) out of range!\n",
                 choice);
    return shown;
  }
  shown.visible.reserve(1);
  shown.invisible.reserve(count);
  for (unsigned i = 0; i < count; ++i) {
    auto& names = int(i) == choice ? shown.visible : shown.invisible;
    names.emplace_back(kuNodeUtils::getName(node.getChild(i)));
  }
  return shown;
}

ShownNodes shownSelf(const osg::NodePtr& node) {
  ShownNodes shown;
  auto& names = node->getActive() ? shown.visible : shown.invisible;
  names.emplace_back(kuNodeUtils::getName(node));
  return shown;
}

}  // namespace

void kuSendNodesChanged(const char* name, const osg::NodePtr& node, const osg::NodePtr& pathRoot,
                        kuMessage& message) {
  const osg::SwitchPtr core = osg::SwitchPtr::dcast(node->getCore());
  ShownNodes shown = core ? shownChildren(*core, *node) : shownSelf(node);
  std::string parent = kuNodeUtils::getName(core ? node : node->getParent());
  message.set("visible", std::move(shown.visible), true);
  message.set("invisible", std::move(shown.invisible), true);
  message.set("parent", std::move(parent), true);
  message.set("path", kuNodePath(node, pathRoot), true);
  kuController::call(name, message, 1);
}

void kuSendVariantSelected(const char* name, void* variant) {
  kuMessage message;
  message.set("variant", variant, true);
  kuController::call(name, message, 1);
}
