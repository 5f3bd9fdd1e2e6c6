#pragma once

#include <memory>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * The global names of the interpreter as they stand when this is made. Values are kept and not
 * copied: a list that is changed in place stays changed, and so does an imported module.
 */
class KUHOST_EXPORT ScriptVariables {
 public:
  /** Starts the interpreter if it is not running. */
  ScriptVariables();
  ~ScriptVariables();
  ScriptVariables(const ScriptVariables&) = delete;
  ScriptVariables& operator=(const ScriptVariables&) = delete;

  /** Gives the names their values again and takes out those that came since. */
  void restore() const;

 private:
  struct Names;
  std::unique_ptr<Names> _names;
};

}  // namespace kuStandalone
