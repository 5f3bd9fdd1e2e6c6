#pragma once

#include <map>

#include "model/kuVariant.h"

/**
 * A variant over the named transform states of the nodes of one name. It works out the index of a
 * state and leaves the switching to the host's transform service; its selection sends no message.
 * The present state is the one that the node is meant to stand in.
 */
class KUVARIANTS_EXPORT kuTransformVariant : public kuVariant {
 public:
  kuTransformVariant() = default;
  /** Takes name and options from the nodes of that name; an empty one leaves all empty. */
  explicit kuTransformVariant(const QString& nodeName);

  /** Name of the nodes that this variant drives. */
  QString getNode() const { return node; }
  void setNode(const QString& newNode) { node = newNode; }

  /**
   * Rebuilds the options from the first node that has transform states, and keeps the hotkeys of
   * those that remain. Without one the options are empty and the default stays.
   */
  void updateVariants();

 protected:
  /** The host must have a transform service. */
  void onSelect(const QString& state) override;
  QString onCurrent() const override;

 private:
  friend class kuVariantReader;
  friend struct kuVariantsTestAccess;

  void addOption(bool action, QString option, const std::map<QString, kuVariantOption>& old);

  QString node;
};
