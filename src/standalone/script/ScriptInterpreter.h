#pragma once

#include <boost/python/object.hpp>
#include <string>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * The process's one Python interpreter. It starts on first use and is never finalised: extension
 * modules, Boost.Python among them, do not survive a second start, and whatever scripts left
 * behind need not run while the process ends.
 *
 * It knows nothing of the environment (no PYTHON... variables, no user's site folder, no start-up
 * file), belongs to the Python that the host was built with whatever stands on the path, leaves
 * signals alone and reads nothing from standard input. What Python prints goes to the error
 * stream, so that standard output belongs to the application.
 */
class KUHOST_EXPORT ScriptInterpreter {
 public:
  ScriptInterpreter() = delete;

  /** Starts it if it is not running, with the functions of the host and the modules of libraries
   * in the global namespace. */
  static void start();

  /** The dictionary of the global namespace, `__main__`. */
  static boost::python::object globals();

  /**
   * Compiles a text. @param startSymbol Py_file_input or Py_eval_input; @param flags 0, or
   * PyCF_ONLY_AST for the syntax tree. None if that failed; Python's error is then set.
   */
  static boost::python::object compile(const char* text, int startSymbol, int flags);

  /** Takes Python's present error away and tells it: type, text, and line of the script. */
  static std::string takeError();

  /** Python's str of a value, in UTF-8; empty if there is none. */
  static std::string textOf(const boost::python::object& value);

  /** Brings out what Python printed so far. */
  static void flush();
};

}  // namespace kuStandalone
