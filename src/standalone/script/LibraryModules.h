#pragma once

namespace kuStandalone {

/**
 * The script modules that libraries bring: what they registered with kuPythonRegister runs in its
 * place of the interpreter's start.
 */
class LibraryModules {
 public:
  LibraryModules() = delete;

  /** Has the libraries offer their modules; before the interpreter starts. */
  static void offer();

  /**
   * Has the libraries import their modules, when the host's own names are defined. Functions that
   * Boost.Python made and that are new in the global namespace, or new under their names, become
   * commands.
   */
  static void import();

  /** Whether import is at work: the texts that run now are the libraries' own, and always may. */
  static bool areBeingImported();
};

}  // namespace kuStandalone
