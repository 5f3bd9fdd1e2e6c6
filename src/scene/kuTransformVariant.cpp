#include "scene/kuTransformVariant.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/kernel/kuScenegraph.h"
#include "host/services/kuKernelServiceFactory.h"
#include "host/services/kuTransformService.h"
#include "host/utils/kuNodeUtils.h"
#include "model/kuKeyword.h"

namespace {

std::vector<kuNodePtr> nodesOf(const QString& name) {
  return kuScenegraph::findNodes(name.toUtf8().constData());
}

/**
 * The index that a state means for a node; negative where it means none.
 * @param keyword what @p state is; @param state in UTF-8.
 */
int indexOf(const osg::NodePtr& node, kuKeyword keyword, const std::string& state) {
  const int supposed = kuNodeUtils::getTransformVariantSupposedActiveIndex(node);
  const int count = kuNodeUtils::getTransformVariantCount(node);
  switch (keyword) {
    case kuKeyword::Next:
      return supposed + 1 < count ? supposed + 1 : count - 1;
    case kuKeyword::NextLoop:
      return supposed + 1 < count ? supposed + 1 : 0;
    case kuKeyword::Previous:
      return std::max(supposed, 1) - 1;
    case kuKeyword::PreviousLoop:
      return supposed > 0 ? supposed - 1 : count - 1;
    default:
      return kuNodeUtils::getTransformVariantIndex(node, state);
  }
}

/** Leaves the work to the service, which a host must have: the look-up is not tested for null. */
void switchTo(const kuNodePtr& node, int index) {
  auto* service = kuKernelServiceFactory::the().getService<kuTransformService>();
  service->switchTransformVariants({QRPC::NodeTrafoId(node.getID(), index)}, 0, 0);
}

}  // namespace

kuTransformVariant::kuTransformVariant(const QString& nodeName) {
  if (nodeName.isEmpty()) return;
  setName(nodeName);
  node = nodeName;
  updateVariants();
}

// The action flag is always the one given: here an option that is new is an action too if it steps.
void kuTransformVariant::addOption(bool action, QString option,
                                   const std::map<QString, kuVariantOption>& old) {
  const auto former = old.find(option);
  add(action, option, former == old.end() ? QString() : former->second.getHotkey());
}

void kuTransformVariant::updateVariants() {
  std::map<QString, kuVariantOption> old;
  for (const kuVariantOption& option : getOptions())
    old[option.getName()] = option;
  const QString oldDefault = getDefault();
  clear();

  const std::vector<kuNodePtr> nodes = nodesOf(node);
  const auto first = std::find_if(nodes.begin(), nodes.end(), [](const kuNodePtr& found) {
    return kuNodeUtils::hasTransformVariants(found);
  });
  if (first == nodes.end()) return;

  for (const kuKeyword step : kuStepKeywords)
    addOption(true, kuKeywordText(step), old);
  const int count = kuNodeUtils::getTransformVariantCount(*first);
  for (int i = 0; i < count; ++i) {
    addOption(false, QString::fromStdString(kuNodeUtils::getTransformVariantName(*first, i)), old);
  }
  setDefault(getOptions().front());  // "!Next"
  const kuVariantOption* kept = find(oldDefault);
  if (kept && !kept->getAction()) setDefault(oldDefault);
}

void kuTransformVariant::onSelect(const QString& state) {
  const std::string stateName = state.toStdString();
  const kuKeyword keyword = kuKeywordOf(state);
  // Clones are not thinned out: two of them are switched twice.
  for (const kuNodePtr& found : nodesOf(node)) {
    if (!kuNodeUtils::hasTransformVariants(found)) continue;
    const int index = indexOf(found, keyword, stateName);
    if (index >= 0) switchTo(found, index);
  }
}

QString kuTransformVariant::onCurrent() const {
  for (const kuNodePtr& found : nodesOf(node)) {
    const int index = kuNodeUtils::getTransformVariantSupposedActiveIndex(found);
    if (index >= 0) {
      return QString::fromStdString(kuNodeUtils::getTransformVariantName(found, index));
    }
  }
  return QString();
}
