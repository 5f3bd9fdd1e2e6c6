#include "model/kuVariantState.h"

#include "model/kuVariant.h"

kuVariantState::kuVariantState(kuVariant* of) : variant(of->getName()), state(of->getDefault()) {}

kuVariantState::kuVariantState(kuVariant* of, const QString& stateName)
    : variant(of->getName()), state(stateName) {}
