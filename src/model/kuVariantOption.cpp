#include "model/kuVariantOption.h"

#include "manager/kuVariants.h"

kuVariantOption::kuVariantOption(const QString& optionName) : name(optionName) {}

kuVariantOption::kuVariantOption(bool isAction, const QString& optionName)
    : name(optionName), action(isAction) {}

kuVariantOption::kuVariantOption(const QString& optionName, const QString& text)
    : name(optionName), hotkey(text) {
  updateShortcut();
}

kuVariantOption::kuVariantOption(bool isAction, const QString& optionName, const QString& text)
    : name(optionName), hotkey(text), action(isAction) {
  updateShortcut();
}

void kuVariantOption::setHotkey(const QString& text) {
  hotkey = text;
  updateShortcut();
}

void kuVariantOption::updateShortcut() {
  kuVariants::mapHotkey(hotkey, shortcutKey, shortcutModifier);
}
