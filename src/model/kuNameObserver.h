#pragma once

#include <QString>

#include "model/kuVariantsExport.h"

/**
 * Hears that a variant, set or group was renamed. The manager observes what stands in its lists,
 * so that its look-ups by name stay right without a search.
 */
class KUVARIANTS_EXPORT kuNameObserver {
 public:
  /** @param object the kuVariant, kuVariantSet or kuVariantGroup; it bears @p newName already. */
  virtual void renamed(const void* object, const QString& oldName, const QString& newName) = 0;

 protected:
  ~kuNameObserver() = default;
};
