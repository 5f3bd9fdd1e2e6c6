#pragma once

#include <string>

/**
 * A file in memory, for what writes to a file alone. It has no name in any folder, so that nothing
 * is left behind however the process ends.
 */
class ScratchFile {
 public:
  /** Throws a Failure where the system grants none. */
  ScratchFile();
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  int descriptor() const { return _descriptor; }
  /** By this the process itself can open it, as often as it likes. */
  std::string path() const;
  /** All that was written, or throws a Failure. */
  std::string content() const;

 private:
  int _descriptor;
};
