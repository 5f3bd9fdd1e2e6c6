#include <CLI/CLI.hpp>
#include <QFile>
#include <cstdio>

#include "Commands.h"
#include "Failure.h"
#include "PrintedText.h"
#include "ScratchFile.h"
#include "VerifyReport.h"
#include "document/kuVariantVerifier.h"

namespace {

/** The library's report, byte for byte; the library prints its lines meanwhile. */
std::string makeReport() {
  const ScratchFile file;
  const bool finished = kuVariantVerifier().verify(QFile::decodeName(file.path().c_str()));
  std::fflush(stdout);
  if (finished) return file.content();
  throw Failure{ExitCode::OutputNotWritten, "cannot write", "report",
                "the check did not come to its end"};
}

/** With JSON the library's lines go where everything goes that it prints, to standard error. */
Outcome verify(const Invocation& invocation) {
  Outcome outcome;
  std::optional<PrintedText> lines;
  if (!invocation.common.json) lines.emplace();
  outcome.report = makeReport();
  const VerifyFindings findings = findAll();
  outcome.text = lines ? lines->text() : verifyJson(findings);
  outcome.remarks = verifySummary(findings);
  if (countErrors(findings)) outcome.code = ExitCode::Findings;
  return outcome;
}

}  // namespace

void addVerifyCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command = app.add_subcommand("verify", "Check that sets, variants and scene agree");
  addSceneArgument(*command, invocation);
  addDocumentArgument(*command, invocation);
  command
      ->add_option_function<std::string>(
          "-o", [&](const std::string& file) { invocation.saveReport = fileName(file); },
          "Write the report to this file as well")
      ->type_name("REPORT");
  command->footer(
      "Exit code 1 where there are errors.\n\n"
      "Example:\n  kuvariants verify car.gltf car.xml -o report.csv");
  command->callback([&invocation] { invocation.run = verify; });
}
