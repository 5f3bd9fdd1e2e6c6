#include "AllScriptUses.h"

#include <boost/python.hpp>

#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "script/kuVariantSetPtr.h"
#include "standalone/script/ScriptInterpreter.h"
#include "support/SceneBuilder.h"

void prepareScriptUses(SceneBuilder& scene) {
  scene.switchNode("Paint", 0, {"Red", "Blue"});
  scene.transforms("Door", {"Open", "Shut"}, 0, 0);
  scene.light("Sun", true);
  scene.switchMaterial("Paint", {scene.material("Red")}, 0);
  scene.renderLayer(scene.materialGroup("Group", {}));
  scene.camera("Top");
  kuVariantSet* set = kuVariants::createVariantSet("Blue", false, nullptr);
  set->addTargetNodeName("Paint");
  set->setScript("blue.getName()");
  kuStandalone::ScriptInterpreter::start();
  kuStandalone::ScriptInterpreter::globals()["blue"] = boost::python::object(kuVariantSetPtr(set));
}
