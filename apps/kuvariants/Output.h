#pragma once

#include <string>

/** Writes all of it to a file descriptor. Answers 0, or the error's number. */
int writeAll(int descriptor, const std::string& bytes);

/**
 * The application's standard output. It is made first of all; from then on whatever else prints to
 * standard output, the library and scripts among them, goes to standard error.
 */
class Output {
 public:
  Output();
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /**
   * Ends that for a script of the user's own: what prints to standard output reaches it. Answers
   * false where there is none.
   */
  bool giveBack();
  /** Whether that was done, be there one or not. */
  static bool isGivenBack();
  /** Writes to what was given back. Answers 0, or the error's number. */
  static int writeGivenBack(const std::string& bytes);

  /** Whether people read it. */
  bool isTerminal() const;

  /** Writes the text, or throws a Failure. */
  void write(const std::string& text);

 private:
  int _descriptor;
};
