#pragma once

#include <boost/python.hpp>

#include "host/script/kuPythonRegister.h"

/** What the script modules of this library share. */
namespace kuScriptModule {

/**
 * Offers a module to the interpreter before it starts, and brings all its names into the global
 * namespace once it has. @param init the function that Python initialises the module with.
 */
void bring(kuPythonRegisterFactory::Level level, const char* name, PyObject* (*init)());

/** The definition of a module that keeps its state in static objects. */
PyModuleDef definition(const char* name);

}  // namespace kuScriptModule
