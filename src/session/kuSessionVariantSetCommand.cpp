#include "session/kuSessionVariantSetCommand.h"

#include <QDataStream>
#include <QIODevice>
#include <cstdint>

#include "host/session/kuSessionClient.h"
#include "host/session/kuSessionCommandFactory.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

namespace {

using Table = QMap<QString, QString>;

const kuSessionCommandFactory::Register<kuSessionVariantSetCommand> registered("SelectVariantSet");

/** The entries from the last key to the first, as the stream operator of QMap has them. */
void writeTable(QDataStream& stream, const Table& table) {
  stream << qint32(table.size());
  for (auto entry = table.end(); entry != table.begin();) {
    --entry;
    stream << entry.key() << entry.value();
  }
}

/** Whether that many tables may still come; each has at least its own number of entries. */
bool mayHold(const QDataStream& stream, qint32 tables) {
  const qint64 bytes = stream.device() ? stream.device()->bytesAvailable() : 0;
  return tables >= 0 && tables <= bytes / qint64(sizeof(qint32));
}

}  // namespace

kuSessionVariantSetCommand::kuSessionVariantSetCommand(kuVariantSet* set, bool execute,
                                                       bool skipViewpoint)
    : kuSessionCommand(true, true, false),
      selectExecute(execute),
      selectSkipViewpoint(skipViewpoint) {
  if (!set) return;
  variantSetName = set->getName();
  set->getCurrentState(currentState, animationCursor);
}

kuSessionVariantSetCommand* kuSessionVariantSetCommand::create() {
  return new kuSessionVariantSetCommand(nullptr, true, false);
}

void kuSessionVariantSetCommand::execute(kuSessionClient* client) {
  kuVariantSet* set = kuVariants::findVariantSet(variantSetName);
  if (!set) return;
  const bool joined = client->isJoinCompleted();
  const std::uint32_t id = set->id();
  set->setCurrentState(currentState, animationCursor);
  // A receiver of these selections may remove the set.
  set = kuVariants::getVariantSet(id);
  if (set) set->select(selectExecute, selectSkipViewpoint, !joined);
}

void kuSessionVariantSetCommand::writeKey(QDataStream& stream) const { stream << variantSetName; }

void kuSessionVariantSetCommand::write(QDataStream& stream) const {
  stream << variantSetName << qint32(animationCursor) << qint32(currentState.size());
  for (const Table& table : currentState)
    writeTable(stream, table);
}

void kuSessionVariantSetCommand::read(QDataStream& stream) {
  qint32 cursor = 0, tables = 0;
  stream >> variantSetName >> cursor >> tables;
  animationCursor = cursor;
  if (!mayHold(stream, tables)) {
    stream.setStatus(QDataStream::ReadCorruptData);
    return;
  }
  currentState.resize(tables);
  for (Table& table : currentState)
    stream >> table;
}
