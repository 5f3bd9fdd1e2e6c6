#include "script/kuVariantsModule.h"

#include <boost/python.hpp>

#include "host/script/kuPythonRegister.h"
#include "host/script/kuScript.h"
#include "manager/kuVariants.h"

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
  if (level == kuPythonRegisterFactory::BeforeStart) {
    PyImport_AppendInittab("kuVariants", PyInit_kuVariants);
  } else if (level == kuPythonRegisterFactory::AfterStart) {
    kuScript::run("import kuVariants");
    kuScript::run("from kuVariants import *");
  }
}

const kuPythonRegister registration(onPythonStart);

}  // namespace

PyObject* PyInit_kuVariants() {
  static PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                                   "kuVariants",
                                   nullptr,
                                   -1,
                                   nullptr,
                                   nullptr,
                                   nullptr,
                                   nullptr,
                                   nullptr};
  return bp::detail::init_module(definition, defineModule);
}
