#pragma once

#include <string>
#include <vector>

#include "capture/kuVariantCaptureChecker.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuOpenSGUtils.h"
#include "host/utils/kuSceneplateUtils.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

/** Fixture of the tests of equal names in the scene. */
class CheckerTest : public VariantsTest {
 protected:
  using Names = std::vector<std::string>;

  /** Groups of those names, one behind another below the root. */
  std::vector<osg::NodePtr> groups(const Names& names) {
    std::vector<osg::NodePtr> made;
    for (const std::string& name : names)
      made.push_back(scene.group(name));
    return made;
  }

  /** The names of all nodes below the two roots, depth first, sceneplates last. */
  static Names names() {
    Names result;
    appendBelow(kuOpenSGUtils::getRoot(), result);
    appendBelow(kuSceneplateUtils::getSceneplateRoot(), result);
    return result;
  }
  static Names namesOf(const std::vector<osg::NodePtr>& nodes) {
    Names result;
    for (const osg::NodePtr& node : nodes)
      result.emplace_back(kuNodeUtils::getName(node));
    return result;
  }
  static Names stateNames(const osg::NodePtr& node) {
    Names result;
    for (int index = 0; index < kuNodeUtils::getTransformVariantCount(node); ++index)
      result.push_back(kuNodeUtils::getTransformVariantName(node, index));
    return result;
  }

  static bool hasAmbiguousNodes() { return kuVariantCaptureChecker().hasAmbiguousNodes(); }

 private:
  static void appendBelow(const osg::NodePtr& node, Names& result) {
    if (!node) return;
    for (unsigned child = 0; child < node->getNChildren(); ++child) {
      result.emplace_back(kuNodeUtils::getName(node->getChild(child)));
      appendBelow(node->getChild(child), result);
    }
  }
};
