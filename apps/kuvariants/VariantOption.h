#pragma once

#include <functional>
#include <string>

#include "Selection.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

/** KIND:NAME=STATE, split at the first ":" and at the first "=" behind it. Throws where the command
 * line is wrong. */
StateRequest readStateRequest(const std::string& argument);

/** The option --variant, which may be repeated. */
CLI::Option& addVariantOption(CLI::App& command, const std::string& when,
                              const std::function<void(StateRequest)>& add);
