#include "standalone/session/SessionCommand.h"

#include "standalone/session/Session.h"
#include "standalone/session/SessionClient.h"
#include "standalone/session/SessionStream.h"

namespace kuStandalone {

namespace {

int& running() {
  static int depth = 0;
  return depth;
}

MadeCommand notMade(const QString& reason) {
  return {kuSessionCommandFactory::Command(nullptr, [](kuSessionCommand*) {}), reason};
}

QByteArray written(const kuSessionCommand& command,
                   void (kuSessionCommand::*write)(QDataStream&) const) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  prepareSessionStream(stream);
  (command.*write)(stream);
  return bytes;
}

}  // namespace

MadeCommand makeCommand(const SessionFrame& frame) {
  kuSessionCommandFactory::Command command =
      kuSessionCommandFactory::the().create(frame.type.toStdString());
  if (!command) return notMade(QStringLiteral("the command %1 is unknown").arg(frame.type));
  QDataStream stream(frame.payload);
  prepareSessionStream(stream);
  command->read(stream);
  if (stream.status() != QDataStream::Ok || !stream.atEnd()) {
    return notMade(QStringLiteral("the command %1 cannot be read").arg(frame.type));
  }
  return {std::move(command), QString()};
}

QByteArray payloadOf(const kuSessionCommand& command) {
  return written(command, &kuSessionCommand::write);
}

QByteArray keyOf(const kuSessionCommand& command) {
  return written(command, &kuSessionCommand::writeKey);
}

bool CommandRun::isRunning() { return running() > 0; }

void CommandRun::run(kuSessionCommand& command) {
  const Mark mark;
  const Session* session = Session::present();
  SessionClient client(!session || session->isJoinCompleted());
  command.execute(&client);
}

CommandRun::Mark::Mark() { ++running(); }

CommandRun::Mark::~Mark() { --running(); }

}  // namespace kuStandalone
