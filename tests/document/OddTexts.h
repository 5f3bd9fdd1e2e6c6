#pragma once

#include <vector>

#include "DocumentModel.h"

/** Texts that a document has to carry and might spoil; the first is empty. None is "(being made)".
 */
const std::vector<QString>& oddTexts();

/** Hotkeys in spellings of all sorts, with what a reload makes of them. */
const std::vector<DocumentModel::Hotkey>& oddHotkeys();

/** Floats at the edges of six significant digits and of what a float is. */
const std::vector<float>& oddFloats();
