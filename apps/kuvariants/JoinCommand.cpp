#include <QFile>
#include <QSysInfo>

#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Failure.h"
#include "joining/Participation.h"
#include "standalone/session/SessionOptions.h"

using kuStandalone::SessionOptions;
using kuStandalone::SessionSecret;

namespace {

/** What the command line says; secrets stand in files of their own. */
struct JoinOptions {
  QString url, name, user;
  std::string passwordFile, tokenFile, authorityFile;
  bool tls = false;
};

QString ownName() {
  const QString user = qEnvironmentVariable("USER", QStringLiteral("somebody"));
  return user + '@' + QSysInfo::machineHostName();
}

/** Without the secrets. */
SessionOptions sessionOptions(const JoinOptions& given) {
  SessionOptions options = SessionOptions::at(given.url);
  options.partner = given.name.isEmpty() ? ownName() : given.name;
  options.user = given.user;
  options.tls = options.tls || given.tls;
  options.caFile = QFile::decodeName(given.authorityFile.c_str());
  return options;
}

QString secretIn(const std::string& file) {
  if (file.empty()) return {};
  const SessionSecret secret = kuStandalone::readSecretFile(QFile::decodeName(file.c_str()));
  if (secret.error.isEmpty()) return secret.text;
  throw Failure{ExitCode::InputNotValid, "cannot read", secret.error.toStdString(), ""};
}

void checkReadable(const std::string& file) {
  QFile opened(QFile::decodeName(file.c_str()));
  if (file.empty() || opened.open(QIODevice::ReadOnly)) return;
  throw Failure{ExitCode::InputNotValid, "cannot read", file, opened.errorString().toStdString()};
}

Outcome join(const JoinOptions& given, const Invocation& invocation) {
  SessionOptions options = sessionOptions(given);
  options.password = secretIn(given.passwordFile);
  options.token = secretIn(given.tokenFile);
  checkReadable(given.authorityFile);
  return Participation(options, invocation).run();
}

CLI::Option* addFile(CLI::App& command, const char* option, std::string& file, const char* help) {
  return command
      .add_option_function<std::string>(
          option, [&file](const std::string& name) { file = fileName(name); }, help)
      ->type_name("FILE");
}

CLI::Option* addText(CLI::App& command, const char* option, QString& text, const char* help) {
  return command
      .add_option_function<std::string>(
          option,
          [&text](const std::string& given) { text = QString::fromStdString(unmarked(given)); },
          help)
      ->type_name("NAME");
}

void addOptions(CLI::App& command, JoinOptions& options) {
  addText(command, "--session", options.url,
          "The broker and the session's name:\nnats://HOST:PORT/NAME or tls://HOST:PORT/NAME")
      ->required()
      ->type_name("URL");
  addText(command, "--name", options.name, "How the partners see you, USER@HOST if not\ngiven");
  CLI::Option* user = addText(command, "--user", options.user, "The broker's user");
  addFile(command, "--password-file", options.passwordFile, "A file with the user's password")
      ->needs(user);
  addFile(command, "--token-file", options.tokenFile, "A file with the broker's token")
      ->excludes(user);
  command.add_flag("--tls", options.tls, "Encrypt, and check the broker's certificate");
  addFile(command, "--tls-ca", options.authorityFile,
          "Certificates to trust instead of the\nsystem's");
}

void checkOptions(const SessionOptions& options) {
  const QString fault = options.fault();
  if (!fault.isEmpty()) throw CLI::ValidationError("--session", fault.toStdString());
  if (options.caFile.isEmpty() || options.isEncrypted()) return;
  throw CLI::ValidationError("--tls-ca", "nothing is encrypted without --tls or tls://");
}

}  // namespace

void addJoinCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command = app.add_subcommand("join", "Take part in a live session");
  addSceneArgument(*command, invocation);
  addDocumentArgument(*command, invocation);
  const auto options = std::make_shared<JoinOptions>();
  addOptions(*command, *options);
  command->footer(
      "Reads lines from standard input; \"help\" tells what can be typed.\n\n"
      "Example:\n"
      "  kuvariants join car.gltf car.xml --session nats://127.0.0.1:4333/review");
  command->callback([&invocation, options] {
    checkOptions(sessionOptions(*options));
    invocation.run = [options](const Invocation& chosen) { return join(*options, chosen); };
  });
}
