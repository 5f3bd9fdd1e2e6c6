#pragma once

#include <boost/python/object.hpp>
#include <string>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * The functions that a text may call while scripts are off: the host's own, and those that
 * libraries brought (LibraryModules). They must do no harm whatever the arguments are, since
 * documents and partners choose these.
 */
class KUHOST_EXPORT ScriptCommands {
 public:
  ScriptCommands() = delete;

  /**
   * Registers a function under its name, in the place of an earlier one, and enters it in the
   * interpreter's global namespace. Starts the interpreter.
   */
  static void add(const std::string& name, const boost::python::object& callable);

  /** The function registered under that name, or None. */
  static boost::python::object find(const std::string& name);

  /** Whether a text is running command by command: no frame of Python's tells of it. */
  static bool areRunning();
};

}  // namespace kuStandalone
