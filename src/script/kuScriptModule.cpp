#include "script/kuScriptModule.h"

#include <string>

#include "host/script/kuScript.h"

void kuScriptModule::bring(kuPythonRegisterFactory::Level level, const char* name,
                           PyObject* (*init)()) {
  if (level == kuPythonRegisterFactory::BeforeStart) {
    PyImport_AppendInittab(name, init);
  } else if (level == kuPythonRegisterFactory::AfterStart) {
    kuScript::run(("import " + std::string(name)).c_str());
    kuScript::run(("from " + std::string(name) + " import *").c_str());
  }
}

PyModuleDef kuScriptModule::definition(const char* name) {
  return {PyModuleDef_HEAD_INIT, name, nullptr, -1, nullptr, nullptr, nullptr, nullptr, nullptr};
}
