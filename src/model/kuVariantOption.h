#pragma once

#include <qnamespace.h>
#include <QFlags>
#include <QString>

#include "model/kuVariantsExport.h"

/**
 * One state that a variant can be put into, with the hotkey that does it. A plain value.
 *
 * An option that is an action is a step ("the next one") and no state of its own: the scene is
 * never found standing in it.
 */
class KUVARIANTS_EXPORT kuVariantOption {
 public:
  kuVariantOption() = default;
  kuVariantOption(const QString& name);
  /** Beware of two literals as arguments: the first would be taken for a bool. Wrap the name in a
   * QString. */
  kuVariantOption(bool action, const QString& name);
  kuVariantOption(const QString& name, const QString& hotkey);
  kuVariantOption(bool action, const QString& name, const QString& hotkey);

  const QString& getName() const { return name; }
  void setName(const QString& newName) { name = newName; }

  /** The hotkey in its text form, as it was given. */
  const QString& getHotkey() const { return hotkey; }
  /** Stores the text and derives key and modifiers from it; 0 and 0 where it cannot be read. */
  void setHotkey(const QString& text);

  bool getAction() const { return action; }
  void setAction(bool isAction) { action = isAction; }

  /** The key code of the hotkey's first combination; 0 without one. */
  int getShortcutKey() const { return shortcutKey; }
  /** The modifiers of the hotkey's first combination. */
  QFlags<Qt::KeyboardModifier> getShortcutModifier() const { return shortcutModifier; }

 private:
  void updateShortcut();

  QString name;
  QString hotkey;
  int shortcutKey = 0;
  QFlags<Qt::KeyboardModifier> shortcutModifier;
  bool action = false;
};
