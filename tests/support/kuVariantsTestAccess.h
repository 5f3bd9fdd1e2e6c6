#pragma once

#include <string>

#include "scene/kuAnalyzerVariant.h"
#include "scene/kuLightVariant.h"

/**
 * The one door by which tests reach what the library keeps private. A test that needs a private
 * member adds a static function here that forwards to it.
 */
struct kuVariantsTestAccess {
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
};
