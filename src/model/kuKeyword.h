#pragma once

#include <QString>

#include "model/kuVariantsExport.h"

/**
 * The option names with a meaning of their own. They stand beside the real states of a variant and
 * begin with an exclamation mark; which kind obeys which of them is told by the kinds.
 */
enum class kuKeyword {
  All,           ///< "!All": show all children
  None,          ///< "!None": show no child
  Enable,        ///< "!Enable": turn on
  Disable,       ///< "!Disable": turn off
  Toggle,        ///< "!Toggle": turn to the opposite
  Next,          ///< "!Next": one on; stops at the last
  NextLoop,      ///< "!Next (Loop)": one on; after the last comes the first
  Previous,      ///< "!Previous": one back; stops at the first
  PreviousLoop,  ///< "!Previous (Loop)": one back; before the first comes the last
  NoKeyword      ///< any other text: the name of a state
};

/** The four keywords that step, in the order in which every kind lists them. */
constexpr kuKeyword kuStepKeywords[] = {kuKeyword::Next, kuKeyword::NextLoop, kuKeyword::Previous,
                                        kuKeyword::PreviousLoop};

/** Which keyword the text is; it must equal it to the letter. */
KUVARIANTS_EXPORT kuKeyword kuKeywordOf(const QString& text);

/** The text of a keyword; empty for NoKeyword. */
KUVARIANTS_EXPORT QString kuKeywordText(kuKeyword keyword);
