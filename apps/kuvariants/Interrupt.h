#pragma once

/** Ctrl-C and its kin: the process ends at once with 128 plus the signal's number, so 130. */
namespace Interrupt {

/**
 * Takes the signals over. One that was ignored when the process started stays ignored. Writing to
 * a closed pipe or beyond a file's permitted size becomes an error of the write.
 */
void install();

/** Holds the signals back while files are being put in place, so that none is left half done. */
class Deferred {
 public:
  Deferred();
  /** Ends the process here if a signal came in the meantime. */
  ~Deferred();
  Deferred(const Deferred&) = delete;
  Deferred& operator=(const Deferred&) = delete;
};

}  // namespace Interrupt
