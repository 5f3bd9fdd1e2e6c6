#include "script/kuVariantsModule.h"

#include <boost/python.hpp>

#include "manager/kuVariants.h"
#include "script/kuScriptModule.h"

namespace bp = boost::python;

namespace {

void selectVariantSet(const char* name) { kuVariants::selectVariantSet(name, false); }

void selectVariantSetOrSkipViewpoint(const char* name, bool skipViewpoint) {
  kuVariants::selectVariantSet(name, skipViewpoint);
}

void defineModule() {
  const bp::docstring_options texts(true, false);
  bp::scope().attr("__doc__") = "Contains functions to capture and activate variant sets. \n";

  bp::def("createAndCaptureVariantSet", &kuVariants::createAndCaptureVariantSet,
          (bp::arg("variantName"), bp::arg("groupName")),
          "Captures variants to variant set.\n\n"
          "@param name: The name of the variant set.\n\n"
          "@type name: string"
          "@param name: Name of the variant set group.\n\n"
          "@type name: string");
  bp::def("activateCapturedVariantSet", &kuVariants::activateCapturedVariantSet, bp::arg("name"),
          "Activates a captured variant set. The variant set will activate all states of its "
          "defined node and material variants.\n\n"
          "@param name: The name of the captured variant set.\n\n"
          "@type name: string");
  bp::def("selectVariantSet", selectVariantSet);
  bp::def("selectVariantSet", selectVariantSetOrSkipViewpoint);
}

void onPythonStart(kuPythonRegisterFactory::Level level) {
  kuScriptModule::bring(level, "kuVariants", PyInit_kuVariants);
}

const kuPythonRegister registration(onPythonStart);

}  // namespace

PyObject* PyInit_kuVariants() {
  static PyModuleDef definition = kuScriptModule::definition("kuVariants");
  return bp::detail::init_module(definition, defineModule);
}
