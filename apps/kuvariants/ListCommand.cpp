#include <CLI/CLI.hpp>

#include "Commands.h"
#include "JsonWriter.h"
#include "Kinds.h"
#include "ListText.h"
#include "manager/kuVariants.h"
#include "model/kuVariant.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

namespace {

using Layout = JsonWriter::Layout;

void writeGroup(JsonWriter& json, const kuVariantGroup& group) {
  json.object([&] {
    json.entry("name", group.getName());
    json.entry("comment", group.getComment());
    json.entry("visible", group.getVisible());
    json.entry("showInVRMenu", group.getShowInVRMenu());
    json.entry("syncInCollaboration", group.getSyncInCollaboration());
    json.key("sets");
    json.array(
        group.getVariantSets(), [&](const kuVariantSet* set) { json.value(set->getName()); },
        Layout::OneLine);
  });
}

template <class List>
void writeNames(JsonWriter& json, const char* key, const List& names) {
  json.key(key);
  json.list(names);
}

void writePairs(JsonWriter& json, const char* key, const std::map<QString, QString>& pairs) {
  json.key(key);
  json.object([&] {
    for (const auto& pair : pairs)
      json.entry(pair.first, pair.second);
  });
}

void writeStates(JsonWriter& json, const kuVariantSet& set) {
  json.key("states");
  json.object([&] {
    for (const Kind& kind : kinds()) {
      json.key(kind.name);
      json.array(kind.statesOf(set), [&](const kuVariantState& state) {
        json.list(std::array<QString, 2>{state.getVariant(), state.getState()});
      });
    }
  });
}

void writeCaptured(JsonWriter& json, const kuVariantSet& set) {
  bool nodes, materials, lights, environments, viewpoints, sceneplates;
  set.getInclInfo(nodes, materials, lights, environments, viewpoints, sceneplates);
  json.key("captured");
  json.object([&] {
    json.entry("nodes", nodes);
    json.entry("materials", materials);
    json.entry("lights", lights);
    json.entry("environments", environments);
    json.entry("viewpoints", viewpoints);
    json.entry("sceneplates", sceneplates);
  });
}

void writeVector(JsonWriter& json, const char* key, const osg::Vector<float, 3>& vector) {
  json.key(key);
  json.list(std::array<float, 3>{vector[0], vector[1], vector[2]});
}

void writeClipping(JsonWriter& json, const kuVariantSet& set) {
  json.key("clipping");
  json.object([&] {
    json.entry("state", set.getClippingState());
    writeVector(json, "planePosition", set.getClippingPlanePosition());
    writeVector(json, "planeNormal", set.getClippingPlaneNormal());
    json.entry("invert", set.getClippingInvert());
    json.entry("hideScene", set.getClippingHideScene());
    json.entry("showPlane", set.getClippingShowPlane());
    writeVector(json, "planeColor", set.getClippingPlaneColor());
    json.entry("showGrid", set.getClippingShowGrid());
    writeVector(json, "gridColor", set.getClippingGridColor());
    json.entry("showContour", set.getClippingShowContour());
    writeVector(json, "contourColor", set.getClippingContourColor());
    json.entry("contourWidth", set.getClippingContourWidth());
  });
}

void writeSet(JsonWriter& json, const kuVariantSet& set) {
  json.object([&] {
    json.entry("name", set.getName());
    json.key("group");
    set.getGroup() ? json.value(set.getGroup()->getName()) : json.null();
    json.entry("comment", set.getComment());
    json.entry("hotkey", set.getHotkey());
    writeNames(json, "viewpoints", set.getViewpoints());
    json.entry("defaultViewpoint", set.getDefaultViewpoint());
    writeNames(json, "animations", set.getAnimations());
    json.entry("sequentialAnimation", set.getSequentialAnimation());
    json.entry("script", set.getScript());
    writeStates(json, set);
    json.entry("showInVRMenu", set.getShowInVRMenu());
    json.entry("syncInCollaboration", set.getSyncInCollaboration());
    writeNames(json, "geometries", set.getGeometries());
    writeNames(json, "targetNodeNames", set.getTargetNodeNames());
    writePairs(json, "values", set.getValues());
    writePairs(json, "materialSnapshots", set.getMaterialSnapshots());
    writeCaptured(json, set);
    writeClipping(json, set);
    json.entry("previewBytes", set.getPreview().size());
  });
}

void writeOption(JsonWriter& json, const kuVariantOption& option) {
  json.object(
      [&] {
        json.entry("name", option.getName());
        json.entry("hotkey", option.getHotkey());
        json.entry("action", option.getAction());
      },
      Layout::OneLine);
}

void writeVariant(JsonWriter& json, const Kind& kind, const kuVariant& variant) {
  json.object([&] {
    json.entry("name", variant.getName());
    json.entry("base", kind.baseOf(variant));
    json.entry("default", variant.getDefault());
    json.entry("current", variant.getCurrent());
    json.key("options");
    json.array(variant.getOptions(),
               [&](const kuVariantOption& option) { writeOption(json, option); });
  });
}

std::string listJson() {
  JsonWriter json;
  json.object([&] {
    json.key("groups");
    json.array(kuVariants::getVariantGroups(),
               [&](const kuVariantGroup* group) { writeGroup(json, *group); });
    json.key("sets");
    json.array(kuVariants::getVariantSets(),
               [&](const kuVariantSet* set) { writeSet(json, *set); });
    json.key("variants");
    json.object([&] {
      for (const Kind& kind : kinds()) {
        json.key(kind.name);
        json.array(kind.variants(),
                   [&](const kuVariant* variant) { writeVariant(json, kind, *variant); });
      }
    });
  });
  return json.text() + '\n';
}

}  // namespace

void addListCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command =
      app.add_subcommand("list", "List groups, sets and variants with their states");
  addSceneArgument(*command, invocation);
  addDocumentArgument(*command, invocation);
  command->footer("Example:\n  kuvariants list car.gltf car.xml");
  command->callback([&invocation] {
    invocation.run = [](const Invocation& chosen) {
      return chosen.common.json ? listJson() : listText();
    };
  });
}
