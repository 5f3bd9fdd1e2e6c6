#include <boost/python.hpp>

#include "host/osg/EditCP.h"
#include "host/osg/SwitchMaterial.h"
#include "host/utils/kuMaterials.h"
#include "standalone/script/HandleClass.h"
#include "standalone/script/HostFunctions.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

std::string materialName(const kuMaterialPtr& material) {
  return kuMaterials::getName(material.getMaterial());
}

osg::SwitchMaterialPtr switchOf(const kuMaterialPtr& material) {
  return osg::SwitchMaterialPtr::dcast(material.getMaterial());
}

/** None where there is nothing to choose. */
bp::object choice(const kuMaterialPtr& material) {
  const osg::SwitchMaterialPtr present = switchOf(material);
  return present ? bp::object(present->getChoice()) : bp::object();
}

void setChoice(const kuMaterialPtr& material, int choice) {
  const osg::SwitchMaterialPtr present = switchOf(material);
  if (!present) return;
  if (choice < 0 || static_cast<std::size_t>(choice) >= present->getMaterials().size())
    throwIndexError(
        "a switch material has the choices from 0 to below the number of its materials");
  const osg::EditCP edit(present, osg::SwitchMaterialBase::ChoiceFieldMask);
  present->setChoice(static_cast<unsigned>(choice));
}

bp::list subMaterials(const kuMaterialPtr& material) {
  bp::list materials;
  const osg::MFMaterialPtr* found = kuMaterials::getSubMaterials(material.getMaterial());
  if (!found) return materials;
  for (const osg::MaterialPtr& entry : *found)
    materials.append(kuMaterialPtr(entry));
  return materials;
}

std::string representation(const kuMaterialPtr& material) {
  return handleText("kuMaterialPtr", material.isValid(), materialName(material));
}

}  // namespace

void defineMaterialClass() {
  const bp::scope globals{bp::import("__main__")};
  bp::class_<kuMaterialPtr> materialClass(
      "kuMaterialPtr",
      "A material of the scene, or none. Without a material it is false, answers nothing and does "
      "nothing. Those of the same material are equal. It keeps its material, also one that the "
      "scene has no longer.",
      bp::no_init);
  defineHandle(materialClass, "kuMaterialPtr()");
  const bp::arg self("self");
  defineMethod(materialClass, "isValid", &kuMaterialPtr::isValid, self,
               "Whether it holds a material.");
  defineMethod(materialClass, "getName", materialName, self,
               "The material's name; empty without a material.");
  defineMethod(materialClass, "getChoice", choice, self,
               "The index of the material that a switch material shows; None if it is no switch.");
  defineMethod(materialClass, "setChoice", setChoice, (self, bp::arg("choice")),
               "Sets which material a switch material shows; nothing happens if it is no switch. "
               "IndexError for a material that there is not.");
  defineMethod(materialClass, "getSubMaterials", subMaterials, self,
               "The materials that a switch material has, as a list; empty if it has none.");
  materialClass.def("__repr__", representation);
}

}  // namespace kuStandalone
