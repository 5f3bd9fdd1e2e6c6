#include "Keywords.h"

#include <algorithm>

#include "host/kuSceneInterface.h"
#include "model/kuKeyword.h"

namespace Keywords {
namespace {

bool isStep(const QString& keyword) {
  const kuKeyword which = kuKeywordOf(keyword);
  return std::find(std::begin(kuStepKeywords), std::end(kuStepKeywords), which) !=
         std::end(kuStepKeywords);
}

bool isVisibility(const QString& keyword) {
  const kuKeyword which = kuKeywordOf(keyword);
  return which == kuKeyword::Enable || which == kuKeyword::Disable || which == kuKeyword::Toggle;
}

/** A whole choice of a switch: all children or none. */
bool isAllOrNone(const QString& keyword) {
  const kuKeyword which = kuKeywordOf(keyword);
  return which == kuKeyword::All || which == kuKeyword::None;
}

/** "Transform 3". */
bool isNumberedTransform(const QString& state) {
  const QString prefix = QStringLiteral("Transform ");
  const QString number = state.mid(prefix.size());
  bool fits = false;
  number.toUInt(&fits);
  return state.startsWith(prefix) && fits && number.front().isDigit();
}

bool isSwitch(const osg::NodePtr& node) {
  return node && static_cast<bool>(osg::SwitchPtr::dcast(node->getCore()));
}

bool isTransform(const osg::NodePtr& node) {
  return node && static_cast<bool>(osg::SwitchComponentTransformPtr::dcast(node->getCore()));
}

template <class Test>
bool anyNode(const QString& name, Test test) {
  const std::vector<kuNodePtr> nodes = kuScenegraph::findNodes(name.toUtf8().constData());
  return std::any_of(nodes.begin(), nodes.end(),
                     [&](const kuNodePtr& node) { return test(node.getNode()); });
}

bool switchObeys(const QString& keyword) { return isStep(keyword) || isAllOrNone(keyword); }

}  // namespace

bool nodeObeys(const QString& node, const QString& keyword) {
  return anyNode(node, [&](const osg::NodePtr& found) {
    if (isVisibility(keyword)) return true;
    if (isTransform(found)) return isStep(keyword) || isNumberedTransform(keyword);
    return isSwitch(found) && switchObeys(keyword);
  });
}

bool materialObeys(const QString& material, const QString& keyword) {
  const auto materials = kuMaterials::findMaterials(material.toUtf8().constData());
  return isStep(keyword) &&
         std::any_of(materials.begin(), materials.end(), [](const kuMaterialPtr& found) {
           return found.isValid() && found.getMaterial()->isMultiState();
         });
}

bool transformObeys(const QString& node, const QString& keyword) {
  return isStep(keyword) && anyNode(node, kuNodeUtils::hasTransformVariants);
}

bool lightObeys(const QString& node, const QString& keyword) {
  return isVisibility(keyword) && anyNode(node, kuLights::isLight);
}

bool overlayObeys(const QString& overlay, const QString& keyword) {
  const osg::NodePtr plate = kuSceneplateUtils::findNode(overlay.toStdString());
  return plate && (isVisibility(keyword) || (isSwitch(plate) && switchObeys(keyword)));
}

}  // namespace Keywords
