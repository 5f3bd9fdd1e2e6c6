#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/kuHostExport.h"

namespace kuStandalone {

/** A script that was held back. */
struct ScriptRefusal {
  /** Name of the set that was being selected; empty if there was none. */
  std::string set;
  /** Where and why, for people. */
  std::string reason;
  /** The start of the text, on one line. */
  std::string start;
};

/**
 * Whether scripts may run. Off at first: then only texts made wholly of commands run, and whatever
 * else comes is refused, logged and noted here. What libraries run while the interpreter starts is
 * no document's and runs always.
 *
 * What is guaranteed while scripts are off: not a statement of a refused text runs, and of a text
 * that passes nothing runs but the registered functions themselves, whatever their names are bound
 * to in the interpreter. Scripts that ran while they were allowed had the whole process at their
 * disposal, so hooks that they left behind may still run; switching scripts off does not undo what
 * a script did.
 */
class KUHOST_EXPORT ScriptPolicy {
 public:
  ScriptPolicy() = delete;

  static void allow(bool allowed);
  static bool allowed();

  /**
   * The set that is being selected, as told by "variantsSetSelected"; empty if none is. Where a
   * selection runs inside another it is the inner one. A set without a name cannot be told from
   * the end of a selection.
   */
  static std::string presentSet();

  /** Notes and logs a script that is held back. */
  static void refuse(const char* text, const std::string& reason);

  /** How many scripts were held back since the last clearing. */
  static std::uint64_t refusalCount();
  /** The first of them, at most 1000. */
  static const std::vector<ScriptRefusal>& refusals();
  static void clearRefusals();
};

}  // namespace kuStandalone
