#include "VariantOption.h"

#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Text.h"

StateRequest parseStateRequest(const QString& text, std::string& fault) {
  const int colon = text.indexOf(QLatin1Char(':'));
  const int equals = text.indexOf(QLatin1Char('='), colon + 1);
  const Kind* kind = colon < 0 ? nullptr : findKind(text.left(colon));
  if (colon < 0 || equals < 0) {
    fault = "not of the form KIND:NAME=STATE: " + escaped(text);
  } else if (!kind) {
    fault = "KIND is node, material, transform, light or overlay: " + escaped(text);
  }
  return {kind, text.mid(colon + 1, equals - colon - 1), text.mid(equals + 1)};
}

StateRequest readStateRequest(const std::string& argument) {
  std::string fault;
  const StateRequest request = parseStateRequest(QString::fromStdString(unmarked(argument)), fault);
  if (!fault.empty()) throw CLI::ValidationError("--variant", fault);
  return request;
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
              ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
              ->expected(1)
              ->allow_extra_args(false);
}
