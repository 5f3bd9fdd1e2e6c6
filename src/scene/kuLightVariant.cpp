#include "scene/kuLightVariant.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/kernel/kuController.h"
#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuLights.h"
#include "host/utils/kuNodeUtils.h"
#include "model/kuKeyword.h"
#include "model/kuLivingVariant.h"
#include "scene/kuNodePath.h"
#include "scene/kuVariantMessages.h"

namespace {

std::vector<kuNodePtr> nodesOf(const QString& name) {
  return kuScenegraph::findNodes(name.toUtf8().constData());
}

/** The first node that is a light, or null. */
osg::NodePtr firstLight(const std::vector<kuNodePtr>& nodes) {
  const auto found = std::find_if(nodes.begin(), nodes.end(), [](const kuNodePtr& node) {
    return node.isValid() && kuLights::isLight(node);
  });
  return found == nodes.end() ? osg::NodePtr() : found->getNode();
}

/**
 * Leaves one node of each group of clones, so that a toggle does not reach one light twice. The
 * scan from each place takes in the node at that place: a node is no clone of itself.
 */
void removeClones(std::vector<kuNodePtr>& nodes) {
  for (std::size_t place = 0; place < nodes.size(); ++place) {
    const kuNodePtr original = nodes[place];
    const auto from = nodes.begin() + static_cast<std::ptrdiff_t>(place);
    nodes.erase(std::remove_if(
                    from, nodes.end(),
                    [&](const kuNodePtr& node) { return kuNodeUtils::isCloneOf(node, original); }),
                nodes.end());
  }
}

/** Whether the keyword is one that lights obey; the light is then switched. */
bool switchLight(const osg::NodePtr& light, kuKeyword keyword) {
  switch (keyword) {
    case kuKeyword::Enable:
      kuLights::setOn(light, true);
      return true;
    case kuKeyword::Disable:
      kuLights::setOn(light, false);
      return true;
    case kuKeyword::Toggle:
      kuLights::toggle(light);
      return true;
    default:
      return false;
  }
}

QString stateOf(const osg::NodePtr& light) {
  return kuKeywordText(kuLights::getOn(light) ? kuKeyword::Enable : kuKeyword::Disable);
}

}  // namespace

kuLightVariant::kuLightVariant(const osg::NodePtr& source)
    : node(QString::fromUtf8(kuNodeUtils::getName(source))) {
  setName(node);
  if (kuLights::isLight(source)) addOptions(source);
}

void kuLightVariant::addOptions(const osg::NodePtr& light) {
  add(kuKeywordText(kuKeyword::Enable), QString());
  add(kuKeywordText(kuKeyword::Disable), QString());
  add(true, kuKeywordText(kuKeyword::Toggle), QString());
  setDefault(stateOf(light));
}

void kuLightVariant::updateVariants() {
  clear();
  if (const osg::NodePtr light = firstLight(nodesOf(node))) addOptions(light);
}

void kuLightVariant::onSelect(const QString& state) {
  // A receiver may rename this variant in the midst of it, or delete it: its last name then stays.
  void* const self = static_cast<kuVariant*>(this);
  const kuLivingVariant living(*this);
  std::string variantName = getName().toStdString();
  const kuKeyword keyword = kuKeywordOf(state);
  std::vector<kuNodePtr> nodes = nodesOf(node);
  removeClones(nodes);
  for (const kuNodePtr& found : nodes) {
    if (!kuLights::isLight(found) || !switchLight(found, keyword)) continue;
    kuMessage message;
    message.set("variantName", variantName, true);
    callVariantsLightChanged(found, message);
    if (living.get()) variantName = living.get()->getName().toStdString();
  }
  kuSendVariantSelected("lightVariantSelected", self);
}

QString kuLightVariant::onCurrent() const {
  const osg::NodePtr light = firstLight(nodesOf(node));
  return light ? stateOf(light) : QString();
}

void kuLightVariant::callVariantsLightChanged(const osg::NodePtr& changed, kuMessage& message) {
  if (!kuLights::isLight(changed)) return;
  using Names = std::vector<std::string>;
  const Names own{kuNodeUtils::getName(changed)};
  const bool on = kuLights::getOn(changed);
  message.set("enabled", on ? own : Names(), true);
  message.set("disabled", on ? Names() : own, true);
  // A light is told without its place: receivers find these two empty.
  message.set("parent", std::string(), true);
  message.set("path", std::string(), true);
  kuController::call("variantsLightsChanged", message, 1);
}

QString kuLightVariant::getNodePath(const osg::NodePtr& of) {
  return QString::fromStdString(kuNodePath(of, kuScenegraph::getRoot()));
}
