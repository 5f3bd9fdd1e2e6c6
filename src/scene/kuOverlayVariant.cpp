#include "scene/kuOverlayVariant.h"

#include <cstdint>
#include <vector>

#include "host/kernel/kuMessage.h"
#include "host/services/kuKernelServiceFactory.h"
#include "host/services/kuSceneplateService.h"
#include "host/services/kudSwitchNode.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuSceneplateUtils.h"
#include "model/kuKeyword.h"
#include "scene/kuNodePath.h"
#include "scene/kuNodeStates.h"
#include "scene/kuOptionRebuild.h"
#include "scene/kuVariantMessages.h"

namespace {

using kuNodeStates::AllChildren;
using kuNodeStates::NoChild;

/** The first node of that name in the scene graph, or null. */
osg::NodePtr sceneplateOf(const QString& name) {
  std::vector<osg::NodePtr> nodes;
  kuSceneplateUtils::findNodes(name.toStdString(), nodes);
  return nodes.empty() ? osg::NodePtr() : nodes.front();
}

// The steps. All numbers are read as signed ones here, unlike those of a node variant.

int nextChild(std::int64_t choice, std::int64_t count) {
  const std::int64_t next = choice + 1;
  if (next < 0) return 0;
  return int(next < count ? next : count - 1);
}

int nextChildInLoop(std::int64_t choice, std::int64_t count) {
  return choice >= -1 && choice + 1 < count ? int(choice + 1) : 0;
}

int previousChild(std::int64_t choice, std::int64_t count) {
  if (choice < 1) return 0;
  return int(choice - 1 < count ? choice - 1 : count - 1);
}

int previousChildInLoop(std::int64_t choice, std::int64_t count) {
  return int(choice >= 1 && choice - 1 < count ? choice - 1 : count - 1);
}

/** Index of the first child of that name; @p otherwise if there is none. */
int childNamed(const QString& name, const kudSwitchNode& node, int otherwise) {
  const unsigned count = node.getChildCount();
  for (unsigned i = 0; i < count; ++i) {
    if (node.getChild(i).getName() == name) return int(i);
  }
  return otherwise;
}

int newChoice(const QString& state, const kudSwitchNode& node) {
  const unsigned count = node.getChildCount();
  const int choice = node.getChoice();
  switch (kuKeywordOf(state)) {
    case kuKeyword::None:
      return NoChild;
    case kuKeyword::All:
      return AllChildren;
    case kuKeyword::Next:
      return nextChild(choice, count);
    case kuKeyword::NextLoop:
      return nextChildInLoop(choice, count);
    case kuKeyword::Previous:
      return previousChild(choice, count);
    case kuKeyword::PreviousLoop:
      return previousChildInLoop(choice, count);
    default:
      return childNamed(state, node, choice);
  }
}

void showChild(const kudSwitchNode& node, unsigned index) {
  kudNode child = node.getChild(index);
  if (!child.isNull()) child.setVisibilityFlag(true);
}

/** The child that is chosen shows in its own right; one that was chosen before keeps its flag. */
void applyChoice(kudSwitchNode& node, int choice) {
  if (choice == AllChildren) {
    // What is asked for is the child of the choice's number, not of the pass: there is none, and
    // no flag of a child changes.
    for (unsigned i = 0; i < node.getChildCount(); ++i)
      showChild(node, unsigned(choice));
  } else if (choice != NoChild) {
    showChild(node, unsigned(choice));
  }
  node.setChoice(choice);
}

/** Does what a keyword of visibility says, on any node; answers false for any other state. */
bool applyVisibility(kudNode& node, const QString& state) {
  switch (kuKeywordOf(state)) {
    case kuKeyword::Enable:
      node.setVisibilityFlag(true);
      return true;
    case kuKeyword::Disable:
      node.setVisibilityFlag(false);
      return true;
    case kuKeyword::Toggle:
      node.setVisibilityFlag(!node.getVisibilityFlag());
      return true;
    default:
      return false;
  }
}

}  // namespace

kuOverlayVariant::kuOverlayVariant(const osg::NodePtr& source)
    : overlay(QString::fromUtf8(kuNodeUtils::getName(source))) {
  setName(overlay);
  kuNodeStates::fill(*this, source);
}

void kuOverlayVariant::updateVariants() {
  kuOptionRebuild rebuilt(*this);
  const osg::NodePtr first = sceneplateOf(overlay);
  if (!first) return;
  kuNodeStates::rebuild(*this, rebuilt, first);
  rebuilt.restoreDefault();
}

void kuOverlayVariant::onSelect(const QString& state) {
  doSwitchVariant(state);
  kuSendVariantSelected("overlayVariantSelected", static_cast<kuVariant*>(this));
}

void kuOverlayVariant::doSwitchVariant(const QString& state) {
  auto* service = kuKernelServiceFactory::the().getService<kuSceneplateService>();
  if (!service) return;
  const QList<kudNode> nodes = service->findNodes(overlay);
  if (nodes.isEmpty()) return;
  kudNode first = nodes.front();
  if (applyVisibility(first, state)) return;
  if (!first.isTypeOf(&kudSwitchNode::staticMetaObject)) return;
  kudSwitchNode switchNode(0);
  switchNode.assign(first);
  applyChoice(switchNode, newChoice(state, switchNode));
}

QString kuOverlayVariant::onCurrent() const { return kuNodeStates::current(sceneplateOf(overlay)); }

void kuOverlayVariant::callVariantsNodesChanged(const osg::NodePtr& changed, kuMessage& message) {
  kuSendNodesChanged("variantsOverlaysChanged", changed, kuSceneplateUtils::getSceneplateRoot(),
                     message);
}

QString kuOverlayVariant::getNodePath(const osg::NodePtr& of) {
  return QString::fromStdString(kuNodePath(of, kuSceneplateUtils::getSceneplateRoot()));
}
