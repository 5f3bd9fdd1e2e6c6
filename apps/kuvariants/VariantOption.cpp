#include "VariantOption.h"

#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Text.h"

StateRequest readStateRequest(const std::string& argument) {
  const QString text = QString::fromStdString(unmarked(argument));
  const int colon = text.indexOf(QLatin1Char(':'));
  const int equals = text.indexOf(QLatin1Char('='), colon + 1);
  if (colon < 0 || equals < 0) {
    throw CLI::ValidationError("--variant", "not of the form KIND:NAME=STATE: " + escaped(text));
  }
  const Kind* kind = findKind(text.left(colon));
  if (!kind) {
    throw CLI::ValidationError(
        "--variant", "KIND is node, material, transform, light or overlay: " + escaped(text));
  }
  return {kind, text.mid(colon + 1, equals - colon - 1), text.mid(equals + 1)};
}

CLI::Option& addVariantOption(CLI::App& command, const std::string& when,
                              const std::function<void(StateRequest)>& add) {
  return *command
              .add_option_function<std::vector<std::string>>(
                  "--variant",
                  [add](const std::vector<std::string>& requests) {
                    for (const std::string& one : requests)
                      add(readStateRequest(one));
                  },
                  "Put one variant into a state, " + when +
                      ";\nKIND is node, material, transform, light or\noverlay; may be repeated")
              ->type_name("KIND:NAME=STATE")
              ->allow_extra_args(false)
              ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}
