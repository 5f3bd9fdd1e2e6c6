#pragma once

#include <csignal>

/** Ctrl-C and its kin: the process ends at once with 128 plus the signal's number, so 130. */
namespace Interrupt {

/** What a process answers that such a signal has ended. */
constexpr int exitCode(int signal) { return 128 + signal; }

/**
 * Takes the signals over. One that was ignored when the process started stays ignored. Writing to
 * a closed pipe or beyond a file's permitted size becomes an error of the write.
 */
void install();

/**
 * Ctrl-C goes to a receiver and does not end the process, unless a second one comes before the
 * first was taken. The receiver runs in the handler of the signal. Null ends that.
 */
void passOn(void (*receiver)());

/** What was passed on arrived. */
void taken();

/** Ends the process as Ctrl-C does. */
[[noreturn]] void leaveInterrupted();

/**
 * Has Ctrl-C end the process at once for a while, though there is a receiver or somebody else took
 * the signal over. It stays ignored where it is.
 */
class AtOnce {
 public:
  AtOnce();
  ~AtOnce();
  AtOnce(const AtOnce&) = delete;
  AtOnce& operator=(const AtOnce&) = delete;

 private:
  void (*_receiver)();
  struct sigaction _former {};
};

/** Holds the signals back while files are being put in place, so that none is left half done. */
class Deferred {
 public:
  Deferred();
  /** Ends the process here if a signal came in the meantime. */
  ~Deferred();
  Deferred(const Deferred&) = delete;
  Deferred& operator=(const Deferred&) = delete;
};

/**
 * As long as this lives, the first of the signals is told and no more, so that the process can end
 * itself in an orderly way; the second one ends it at once. One at a time.
 */
class Told {
 public:
  Told();
  ~Told();
  Told(const Told&) = delete;
  Told& operator=(const Told&) = delete;

  /** Becomes readable when a signal came; -1 where there is none to be had. */
  int descriptor() const { return _ends[0]; }
  /** The signal that came; 0 for none. */
  static int signal();

 private:
  int _ends[2] = {-1, -1};
};

}  // namespace Interrupt
