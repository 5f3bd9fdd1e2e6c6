#include "model/kuLivingVariant.h"

kuLivingVariant* kuLivingVariant::_innermost = nullptr;

kuLivingVariant::kuLivingVariant(const kuVariant& variant)
    : _variant(&variant), _outer(_innermost) {
  _innermost = this;
}

kuLivingVariant::~kuLivingVariant() { _innermost = _outer; }

void kuLivingVariant::forget(const kuVariant* variant) {
  for (kuLivingVariant* living = _innermost; living; living = living->_outer) {
    if (living->_variant == variant) living->_variant = nullptr;
  }
}
