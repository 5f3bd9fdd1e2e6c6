#pragma once

#include <QString>

#include "host/session/kuSessionCommand.h"
#include "manager/kuVariants.h"

/**
 * One variant goes to one state on every machine of a session. It carries the state that the
 * sender's variant left, so that a step such as "!Next" leads to the same state everywhere.
 */
class KUVARIANTS_EXPORT kuSessionVariantCommand final : public kuSessionCommand {
 public:
  /** Null gives a command that is good for its type alone. */
  kuSessionVariantCommand(kuVariant* variant, const QString& state);

  /** A command to be read. */
  static kuSessionVariantCommand* create();

  /** Puts the variant into the sender's old state, if it stands in another, and then into the new
   * one. Nothing for a variant that the manager does not have. */
  void execute(kuSessionClient* client) override;
  /** The variant's name and kind. */
  void writeKey(QDataStream& stream) const override;
  void write(QDataStream& stream) const override;
  void read(QDataStream& stream) override;

 private:
  VariantType variantType = UnknownVariantType;
  QString variantName;
  QString currentState;
  QString newState;
};
