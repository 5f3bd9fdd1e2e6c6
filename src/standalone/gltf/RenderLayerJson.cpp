#include "standalone/gltf/RenderLayerJson.h"

#include <array>

#include "standalone/gltf/GltfDraft.h"
#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

struct Member {
  const char* name;
  bool RayVisibility::*seen;
};
constexpr std::array members = {Member{"camera", &RayVisibility::camera},
                                Member{"reflections", &RayVisibility::reflections},
                                Member{"shadows", &RayVisibility::shadows}};

RayVisibility readVisibility(const QJsonObject& json, const std::string& place) {
  RayVisibility visibility;
  for (const Member& member : members) {
    visibility.*member.seen =
        flagOf(json[QLatin1String(member.name)], true, place + "." + member.name);
  }
  return visibility;
}

void writeVisibility(QJsonObject& json, const RayVisibility& visibility) {
  for (const Member& member : members) {
    const bool seen = visibility.*member.seen;
    setMember(json, member.name, seen ? QJsonValue(QJsonValue::Undefined) : QJsonValue(false));
  }
}

}  // namespace

RenderLayerPtr readRenderLayer(const QJsonValue& value, const std::string& place) {
  const QJsonObject json = objectOf(value, place);
  const QJsonObject stored = objectOf(json["states"], place + ".states");
  RayVisibilities states;
  for (auto state = stored.begin(); state != stored.end(); ++state) {
    const std::string name = state.key().toStdString();
    const std::string where = place + ".states." + name;
    states[name] = readVisibility(objectOf(*state, where), where);
  }
  return RenderLayer::create(readVisibility(json, place), std::move(states));
}

QJsonObject renderLayerJson(const RenderLayer& layer, const QJsonObject& former) {
  QJsonObject json = former;
  writeVisibility(json, layer.present());
  const QJsonObject formerStates = former["states"].toObject();
  QJsonObject states;
  for (const auto& [name, visibility] : layer.states()) {
    const QString key = QString::fromStdString(name);
    QJsonObject state = formerStates[key].toObject();
    writeVisibility(state, visibility);
    states[key] = state;
  }
  setMember(json, "states", states.isEmpty() ? QJsonValue(QJsonValue::Undefined) : states);
  return json;
}

}  // namespace kuStandalone
