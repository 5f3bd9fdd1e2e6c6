#include <QKeySequence>

#include "manager/kuVariants.h"

void kuVariants::mapHotkey(const QString& hotkey, int& key,
                           QFlags<Qt::KeyboardModifier>& modifier) {
  constexpr unsigned keyBits = 0x1FFFFFF;
  constexpr unsigned modifierBits = 0xFE000000;
  const QKeySequence sequence(hotkey, QKeySequence::NativeText);
  const unsigned combination = sequence.isEmpty() ? 0 : static_cast<unsigned>(sequence[0]);
  key = static_cast<int>(combination & keyBits);
  modifier = QFlags<Qt::KeyboardModifier>(static_cast<int>(combination & modifierBits));
}
