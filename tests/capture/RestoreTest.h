#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "host/osg/Geometry.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "standalone/scene/Scene.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

/** Fixture of the tests of a restore: a scene with the materials "Red", "Green" and "Blue". */
class RestoreTest : public VariantsTest {
 protected:
  using Snapshots = std::initializer_list<std::pair<const char*, const char*>>;

  RestoreTest()
      : red(scene.material("Red")), green(scene.material("Green")), blue(scene.material("Blue")) {}

  /** A set that remembers materials by node path. */
  static kuVariantSet& remember(const char* name, Snapshots snapshots) {
    kuVariantSet& set = *kuVariants::createVariantSet(name, false, nullptr);
    for (const auto& [path, material] : snapshots)
      set.addMaterialSnapshot(path, material);
    return set;
  }

  /** As the caller of a restore does it. */
  static void restore() {
    kuVariantsTestAccess::rebuildNodePathIndex();
    kuVariants::restoreSwitchNodes();
  }

  static std::string materialOf(const osg::NodePtr& node) {
    return kuMaterials::getName(kuNodeUtils::getMaterial(node));
  }

  osg::MaterialPtr red, green, blue;
};
