#pragma once

#include <vector>

#include "host/kuHostExport.h"

/**
 * Tells everyone who registered with it how far the start of the Python interpreter is. That is how
 * a library brings its modules into the host's interpreter: it offers them before the start, and
 * imports them after it. Main thread only.
 */
class KUHOST_EXPORT kuPythonRegisterFactory {
 public:
  /** A moment of the start. Hosts may have more; a function ignores those that it does not know. */
  enum Level : int {
    /** The interpreter does not run yet: built-in modules can be added, and no script can run. */
    BeforeStart = 0,
    /**
     * It runs, and the host's own names are defined: script can run. What a function runs here is
     * the library's own and runs always, whatever the host holds of the scripts of documents.
     * Functions of C++ that it brings into the global namespace become commands: documents and
     * partners may call them with arguments of their choice also where their scripts may not run.
     * So they must do no harm whatever the arguments are. Classes do not become commands, nor do
     * functions that are written in Python.
     */
    AfterStart = 1
  };
  using Function = void (*)(Level level);

  static kuPythonRegisterFactory& the();

  /**
   * For the host: calls each registered function once, in the order of registration. A function may
   * register others, which are called too, and unregister any.
   */
  void call(Level level);

  kuPythonRegisterFactory(const kuPythonRegisterFactory&) = delete;
  kuPythonRegisterFactory& operator=(const kuPythonRegisterFactory&) = delete;

 private:
  friend class kuPythonRegister;
  kuPythonRegisterFactory() = default;

  /** A function stands here as often as it is registered. */
  std::vector<Function> _functions;
};

/**
 * Registers a function for as long as it lives; made as a static object of a library, so while the
 * library loads, in any order with others. A library that goes before the interpreter starts is
 * forgotten; one that has offered its modules stays loaded, since Python keeps them for ever. A
 * library that loads when the interpreter runs already hears only of what comes after.
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
