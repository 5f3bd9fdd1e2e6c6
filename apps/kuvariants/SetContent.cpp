#include "SetContent.h"

#include "JsonWriter.h"
#include "Kinds.h"
#include "model/kuVariantSet.h"

SetContent contentOf(const kuVariantSet& set) {
  SetContent content;
  for (std::size_t kind = 0; kind < kinds().size(); ++kind) {
    for (const kuVariantState& one : kinds()[kind].statesOf(set))
      content.states[kind].emplace_back(one.getVariant(), one.getState());
  }
  content.viewpoints.assign(set.getViewpoints().begin(), set.getViewpoints().end());
  content.defaultViewpoint = set.getDefaultViewpoint();
  content.animations = set.getAnimations();
  content.geometries.assign(set.getGeometries().begin(), set.getGeometries().end());
  return content;
}

void writeStates(JsonWriter& json, const SetContent& content) {
  json.key("states");
  json.object([&] {
    for (std::size_t kind = 0; kind < kinds().size(); ++kind) {
      json.key(kinds()[kind].name);
      json.array(content.states[kind], [&](const auto& state) {
        json.list(std::array<QString, 2>{state.first, state.second});
      });
    }
  });
}
