#include <boost/python.hpp>

#include <QCoreApplication>
#include <QThread>

#include "PictureOptions.h"
#include "host/script/kuPythonRegister.h"
#include "scripting/ScriptErrors.h"
#include "scripting/ScriptFiles.h"
#include "scripting/ScriptSets.h"
#include "scripting/ScriptTexts.h"
#include "scripting/ScriptVariants.h"

// The module "variants" of the command line's scripts. Its functions with their texts and checks
// are written in Python (variants.py); the work is done by a module "_variants" of functions that
// take what was checked. Everything is addressed by name, so that nothing dangles when it is
// removed.

namespace bp = boost::python;

namespace {

bool isMainThread() { return QThread::currentThread() == QCoreApplication::instance()->thread(); }

void defineSets() {
  bp::def("sets", ScriptSets::sets);
  bp::def("create_set", ScriptSets::createSet);
  bp::def("find_set", ScriptSets::findSet);
  bp::def("rename_set", ScriptSets::renameSet);
  bp::def("remove_set", ScriptSets::removeSet);
  bp::def("select_set", ScriptSets::selectSet);
  bp::def("group_of", ScriptSets::groupOf);
  bp::def("set_group", ScriptSets::setGroup);
  bp::def("states", ScriptSets::states);
  bp::def("set_state", ScriptSets::setState);
  bp::def("remove_state", ScriptSets::removeState);
}

void defineGroups() {
  bp::def("groups", ScriptSets::groups);
  bp::def("create_group", ScriptSets::createGroup);
  bp::def("rename_group", ScriptSets::renameGroup);
  bp::def("remove_group", ScriptSets::removeGroup);
}

void defineVariants() {
  bp::def("variants", ScriptVariants::variants);
  bp::def("options", ScriptVariants::options);
  bp::def("state", ScriptVariants::state);
  bp::def("select_state", ScriptVariants::selectState);
}

void defineFiles() {
  bp::def("check_document_size", ScriptFiles::checkDocumentSize);
  bp::def("read_document", ScriptFiles::readDocument);
  bp::def("write_document", ScriptFiles::writeDocument);
  bp::def("clear", ScriptFiles::clear);
  bp::def("save_scene", ScriptFiles::saveScene);
  bp::def("render", ScriptFiles::render);
}

void defineNative() {
  bp::def("is_main_thread", isMainThread);
  bp::scope().attr("UnknownName") = unknownNameClass();
  bp::scope().attr("MOST_PIXELS") = mostPixels;
  bp::scope().attr("MOST_SAMPLES") = mostSamples;
  translateFailures();
  defineSets();
  defineGroups();
  defineVariants();
  defineFiles();
}

void defineModule() {
  bp::object names = bp::scope().attr("__dict__");
  names["__builtins__"] = bp::import("builtins");
  const bp::object code(
      bp::handle<>(Py_CompileString(variantsModuleText, "<variants>", Py_file_input)));
  const bp::object done(bp::handle<>(PyEval_EvalCode(code.ptr(), names.ptr(), names.ptr())));
}

PyModuleDef definitionOf(const char* name) {
  return {PyModuleDef_HEAD_INIT, name, nullptr, -1, nullptr, nullptr, nullptr, nullptr, nullptr};
}

PyObject* initNative() {
  static PyModuleDef definition = definitionOf("_variants");
  return bp::detail::init_module(definition, defineNative);
}

PyObject* initModule() {
  static PyModuleDef definition = definitionOf("variants");
  return bp::detail::init_module(definition, defineModule);
}

void onPythonStart(kuPythonRegisterFactory::Level level) {
  if (level != kuPythonRegisterFactory::BeforeStart) return;
  PyImport_AppendInittab("_variants", initNative);
  PyImport_AppendInittab("variants", initModule);
}

const kuPythonRegister registration(onPythonStart);

}  // namespace
