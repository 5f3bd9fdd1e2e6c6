#pragma once

#include <string>
#include <vector>

#include "model/kuVariant.h"

/** The options of a variant, one text each: "Red", "Red [F5]" with its hotkey, "!Next *" for an
 * action. */
inline std::vector<std::string> optionTexts(const kuVariant& variant) {
  std::vector<std::string> texts;
  for (const kuVariantOption& option : variant.getOptions()) {
    QString text = option.getName();
    if (option.getAction()) text += " *";
    if (!option.getHotkey().isEmpty()) text += " [" + option.getHotkey() + "]";
    texts.push_back(text.toStdString());
  }
  return texts;
}
