#include "scene/kuNodeStates.h"

#include "host/utils/kuNodeUtils.h"
#include "model/kuKeyword.h"
#include "model/kuVariant.h"
#include "scene/kuOptionRebuild.h"

namespace {

using kuNodeStates::AllChildren;
using kuNodeStates::NoChild;

QString flagState(const osg::Node& node) {
  return kuKeywordText(node.getActive() ? kuKeyword::Enable : kuKeyword::Disable);
}

void fillSwitch(kuVariant& variant, const osg::Switch& core, const osg::Node& node) {
  variant.add(kuKeywordText(kuKeyword::All), QString());
  variant.add(kuKeywordText(kuKeyword::None), QString());
  kuAddStepKeywords(variant);
  const unsigned count = node.getNChildren();
  for (unsigned i = 0; i < count; ++i)
    variant.add(kuNodeStates::childName(node, i), QString());
  const int shown = kuNodeStates::shownChild(core, node);
  variant.setDefault(shown == NoChild ? kuKeywordText(kuKeyword::None)
                                      : kuNodeStates::childName(node, unsigned(shown)));
}

void fillFlag(kuVariant& variant, const osg::Node& node) {
  variant.add(kuKeywordText(kuKeyword::Enable), QString());
  variant.add(kuKeywordText(kuKeyword::Disable), QString());
  variant.add(true, kuKeywordText(kuKeyword::Toggle), QString());
  variant.setDefault(flagState(node));
}

/**
 * The default of a rebuilt switch is looked for two places behind the child's index, among all
 * options: the keywords stand ahead of the children, so this is not the child's own option. Where
 * children of equal name have left the list too short there is no option to take, and the default
 * is the one of a switch that shows none.
 */
QString rebuiltDefault(const kuVariant& variant, int shown) {
  const std::size_t position = std::size_t(shown) + 2;
  if (shown == NoChild || position >= variant.getOptions().size())
    return kuKeywordText(kuKeyword::None);
  return variant.getOptions()[position].getName();
}

void rebuildSwitch(kuVariant& variant, kuOptionRebuild& options, const osg::Switch& core,
                   const osg::Node& node) {
  options.addState(kuKeywordText(kuKeyword::All));
  options.addState(kuKeywordText(kuKeyword::None));
  options.addSteps();
  const unsigned count = node.getNChildren();
  for (unsigned i = 0; i < count; ++i)
    options.addState(kuNodeStates::childName(node, i));
  variant.setDefault(rebuiltDefault(variant, kuNodeStates::shownChild(core, node)));
}

void rebuildFlag(kuVariant& variant, kuOptionRebuild& options, const osg::Node& node) {
  options.addState(kuKeywordText(kuKeyword::Enable));
  options.addState(kuKeywordText(kuKeyword::Disable));
  options.addAction(kuKeywordText(kuKeyword::Toggle));
  variant.setDefault(flagState(node));
}

QString switchState(const osg::Switch& core, const osg::Node& node) {
  const int choice = core.getChoice();
  if (choice < AllChildren || choice >= int(node.getNChildren())) return QString();
  if (choice == AllChildren) return kuKeywordText(kuKeyword::All);
  if (choice == NoChild) return kuKeywordText(kuKeyword::None);
  return kuNodeStates::childName(node, unsigned(choice));
}

}  // namespace

namespace kuNodeStates {

int shownChild(const osg::Switch& core, const osg::Node& node) {
  const int choice = core.getChoice();
  return unsigned(choice) < node.getNChildren() ? choice : NoChild;
}

bool isSwitchWithChildren(const osg::NodePtr& node) {
  return node && osg::SwitchPtr::dcast(node->getCore()) && node->getNChildren() > 0;
}

bool hasChild(const osg::Node& node, const std::string& name) {
  const unsigned count = node.getNChildren();
  for (unsigned i = 0; i < count; ++i) {
    if (name == kuNodeUtils::getName(node.getChild(i))) return true;
  }
  return false;
}

QString childName(const osg::Node& node, unsigned index) {
  return QString::fromUtf8(kuNodeUtils::getName(node.getChild(index)));
}

void fill(kuVariant& variant, const osg::NodePtr& node) {
  if (!node) return;
  const osg::SwitchPtr core = osg::SwitchPtr::dcast(node->getCore());
  core ? fillSwitch(variant, *core, *node) : fillFlag(variant, *node);
}

void rebuild(kuVariant& variant, kuOptionRebuild& options, const osg::NodePtr& node) {
  const osg::SwitchPtr core = osg::SwitchPtr::dcast(node->getCore());
  core ? rebuildSwitch(variant, options, *core, *node) : rebuildFlag(variant, options, *node);
}

QString current(const osg::NodePtr& node) {
  if (!node) return QString();
  const osg::SwitchPtr core = osg::SwitchPtr::dcast(node->getCore());
  return core ? switchState(*core, *node) : flagState(*node);
}

}  // namespace kuNodeStates
