#pragma once

#include <Python.h>

#include "model/kuVariantsExport.h"

/**
 * Makes the script module "kuVariantSetPtr" of the class kuVariantSetPtr. A script can make objects
 * without a set only; those that point to one come from the application. The host's interpreter
 * gets the module through kuPythonRegister, and after the start the class stands in the global
 * namespace too. Answers null with Python's error set on failure.
 */
extern "C" KUVARIANTS_EXPORT PyObject* PyInit_kuVariantSetPtr();
