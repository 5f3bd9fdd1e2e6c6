#pragma once

#include <QFlags>
#include <QString>
#include <qnamespace.h>

#include "model/kuVariantsExport.h"

/** The one owner of all variants, variant sets and variant groups. All of it is static. */
class KUVARIANTS_EXPORT kuVariants {
 public:
  /**
   * Hotkey text to key and modifiers: the first key combination of the text as QKeySequence reads
   * it in its native form. Gives 0 and 0 for a text that is empty or cannot be read.
   */
  static void mapHotkey(const QString& hotkey, int& key,
                        QFlags<Qt::KeyboardModifier>& modifier);
};
