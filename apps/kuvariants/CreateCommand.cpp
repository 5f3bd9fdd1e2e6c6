#include <CLI/CLI.hpp>
#include <algorithm>

#include "Commands.h"
#include "Creation.h"
#include "JsonWriter.h"
#include "Kinds.h"
#include "Page.h"
#include "Text.h"
#include "manager/kuVariants.h"
#include "model/kuVariant.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

namespace {

template <class List>
void writeNames(JsonWriter& json, const char* key, const List& list) {
  json.key(key);
  json.array(
      list, [&](const auto* one) { json.value(one->getName()); }, JsonWriter::Layout::OneLine);
}

// The manager was empty, so what it holds is what was made.

std::string creationJson() {
  JsonWriter json;
  json.object([&] {
    writeNames(json, "groups", kuVariants::getVariantGroups());
    writeNames(json, "sets", kuVariants::getVariantSets());
    json.key("variants");
    json.object([&] {
      for (const Kind& kind : kinds())
        writeNames(json, kind.name, kind.variants());
    });
  });
  return json.text() + '\n';
}

/** The first names, and how many more there are: "list" shows all. */
template <class List>
std::vector<std::string> namesInShort(const List& list) {
  constexpr std::size_t most = 20;
  std::vector<std::string> names;
  for (const auto* one : list) {
    if (names.size() == most) {
      names.push_back("and " + std::to_string(list.size() - most) + " more");
      break;
    }
    names.push_back(escaped(one->getName()));
  }
  return names;
}

/** "    node            5  Roof, Doors". */
template <class List>
std::string row(const std::string& label, const List& list) {
  constexpr std::size_t labelEnd = 14, countEnd = 21;
  std::string lead = "    " + label;
  const std::string count = std::to_string(list.size());
  lead.append(std::max(labelEnd, countEnd - count.size()) - lead.size(), ' ');
  lead += count + "  ";
  return lead + wrapped(namesInShort(list), static_cast<int>(lead.size()));
}

std::string creationText() {
  std::string variants, groups;
  for (const Kind& kind : kinds()) {
    if (!kind.variants().empty()) variants += row(kind.name, kind.variants());
  }
  for (const kuVariantGroup* group : kuVariants::getVariantGroups())
    groups += "  " + escaped(group->getName()) + '\n' + row("sets", group->getVariantSets());
  if (variants.empty() && groups.empty()) {
    return "Nothing in the scene can vary: the document is empty.\n";
  }
  const std::string text = section("Variants", variants) + section("Groups", groups);
  return text.substr(0, text.size() - 1);
}

}  // namespace

void addCreateCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command = app.add_subcommand("create", "Make a document for what a scene can vary");
  addSceneArgument(*command, invocation);
  addSaveDocumentOption(*command, invocation).required();
  command->footer("Example:\n  kuvariants create car.gltf -o car.xml");
  command->callback([&invocation] {
    invocation.run = [](const Invocation& chosen) {
      createFromScene(chosen.scene);
      return chosen.common.json ? creationJson() : creationText();
    };
  });
}
