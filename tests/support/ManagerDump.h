#pragma once

#include <string>

class kuVariantSet;

/**
 * Everything that the manager holds, as text: groups with the names of their sets, sets with all
 * fields, variants with their options. One line per field that is not as in a new object, so that a
 * test states what differs:
 *
 *   group G visible=0
 *     set A
 *   set A
 *     node Roof=Open
 *   nodeVariant Roof base=Roof default=Open
 *     option Open hotkey=Ctrl+A
 */
std::string managerDump();

/** One set of it. */
std::string setDump(const kuVariantSet& set);
