#include <boost/python.hpp>

#include "host/utils/kuMaterials.h"
#include "standalone/script/HostFunctions.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

std::string materialName(const kuMaterialPtr& material) {
  return kuMaterials::getName(material.getMaterial());
}

std::string representation(const kuMaterialPtr& material) {
  return handleText("kuMaterialPtr", material.isValid(), materialName(material));
}

}  // namespace

void defineMaterialClass() {
  const bp::scope globals{bp::import("__main__")};
  bp::class_<kuMaterialPtr>("kuMaterialPtr", "A material of the scene, or none.")
      .def("isValid", &kuMaterialPtr::isValid, bp::arg("self"), "Whether it holds a material.")
      .def("getName", materialName, bp::arg("self"),
           "The material's name; empty without a material.")
      .def("__repr__", representation);
}

}  // namespace kuStandalone
