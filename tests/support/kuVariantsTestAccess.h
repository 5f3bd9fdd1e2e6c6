#pragma once

#include <QString>
#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "capture/kuVariantCaptureChecker.h"
#include "document/kuVariantReader.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuAnalyzerVariant.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuVariantCreator.h"

/**
 * The one door by which tests reach what the library keeps private. A test that needs a private
 * member adds a static function here that forwards to it.
 */
struct kuVariantsTestAccess {
  static const auto& capturedGeometryCores() { return kuVariants::_capturedGeometryCores; }
  static int& animationCursor(kuVariantSet& set) { return set.animationCursor; }
  // The lists of a set, into which the public operations enter a name only once.
  static std::list<kuVariantState>& nodeVariants(kuVariantSet& set) {
    return set.nodeVariants.editable();
  }
  static std::list<kuVariantState>& transformVariants(kuVariantSet& set) {
    return set.transformVariants.editable();
  }
  static std::list<QString>& geometries(kuVariantSet& set) { return set.geometries; }
  static std::list<QString>& viewpoints(kuVariantSet& set) { return set.viewpoints; }
  static std::vector<QString>& animations(kuVariantSet& set) { return set.animations; }
  static kuAnalyzerVariant clipping(int clipState) {
    kuAnalyzerVariant settings;
    settings.clipState = clipState;
    return settings;
  }
  static void setClipPosition(kuAnalyzerVariant& settings, float x, float y, float z) {
    settings.clipPlanePosition = osg::Pnt3f(x, y, z);
  }
  static std::string clippingScript(const kuAnalyzerVariant& settings) { return settings.script(); }
  static QString lightPath(const osg::NodePtr& node) { return kuLightVariant::getNodePath(node); }
  static void recurseEnable(const osg::NodePtr& node) { kuNodeVariant().recurseEnable(node); }
  static QString nodePath(const osg::NodePtr& node) { return kuNodeVariant().getNodePath(node); }
  static QString overlayPath(const osg::NodePtr& node) {
    return kuOverlayVariant().getNodePath(node);
  }
  static void callNodesChanged(const osg::NodePtr& node, kuMessage& message) {
    kuNodeVariant().callVariantsNodesChanged(node, message);
  }
  static void callOverlaysChanged(const osg::NodePtr& node, kuMessage& message) {
    kuOverlayVariant().callVariantsNodesChanged(node, message);
  }
  static int presentState(const osg::MaterialPtr& material) {
    return kuMaterialVariant().getCurrentState(material);
  }
  static osg::Action::ResultE enter(kuVariantCreator& creator, const osg::NodePtr& node) {
    return creator.traverseEnter(node);
  }
  static osg::Action::ResultE leave(kuVariantCreator& creator, const osg::NodePtr& node,
                                    osg::Action::ResultE result) {
    return creator.traverseLeave(node, result);
  }
  static QString normalizeHotkeyText(const QString& text) {
    return kuVariantReader::normalizeHotkeyText(text);
  }
  static QByteArray previewFromFrameBuffer(kuVariantSet* set) {
    return kuVariants::getPreviewImageFromFrameBuffer(set);
  }

  static QString sceneplateState(const kuNodePtr& node) {
    return kuVariants::getSceneplateState(node);
  }
  static const std::unordered_map<std::uint32_t, std::vector<kuNodePtr>>& nodePathIndex() {
    return kuVariants::_nodePathIndex;
  }
  static bool checkAndSetNodeActive(const osg::NodePtr& node, kuVariantSet& set, bool inclNodes) {
    bool sendMessage = false;
    return kuVariants::checkAndSetNodeActive(node, &set, inclNodes, sendMessage);
  }

  // The parts of a capture that have to do with materials.

  /** What one capture has met so far. */
  struct CaptureContainers {
    kuVariants::NodePaths handledPaths;
    kuVariants::Switches createdSwitches;
    kuVariants::Materials handledMaterials;
  };
  /** The names of the nodes that the index has under a hash. */
  static std::vector<std::string> indexedNodes(std::uint32_t hash) {
    std::vector<std::string> names;
    const auto found = kuVariants::_nodePathIndex.find(hash);
    if (found == kuVariants::_nodePathIndex.end()) return names;
    for (const kuNodePtr& node : found->second)
      names.emplace_back(kuNodeUtils::getName(node));
    return names;
  }
  static void rebuildNodePathIndex() { kuVariants::rebuildNodePathIndex(); }
  static void handleMaterialSnapshots(kuVariantSet* set, const kuNodePtr& node, const QString& path,
                                      const osg::MaterialPtr& material, CaptureContainers& met,
                                      bool isCapturing) {
    kuVariants::handleMaterialSnapshots(set, node, path, material, {}, met.handledPaths,
                                        met.createdSwitches, met.handledMaterials, isCapturing,
                                        false);
  }
  static bool checkIfNodeMatchesNodePath(const osg::NodePtr& node, const char* path,
                                         bool applyToAll) {
    return kuVariants::checkIfNodeMatchesNodePath(node, path, applyToAll);
  }
  static void keepNodesWithPath(std::vector<kuNodePtr>& nodes, const char* path) {
    kuVariants::keepNodesWithPath(nodes, path);
  }
  static void changeMaterial(const osg::NodePtr& node, const osg::MaterialPtr& material) {
    kuVariants::changeMaterial(node, material);
  }
  static bool compareSwitches(const osg::SwitchMaterialPtr& a, const osg::SwitchMaterialPtr& b) {
    return kuVariants::compareSwitches(a, b);
  }
  static bool checkIfMaterialAlreadyAdded(const osg::MaterialPtr& material,
                                          const osg::SwitchMaterialPtr& target) {
    return kuVariants::checkIfMaterialAlreadyAdded(material, target);
  }
  static bool checkForMaterialRecursion(const osg::MaterialPtr& material,
                                        const osg::SwitchMaterialPtr& target) {
    return kuVariants::checkForMaterialRecursion(material, target);
  }
  static void optimizeMaterialSwitches(const kuNodePtr& node, const QString& path,
                                       const osg::MaterialPtr& oldMaterial,
                                       const osg::SwitchMaterialPtr& target,
                                       CaptureContainers& met) {
    kuVariants::optimizeMaterialSwitches(node, path, oldMaterial, target, met.createdSwitches);
  }

  // What a capture checker found.
  static const std::map<QString, std::vector<osg::NodeCorePtr>>& coresByName(
      const kuVariantCaptureChecker& checker) {
    return checker.coresByName;
  }
  static const std::map<std::string, std::vector<osg::NodeCorePtr>>& coresByStrippedName(
      const kuVariantCaptureChecker& checker) {
    return checker.coresByStrippedName;
  }
  static const std::set<osg::NodeCorePtr>& coresWithAmbiguousTransformVariants(
      const kuVariantCaptureChecker& checker) {
    return checker.coresWithAmbiguousTransformVariants;
  }
  static const std::set<osg::NodeCorePtr>& visitedCores(const kuVariantCaptureChecker& checker) {
    return checker.visitedCores;
  }
  static void fixNames(kuVariantCaptureChecker& checker) { checker.fixNames(); }
};
