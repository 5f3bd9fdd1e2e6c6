#pragma once

#include <functional>
#include <string>

#include "Selection.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

/**
 * KIND:NAME=STATE, split at the first ":" and at the first "=" behind it.
 * @param fault why the text is not of that form; empty if it is.
 */
StateRequest parseStateRequest(const QString& text, std::string& fault);

/** The same of an argument. Throws where the command line is wrong. */
StateRequest readStateRequest(const std::string& argument);

/** The option --variant, which may be repeated. */
CLI::Option& addVariantOption(CLI::App& command, const std::string& when,
                              const std::function<void(StateRequest)>& add);
