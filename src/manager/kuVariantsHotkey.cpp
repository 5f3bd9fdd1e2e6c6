#include <QKeySequence>

#include "manager/kuVariants.h"

void kuVariants::mapHotkey(const QString& hotkey, int& key,
                           QFlags<Qt::KeyboardModifier>& modifier) {
  constexpr unsigned keyBits = 0x1FFFFFF;
  constexpr unsigned modifierBits = 0xFE000000;
  const QKeySequence sequence(hotkey, QKeySequence::NativeText);
  // A text that cannot be read comes back as the unknown key, which no keyboard has.
  const bool readable = !sequence.isEmpty() && sequence[0] != Qt::Key_unknown;
  const unsigned combination = readable ? static_cast<unsigned>(sequence[0]) : 0;
  key = static_cast<int>(combination & keyBits);
  modifier = QFlags<Qt::KeyboardModifier>(static_cast<int>(combination & modifierBits));
}
