#include "support/SessionNotes.h"

#include <QDataStream>

#include "host/session/kuSession.h"
#include "host/session/kuSessionClient.h"
#include "host/session/kuSessionCommandFactory.h"

namespace {

const kuSessionCommandFactory::Register<NoteCommand> note("Note");
const kuSessionCommandFactory::Register<PassingNoteCommand> passing("PassingNote");
const kuSessionCommandFactory::Register<UrgentNoteCommand> urgent("UrgentNote");
const kuSessionCommandFactory::Register<DistantNoteCommand> distant("DistantNote");
const kuSessionCommandFactory::Register<NestingNoteCommand> nesting("NestingNote");

}  // namespace

QStringList& sessionNotes() {
  static QStringList notes;
  return notes;
}

void NoteBase::execute(kuSessionClient* client) {
  const QString when = client->isJoinCompleted() ? QString() : QStringLiteral(" (joining)");
  sessionNotes() << _target + "=" + _text + mark + when;
}

void NoteBase::writeKey(QDataStream& stream) const { stream << _target; }

void NoteBase::write(QDataStream& stream) const { stream << _target << _text; }

void NoteBase::read(QDataStream& stream) { stream >> _target >> _text; }

void NestingNoteCommand::execute(kuSessionClient* client) {
  NoteBase::execute(client);
  NoteCommand inner("Inner", "1");
  kuSession::the().isReadyToUse() ? kuSession::the().pushCommand(inner) : inner.execute(client);
}
