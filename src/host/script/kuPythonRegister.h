#pragma once

#include <vector>

#include "host/kuHostExport.h"

/** Tells everyone who registered with it how far the start of the Python interpreter is. */
class KUHOST_EXPORT kuPythonRegisterFactory {
 public:
  /** A moment of the start. */
  enum Level {
    BeforeStart = 0,  ///< the interpreter does not run yet: built-in modules can still be added
    AfterStart = 1    ///< it runs: script can be run
  };
  using Function = void (*)(Level level);

  static kuPythonRegisterFactory& the();

  kuPythonRegisterFactory(const kuPythonRegisterFactory&) = delete;
  kuPythonRegisterFactory& operator=(const kuPythonRegisterFactory&) = delete;

 private:
  friend class kuPythonRegister;
  friend struct kuPythonStart;
  kuPythonRegisterFactory() = default;

  std::vector<Function> _functions;
};

/**
 * Registers a function for as long as it lives; made as a static object of a library, so while the
 * library loads. A library that loads when the interpreter runs already hears only of what comes
 * after.
 */
class KUHOST_EXPORT kuPythonRegister {
 public:
  explicit kuPythonRegister(kuPythonRegisterFactory::Function function);
  ~kuPythonRegister();
  kuPythonRegister(const kuPythonRegister&) = delete;
  kuPythonRegister& operator=(const kuPythonRegister&) = delete;

 private:
  kuPythonRegisterFactory::Function _function;
};
