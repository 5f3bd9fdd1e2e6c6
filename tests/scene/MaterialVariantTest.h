#pragma once

#include <string>
#include <vector>

#include "host/utils/kuMaterials.h"
#include "model/kuVariant.h"
#include "support/MessageRecorder.h"
#include "support/SceneTest.h"

/** Fixture of the tests of material variants. */
class MaterialVariant : public SceneTest {
 protected:
  using Texts = std::vector<std::string>;

  /** The options of a material with these states. */
  static Texts stepsAnd(const Texts& states) {
    Texts texts = {"!Next *", "!Next (Loop) *", "!Previous *", "!Previous (Loop) *"};
    texts.insert(texts.end(), states.begin(), states.end());
    return texts;
  }

  static Texts subMaterialNames(const osg::SwitchMaterialPtr& material) {
    Texts names;
    material->getStateNames(names);
    return names;
  }

  static osg::MaterialPtr find(const char* name) { return kuMaterials::findMaterial(name); }

  /** A switch "Paint" of materials of those names. */
  osg::SwitchMaterialPtr paint(const Texts& names, unsigned choice) {
    std::vector<osg::MaterialPtr> materials;
    for (const std::string& name : names)
      materials.push_back(scene.material(name));
    return scene.switchMaterial("Paint", materials, choice);
  }

  MessageRecorder messages{[](const void* pointer) {
    return static_cast<const kuVariant*>(pointer)->getName().toStdString();
  }};
};
