#include "session/kuSessionVariantCommand.h"

#include <QDataStream>

#include "host/session/kuSessionCommandFactory.h"
#include "model/kuLivingVariant.h"
#include "model/kuVariant.h"

namespace {

const kuSessionCommandFactory::Register<kuSessionVariantCommand> registered("SelectVariant");

}  // namespace

kuSessionVariantCommand::kuSessionVariantCommand(kuVariant* variant, const QString& state)
    : kuSessionCommand(true, true, false), newState(state) {
  if (!variant) return;
  variantName = variant->getName();
  currentState = variant->getCurrent();
  variantType = kuVariants::getVariantType(variant);
}

kuSessionVariantCommand* kuSessionVariantCommand::create() {
  return new kuSessionVariantCommand(nullptr, "");
}

void kuSessionVariantCommand::execute(kuSessionClient*) {
  kuVariant* variant = kuVariants::findVariant(variantType, variantName);
  if (!variant) return;
  // A receiver of the first selection may delete the variant.
  const kuLivingVariant living(*variant);
  if (variant->getCurrent() != currentState) variant->select(currentState);
  if (living.get()) variant->select(newState);
}

void kuSessionVariantCommand::writeKey(QDataStream& stream) const {
  stream << variantName << qint32(variantType);
}

void kuSessionVariantCommand::write(QDataStream& stream) const {
  stream << variantName << currentState << newState << qint32(variantType);
}

void kuSessionVariantCommand::read(QDataStream& stream) {
  qint32 type = UnknownVariantType;
  stream >> variantName >> currentState >> newState >> type;
  variantType = static_cast<VariantType>(type);
}
