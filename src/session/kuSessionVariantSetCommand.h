#pragma once

#include <QMap>
#include <QString>
#include <QVector>

#include "host/session/kuSessionCommand.h"
#include "model/kuVariantsExport.h"

class kuVariantSet;

/**
 * One variant set is selected on every machine of a session. It carries what the sender's scene
 * showed of the set before, and the set's place in its animations, so that all start from the same.
 */
class KUVARIANTS_EXPORT kuSessionVariantSetCommand final : public kuSessionCommand {
 public:
  /** Null gives a command that is good for its type alone. The flags are those of
   * kuVariantSet::select; they stay on this machine. */
  kuSessionVariantSetCommand(kuVariantSet* set, bool execute, bool skipViewpoint);

  /** A command to be read: a partner selects with all side effects and with the viewpoint. */
  static kuSessionVariantSetCommand* create();

  /** Brings this machine to where the sender was, and selects the set; its animations are at their
   * end at once while the client is still joining. Nothing for a set that the manager does not
   * have. */
  void execute(kuSessionClient* client) override;
  /** The set's name. */
  void writeKey(QDataStream& stream) const override;
  void write(QDataStream& stream) const override;
  /** Marks the stream as corrupt for a number of tables that it cannot hold. */
  void read(QDataStream& stream) override;

 private:
  QString variantSetName;
  int animationCursor = 0;
  bool selectExecute;
  bool selectSkipViewpoint;
  QVector<QMap<QString, QString>> currentState;
};
