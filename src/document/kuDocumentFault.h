#pragma once

#include <QString>
#include <optional>
#include <string_view>

#include "model/kuVariantsExport.h"

/** What is wrong with a document, and where; lines and columns from 1. */
struct kuDocumentFault {
  QString text;
  int line = 1;
  int column = 1;
};

/**
 * Looks for what must not reach the parser, since it would cost memory or stack without measure:
 * declarations of entities, more than 500 nested elements, an encoding that hides these from a look
 * at the bytes, a text beyond 512 MB. One pass over the text; what else may be wrong with it is the
 * parser's to tell.
 */
KUVARIANTS_EXPORT std::optional<kuDocumentFault> kuFindDocumentFault(std::string_view text);
