#pragma once

#include <Python.h>

#include "model/kuVariantsExport.h"

/**
 * Makes the script module "kuVariants": to capture a set, to activate a captured one, and to select
 * a set by name. The host's interpreter gets it through kuPythonRegister, and after the start its
 * functions stand in the global namespace too. Answers null with Python's error set on failure.
 */
extern "C" KUVARIANTS_EXPORT PyObject* PyInit_kuVariants();
