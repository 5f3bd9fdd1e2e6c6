#pragma once

#include <QString>
#include <vector>

#include "model/kuObservedName.h"
#include "model/kuVariantOption.h"
#include "model/kuVariantsExport.h"

/**
 * A named thing of the scene that can be put into one of several named states. The five kinds
 * derive from it and decide what a state means in the scene; in this base class a selection does
 * nothing. The variants of a running application are owned by kuVariants.
 *
 * The current state is stored nowhere: it is always read from the scene.
 */
class KUVARIANTS_EXPORT kuVariant {
 public:
  kuVariant() = default;
  kuVariant(const kuVariant&) = default;
  kuVariant& operator=(const kuVariant&) = default;
  virtual ~kuVariant();

  const QString& getName() const { return name.text(); }
  /** Renames the variant. Sets that name it do not follow, and the name need not be unique. */
  void setName(const QString& newName) { name.set(newName); }

  /** Name of the default state; nothing requires it to be one of the options. */
  const QString& getDefault() const { return defaultState; }
  void setDefault(const QString& state) { defaultState = state; }
  void setDefault(const kuVariantOption& option) { defaultState = option.getName(); }

  /** The state that the scene stands in; empty where it cannot be told. */
  QString getCurrent() const { return onCurrent(); }

  /** The options in the order in which they were added. */
  const std::vector<kuVariantOption>& getOptions() const { return options; }

  /** Appends an option that is a state; one of that name stays as it is. */
  void add(const QString& option, const QString& hotkey);
  /** The same with the given action flag. */
  void add(bool action, const QString& option, const QString& hotkey);
  /** Takes out the first option of that name, if there is one. */
  void remove(const QString& option);
  /** The first option of that name, good until the options change; null if there is none, and for
   * the empty name. */
  kuVariantOption* find(const QString& option);
  /** Whether the option of that name is a step; false if there is none. */
  bool isAction(const QString& option);
  /** Removes all options; name and default stay. */
  void clear();

  /** Selects the default state. */
  void select();
  void select(const kuVariantOption& option);
  /**
   * Puts the scene into a state. What is no option goes through as well: the kind decides what it
   * means. In a session the variants of that name go there on every machine.
   */
  void select(const QString& state);

 protected:
  virtual void onSelect(const QString& state);
  virtual QString onCurrent() const;

 private:
  friend class kuVariantReader;
  template <class Entry>
  friend class kuNamedList;
  friend struct kuVariantsTestAccess;

  /** Appends an option, for callers who know that there is none of that name. */
  void append(bool action, const QString& option, const QString& hotkey);

  kuObservedName name;
  QString defaultState;
  std::vector<kuVariantOption> options;
};
