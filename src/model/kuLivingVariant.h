#pragma once

#include "model/kuVariantsExport.h"

class kuVariant;

/**
 * A variant for as long as it lives. Whoever sends messages in the midst of working with a variant
 * holds one, since a receiver may delete the variant. Stands on the stack only, main thread only.
 */
class KUVARIANTS_EXPORT kuLivingVariant {
 public:
  explicit kuLivingVariant(const kuVariant& variant);
  ~kuLivingVariant();
  kuLivingVariant(const kuLivingVariant&) = delete;
  kuLivingVariant& operator=(const kuLivingVariant&) = delete;

  /** The variant; null once it is deleted. */
  const kuVariant* get() const { return _variant; }

 private:
  friend class kuVariant;

  /** Told by a variant that is being deleted. */
  static void forget(const kuVariant* variant);

  static kuLivingVariant* _innermost;

  const kuVariant* _variant;
  kuLivingVariant* const _outer;
};
