#include "script/kuVariantSetPtrModule.h"

#include <boost/python.hpp>

#include "script/kuScriptModule.h"
#include "script/kuVariantSetPtr.h"

namespace bp = boost::python;

namespace {

using Set = kuVariantSetPtr;
using SetClass = bp::class_<Set>;

// The reference for people who write scripts. Other tools show these texts, so they stay as they
// are to the letter.

constexpr const char* setNameText =
    "Sets a Name.\n\n"
    "@param name: The Name.\n\n"
    "@type name: string";

constexpr const char* getNameText =
    "Gets the Name.\n\n"
    "@return: The Name.\n\n"
    "@rtype: string";

constexpr const char* setHotkeyStringText =
    "Sets a Key.\n\n"
    "@param key: The Key.\n\n"
    "@type key: string";

constexpr const char* setHotkeyText =
    "Sets a Key.\n\n"
    "@param key: The Key.\n\n"
    "@type key: integer (unsigned)\n\n"
    "@param modifier: The modifier.\n\n"
    "@type modifier: integer (unsigned)";

constexpr const char* getHotkeyText =
    "Gets the Key.\n\n"
    "@return: The Key.\n\n"
    "@rtype: string";

constexpr const char* addGeometryText =
    "Adds a geometry variant.\n\n"
    "@param node: The geometry switch.\n\n"
    "@type node: kuNodePtr\n\n"
    "@param state: The node state.\n\n"
    "@type state: string";

constexpr const char* addTransformText =
    "Adds a transform variant.\n\n"
    "@param node: The node holding transform variants.\n\n"
    "@type node: kuNodePtr\n\n"
    "@param state: The node state.\n\n"
    "@type state: string";

constexpr const char* addMaterialText =
    "Adds a material variant.\n\n"
    "@param node: The material switch.\n\n"
    "@type node: kuMaterialPtr\n\n"
    "@param state: The material state.\n\n"
    "@type state: string";

constexpr const char* addLightText =
    "Adds a light variant.\n\n"
    "@param node: The light switch.\n\n"
    "@type node: kuNodePtr\n\n"
    "@param state: The light state.\n\n"
    "@type state: string";

constexpr const char* setClippingStateText =
    "Sets the clipping state.\n\n"
    "@param state: The clippping state (0=no change, 1=enable clipping, 2=disable "
    "clipping, 3=set clipping plane values but keep the rest)).\n\n"
    "@type state: string";

constexpr const char* addClippingPlaneText =
    "Adds a Clipping Plane.\n\n"
    "@param position: The position.\n\n"
    "@type position: bool"
    "@param normal: The normal.\n\n"
    "@type normal: bool"
    "@param invertDirection: Toggle invert direction.\n\n"
    "@type invertDirection: bool"
    "@param hideScene: Toggle hide scene.\n\n"
    "@type hideScene: bool"
    "@param showClippingPlane: Toggle show clipping plane.\n\n"
    "@type showClippingPlane: bool"
    "@param showGrid: Toggle show grid.\n\n"
    "@type showGrid: bool"
    "@param showContour: Toggle show contour.\n\n"
    "@type showContour: bool";

constexpr const char* addCurrentClippingPlaneText = "Adds current Clipping Plane.";

constexpr const char* addViewText =
    "Adds a viewpoint.\n\n"
    "@param viewpoint: The viewpoint.\n\n"
    "@type viewpoint: string";

constexpr const char* addScriptText =
    "Adds a script.\n\n"
    "@param script: The script.\n\n"
    "@type script: string";

constexpr const char* getScriptText =
    "Gets the script.\n\n"
    "@return: The script.\n\n"
    "@rtype: string";

constexpr const char* getTargetNodeNamesText =
    "Gets the names of the target nodes.\n\n"
    "@return: The names.\n\n"
    "@rtype: vector of string";

constexpr const char* setValueText =
    "Adds a key/value pair to the variant set.\nKeys are unique. Setting another value "
    "for the same key overwrites the previous value.\n\n"
    "@param key: The key.\n\n"
    "@type key: string\n\n"
    "@param value: The value.\n\n"
    "@type value: string\n\n";

constexpr const char* getValueText =
    "Gets the value stored for the given key.\n\n"
    "@param key: The key for which the value should be returned.\n\n"
    "@type key: string\n\n"
    "@return: The value. Empty string if the variant set does not contain the given "
    "key.\n\n"
    "@rtype: string";

// The order counts: of two methods of one name Python tries the later one first.

void defineNameAndHotkey(SetClass& set) {
  set.def("setName", &Set::setName, bp::arg("name"), setNameText)
      .def("getName", &Set::getName, getNameText)
      .def("setHotkeyString", &Set::setHotkeyString, bp::arg("key"), setHotkeyStringText)
      .def("setHotkey", static_cast<void (Set::*)(int)>(&Set::setHotkey))
      .def("setHotkey", static_cast<void (Set::*)(int, int)>(&Set::setHotkey),
           (bp::arg("key"), bp::arg("modifier")), setHotkeyText)
      .def("getHotkey", &Set::getHotkey, getHotkeyText);
}

void defineStates(SetClass& set) {
  set.def("addGeometry", &Set::addGeometry, (bp::arg("node"), bp::arg("state")), addGeometryText)
      .def("addTransform", &Set::addTransfrom, (bp::arg("node"), bp::arg("state")),
           addTransformText)
      .def("addMaterial", &Set::addMaterial, (bp::arg("material"), bp::arg("state")),
           addMaterialText)
      .def("addLight", &Set::addLight, (bp::arg("light"), bp::arg("state")), addLightText);
}

void defineClipping(SetClass& set) {
  set.def("setClippingState", &Set::setClippingState, bp::arg("state"), setClippingStateText)
      .def(
          "addClippingPlane", &Set::addClippingPlane,
          (bp::arg("position"), bp::arg("normal"), bp::arg("invertDirection"), bp::arg("hideScene"),
           bp::arg("showClippingPlane"), bp::arg("showGrid"), bp::arg("showContour")),
          addClippingPlaneText)
      .def("addCurrentClippingPlane", &Set::addCurrentClippingPlane, addCurrentClippingPlaneText);
}

void defineContent(SetClass& set) {
  set.def("addView", &Set::addViewpoint, bp::arg("viewpoint"), addViewText)
      .def("addScript", &Set::addScript, bp::arg("script"), addScriptText)
      .def("getScript", &Set::getScript, getScriptText)
      .def("getTargetNodeNames", &Set::getTargetNodeNames, getTargetNodeNamesText)
      .def("setValue", &Set::setValue, (bp::arg("key"), bp::arg("value")), setValueText)
      .def("getValue", &Set::getValue, bp::arg("key"), getValueText);
}

void defineModule() {
  const bp::docstring_options texts(true, false);
  SetClass set("kuVariantSetPtr", "The kuVariantSetPtr is a wrapper class for kuVariantSet.\n");
  defineNameAndHotkey(set);
  defineStates(set);
  defineClipping(set);
  defineContent(set);
}

void onPythonStart(kuPythonRegisterFactory::Level level) {
  kuScriptModule::bring(level, "kuVariantSetPtr", PyInit_kuVariantSetPtr);
}

const kuPythonRegister registration(onPythonStart);

}  // namespace

PyObject* PyInit_kuVariantSetPtr() {
  static PyModuleDef definition = kuScriptModule::definition("kuVariantSetPtr");
  return bp::detail::init_module(definition, defineModule);
}
