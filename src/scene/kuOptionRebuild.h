#pragma once

#include <map>

#include "model/kuVariant.h"

/** Adds the four step keywords as actions without hotkeys. */
void kuAddStepKeywords(kuVariant& variant);

/**
 * The options of a variant while they are rebuilt from the scene. It empties the list when it is
 * made, and remembers what was there so that hotkeys survive.
 */
class kuOptionRebuild {
 public:
  explicit kuOptionRebuild(kuVariant& variant);

  /** Adds a state: as it was, or if it is new as a normal option without a hotkey. */
  void addState(const QString& name);

  /**
   * Adds a step or "!Toggle": with the hotkey it had, as an action. One that is new becomes a
   * normal option, unlike in a variant that is made from the scene; hosts rely on that.
   */
  void addAction(const QString& name);

  /** Adds the four step keywords by addAction. */
  void addSteps();

  /**
   * Puts the former default back if it is a state of the new list. Answers false, and leaves the
   * default alone, if it was empty, is gone or is an action.
   */
  bool restoreDefault();

 private:
  kuVariant& _variant;
  std::map<QString, kuVariantOption> _formerOptions;
  QString _formerDefault;
};
