#pragma once

namespace kuStandalone {

/**
 * Lives as long as a text runs, perhaps inside others: a script may select a set whose script runs
 * in turn, without end if that is the same set. Once texts lie too deep none inside the outermost
 * one runs any more, since each line of each of them might begin anew. While scripts are off there
 * may not be too many of them either, however deep they lie.
 */
class ScriptNesting {
 public:
  /** Logs where the text is the first that must not run. */
  ScriptNesting();
  ~ScriptNesting();
  ScriptNesting(const ScriptNesting&) = delete;
  ScriptNesting& operator=(const ScriptNesting&) = delete;

  bool mayRun() const { return _mayRun; }

 private:
  bool _mayRun;
};

}  // namespace kuStandalone
