#include <unistd.h>

#include <exception>

#include "CommandLine.h"
#include "Diagnostics.h"
#include "Failure.h"
#include "FileClash.h"
#include "Interrupt.h"
#include "Output.h"
#include "Workspace.h"

namespace {

int run(int argc, char** argv) {
  Output output;
  Invocation invocation;
  if (!readCommandLine(argc, argv, invocation, output)) return static_cast<int>(ExitCode::Done);
  invocation.output = &output;
  refuseClashes(invocation);
  Workspace workspace(invocation.common);
  workspace.loadScene(invocation.scene);
  if (invocation.document) workspace.loadDocument(*invocation.document);
  const Outcome outcome = invocation.run(invocation);
  if (outcome.isComplete) workspace.save(invocation, outcome);
  output.write(outcome.text);
  writeAll(STDERR_FILENO, outcome.remarks);
  return outcome.scriptCode.value_or(static_cast<int>(outcome.code));
}

}  // namespace

int main(int argc, char** argv) {
  Interrupt::install();
  try {
    return run(argc, argv);
  } catch (const Failure& failure) {
    printDiagnostic(lineOf(failure));
    return static_cast<int>(failure.code);
  } catch (const std::exception& error) {
    printDiagnostic(std::string("cannot go on: ") + error.what());
    return static_cast<int>(ExitCode::InputNotValid);
  }
}
