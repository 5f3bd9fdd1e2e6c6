#pragma once

#include <functional>
#include <optional>

#include "Failure.h"
#include "joining/Happening.h"

class Output;

/**
 * Prints what happens in a session as it happens, as text or as JSON. On a terminal, where people
 * type, a prompt stands below it.
 */
class JoinPrinter {
 public:
  /** @param onFailure called, once, where nothing can be written any more. */
  JoinPrinter(Output& output, bool isJson, std::function<void()> onFailure);

  void tell(const Happening& happening);
  /** Asks for a line. */
  void prompt();
  /** A line was typed below the prompt. */
  void lineWasTyped() { _isPrompted = false; }

  /** Why nothing can be written any more. */
  const std::optional<Failure>& failure() const { return _failure; }

 private:
  void print(const std::string& text);

  Output& _output;
  bool _isJson;
  bool _isOnTerminal;
  bool _isPrompted = false;
  std::optional<Failure> _failure;
  std::function<void()> _onFailure;
};
