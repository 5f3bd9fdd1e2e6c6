#include "joining/JoinPrinter.h"

#include <unistd.h>

#include <utility>

#include "Diagnostics.h"
#include "Output.h"

JoinPrinter::JoinPrinter(Output& output, bool isJson, std::function<void()> onFailure)
    : _output(output),
      _isJson(isJson),
      _isOnTerminal(!isJson && isatty(STDIN_FILENO) == 1 && output.isTerminal()),
      _onFailure(std::move(onFailure)) {}

void JoinPrinter::tell(const Happening& happening) {
  if (_isJson) return print(happeningJson(happening));
  if (happening.what == Happening::What::Fault) {
    return printDiagnostic(happening.reason.toStdString());
  }
  const bool wasPrompted = std::exchange(_isPrompted, false);
  print((wasPrompted ? "\r\x1b[K" : "") + happeningText(happening));
  if (wasPrompted) prompt();
}

void JoinPrinter::prompt() {
  if (!_isOnTerminal || _isPrompted) return;
  print("> ");
  _isPrompted = true;
}

void JoinPrinter::print(const std::string& text) {
  if (_failure) return;
  try {
    _output.write(text);
  } catch (const Failure& failure) {
    // It must not go through the event loop.
    _failure = failure;
    _onFailure();
  }
}
