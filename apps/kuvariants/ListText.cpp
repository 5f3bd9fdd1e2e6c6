#include "ListText.h"

#include <algorithm>

#include "Kinds.h"
#include "Page.h"
#include "Text.h"
#include "manager/kuVariants.h"
#include "model/kuVariant.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

namespace {

template <class List>
std::vector<std::string> names(const List& list) {
  std::vector<std::string> items;
  for (const QString& name : list)
    items.push_back(escaped(name));
  return items;
}

std::vector<std::string> pairs(const std::map<QString, QString>& map) {
  std::vector<std::string> items;
  for (const auto& pair : map)
    items.push_back(escaped(pair.first) + " = " + escaped(pair.second));
  return items;
}

std::string flags(const std::vector<std::string>& set) {
  std::string text;
  for (const std::string& flag : set)
    text += "  (" + flag + ")";
  return text;
}

std::string groupText(const kuVariantGroup& group) {
  std::string text = "  " + escaped(group.getName());
  if (!group.getVisible()) text += flags({"hidden"});
  text += '\n' + field("comment", group.getComment());
  std::vector<std::string> sets;
  for (const kuVariantSet* set : group.getVariantSets())
    sets.push_back(escaped(set->getName()));
  return text + field("sets", sets);
}

std::string statesText(const kuVariantSet& set) {
  std::string text;
  for (const Kind& kind : kinds()) {
    std::vector<std::string> items;
    for (const kuVariantState& state : kind.statesOf(set)) {
      items.push_back(escaped(state.getVariant()) + " = " + escaped(state.getState()));
    }
    text += field(kind.name, items);
  }
  return text;
}

std::vector<std::string> viewpoints(const kuVariantSet& set) {
  std::vector<std::string> items = names(set.getViewpoints());
  const QString& standard = set.getDefaultViewpoint();
  if (!standard.isEmpty()) items.push_back("finally " + escaped(standard));
  return items;
}

std::string animations(const kuVariantSet& set) {
  return field(set.getSequentialAnimation() ? "in turn" : "animations", names(set.getAnimations()));
}

QString scriptSize(const QString& script) {
  if (script.isEmpty()) return {};
  const int lines = script.trimmed().count(QLatin1Char('\n')) + 1;
  return lines == 1 ? QStringLiteral("1 line") : QStringLiteral("%1 lines").arg(lines);
}

QString clipping(const kuVariantSet& set) {
  switch (set.getClippingState()) {
    case 1:
      return QStringLiteral("on");
    case 2:
      return QStringLiteral("off");
    case 3:
      return QStringLiteral("moves the plane");
    default:
      return {};
  }
}

std::string setText(const kuVariantSet& set) {
  std::string text = "  " + escaped(set.getName());
  if (set.getGroup()) text += "  in " + escaped(set.getGroup()->getName());
  text += '\n';
  text += field("comment", set.getComment());
  text += field("hotkey", set.getHotkey());
  text += statesText(set);
  text += field("viewpoints", viewpoints(set));
  text += animations(set);
  text += field("script", scriptSize(set.getScript()));
  text += field("clipping", clipping(set));
  text += field("geometries", names(set.getGeometries()));
  text += field("targets", names(set.getTargetNodeNames()));
  text += field("values", pairs(set.getValues()));
  return text + field("snapshots", pairs(set.getMaterialSnapshots()));
}

std::string optionText(const kuVariantOption& option) {
  const std::string name = escaped(option.getName());
  return option.getHotkey().isEmpty() ? name : name + " [" + escaped(option.getHotkey()) + "]";
}

std::string variantText(const Kind& kind, const kuVariant& variant) {
  std::string text = "  " + std::string(kind.name) + ' ' + escaped(variant.getName());
  const QString base = kind.baseOf(variant);
  if (base != variant.getName()) text += "  on " + escaped(base);
  text += '\n' + field("current", variant.getCurrent());
  text += field("default", variant.getDefault());
  std::vector<std::string> options;
  for (const kuVariantOption& option : variant.getOptions())
    options.push_back(optionText(option));
  return text + field("options", options);
}

}  // namespace

std::string listText() {
  std::string groups, sets, variants;
  for (const kuVariantGroup* group : kuVariants::getVariantGroups())
    groups += groupText(*group);
  for (const kuVariantSet* set : kuVariants::getVariantSets())
    sets += setText(*set);
  for (const Kind& kind : kinds()) {
    for (const kuVariant* variant : kind.variants())
      variants += variantText(kind, *variant);
  }
  std::string text =
      section("Groups", groups) + section("Sets", sets) + section("Variants", variants);
  if (text.empty()) return "The document holds nothing.\n";
  text.pop_back();
  return text;
}
