#include "ListText.h"

#include <algorithm>

#include "Kinds.h"
#include "Text.h"
#include "manager/kuVariants.h"
#include "model/kuVariant.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

namespace {

constexpr int width = 80;
constexpr int labelWidth = 12;

/** Items joined by ", ", broken to lines of the page's width behind an indentation. */
std::string wrapped(const std::vector<std::string>& items, int indent) {
  std::string text;
  int column = indent;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const bool last = i + 1 == items.size();
    const int length = QString::fromStdString(items[i]).size() + (last ? 0 : 1);
    if (i > 0 && column + 1 + length > width) {
      text += '\n' + std::string(static_cast<std::size_t>(indent), ' ');
      column = indent;
    } else if (i > 0) {
      text += ' ';
      ++column;
    }
    text += items[i] + (last ? "" : ",");
    column += length;
  }
  return text + '\n';
}

/** "    label       items". Nothing where there are no items. */
std::string field(const std::string& label, const std::vector<std::string>& items) {
  if (items.empty()) return {};
  const int indent = 4 + labelWidth;
  std::string lead = "    " + label;
  lead.resize(static_cast<std::size_t>(indent), ' ');
  return lead + wrapped(items, indent);
}

std::string field(const std::string& label, const QString& text) {
  return text.isEmpty() ? std::string() : field(label, {escaped(text)});
}

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

/** A heading and what stands below it; nothing where that is empty. */
std::string section(const std::string& heading, const std::string& content) {
  return content.empty() ? std::string() : heading + '\n' + content + '\n';
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
