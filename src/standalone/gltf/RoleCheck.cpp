#include "standalone/gltf/RoleCheck.h"

#include <array>
#include <vector>

#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

using Keys = std::vector<const char*>;

/** What a node can be; one of them at most. */
const Keys roles = {"switch",   "transforms", "materialGroup", "sceneplate",
                    "geometry", "bare",       "cloneOf"};

const Keys nodeKeys = {"switch",        "transforms",  "transform",   "supposed",
                       "materialGroup", "sceneplate",  "sceneplates", "geometry",
                       "bare",          "cloneOf",     "on",          "environmentSwitch",
                       "renderLayer",   "ownChildren", "self",        "cameraName"};
const Keys layerKeys = {"camera", "reflections", "shadows", "states"};
const Keys materialKeys = {"switch", "states", "state", "environment", "pool", "locked"};
const Keys sceneKeys = {"activeCamera", "viewpoints", "animationBlocks"};

const Keys knownExtensions = {"KHR_node_visibility", "KHR_lights_punctual",
                              "KHR_materials_variants"};

/** A member that means something beside another only. */
struct CompanionRule {
  const char* key;
  const char* needed;
};
constexpr std::array companions = {
    CompanionRule{"environmentSwitch", "switch"}, CompanionRule{"transform", "transforms"},
    CompanionRule{"supposed", "transforms"}, CompanionRule{"ownChildren", "cloneOf"}};

bool has(const QJsonObject& json, const char* key) { return json.contains(QLatin1String(key)); }

bool isOneOf(const Keys& keys, const QString& text) {
  for (const char* key : keys) {
    if (text == QLatin1String(key)) return true;
  }
  return false;
}

QString plain(const QString& key) {
  QString text = key.toLower();
  return text.remove('_').remove('-').remove(' ');
}

/** Whether one letter more, less or other makes @p a of @p b. */
bool oneLetterApart(const QString& a, const QString& b) {
  if (a.size() > b.size()) return oneLetterApart(b, a);
  if (b.size() - a.size() > 1) return false;
  int same = 0;
  while (same < a.size() && a[same] == b[same])
    ++same;
  return a.midRef(a.size() == b.size() ? same + 1 : same) == b.midRef(same + 1);
}

/** Other tools keep what they like in extras; only what looks like ours is worth a word. */
void checkSpelling(const QJsonObject& extras, const Keys& keys, const std::string& place,
                   GltfWarnings& warnings) {
  constexpr int longEnough = 5;
  for (const QString& key : extras.keys()) {
    if (isOneOf(keys, key)) continue;
    const QString text = plain(key);
    for (const char* known : keys) {
      const QString wanted = plain(QLatin1String(known));
      if (text == wanted || (wanted.size() >= longEnough && oneLetterApart(text, wanted))) {
        warnings.addOnce(place, "'" + key.toStdString() + "' means nothing; '" + known +
                                    "' would mean something");
        break;
      }
    }
  }
}

void checkOneRole(const QJsonObject& node, const QJsonObject& extras, const std::string& place) {
  const char* role = nullptr;
  for (const char* one : roles) {
    if (!has(extras, one)) continue;
    if (role) {
      throw GltfRefusal(place + ".extras",
                        std::string("has both '") + role + "' and '" + one + "'");
    }
    role = one;
  }
  if (!role || isOneOf({"switch", "transforms", "materialGroup"}, role)) return;
  const auto refuse = [&](const char* content) {
    throw GltfRefusal(place, std::string("has both '") + content + "' and '" + role + "'");
  };
  if (has(node, "mesh")) refuse("mesh");
  if (has(node["extensions"].toObject(), "KHR_lights_punctual")) refuse("KHR_lights_punctual");
  if (!isOneOf({"cloneOf"}, role) ||
      flagOf(extras["ownChildren"], false, place + ".extras.ownChildren"))
    return;
  if (!node["children"].toArray().isEmpty()) refuse("children");
}

void checkLayer(const QJsonObject& layer, const std::string& place, GltfWarnings& warnings) {
  checkSpelling(layer, layerKeys, place, warnings);
  const QJsonObject states = layer["states"].toObject();
  for (auto state = states.begin(); state != states.end(); ++state) {
    checkSpelling(state->toObject(), layerKeys, place + ".states." + state.key().toStdString(),
                  warnings);
  }
}

void checkNode(int index, const QJsonObject& node, GltfWarnings& warnings) {
  const std::string place = gltfPlace("nodes", index);
  if (has(node, "skin")) warnings.addOnce(place + ".skin", "skins are left alone");
  if (has(node, "weights")) warnings.addOnce(place + ".weights", "morph targets are left alone");
  const QJsonObject extras = node[QLatin1String("extras")].toObject();
  if (extras.isEmpty()) return;
  checkOneRole(node, extras, place);
  checkSpelling(extras, nodeKeys, place + ".extras", warnings);
  for (const CompanionRule& rule : companions) {
    if (has(extras, rule.key) && !has(extras, rule.needed)) {
      warnings.addOnce(place + ".extras." + rule.key,
                       std::string("means nothing without '") + rule.needed + "'");
    }
  }
  if (has(extras, "on") && !has(node["extensions"].toObject(), "KHR_lights_punctual")) {
    warnings.addOnce(place + ".extras.on", "means nothing without a light");
  }
  if (has(extras, "sceneplate") && !node["children"].toArray().isEmpty()) {
    warnings.addOnce(place + ".children", "a sceneplate shows no children");
  }
  checkLayer(extras["renderLayer"].toObject(), place + ".extras.renderLayer", warnings);
}

/** The sceneplates' root counts at the top of the present scene only. */
void checkSceneplates(const QJsonObject& root, GltfWarnings& warnings) {
  const QJsonArray nodes = root["nodes"].toArray();
  std::vector<bool> below(std::size_t(nodes.size()));
  for (const QJsonValue& node : nodes) {
    for (const QJsonValue& child : node.toObject().value(QLatin1String("children")).toArray())
      below[std::size_t(child.toInt())] = true;
  }
  for (int index = 0; index < nodes.size(); ++index) {
    const QJsonObject extras = nodes[index].toObject().value(QLatin1String("extras")).toObject();
    if (!has(extras, "sceneplates")) continue;
    const std::string place = gltfPlace("nodes", index, "extras.sceneplates");
    if (flagOf(extras["sceneplates"], false, place) && below[std::size_t(index)]) {
      warnings.addOnce(place, "is not at the top and means nothing");
    }
  }
}

void checkFile(const QJsonObject& root, GltfWarnings& warnings) {
  const QJsonArray scenes = root["scenes"].toArray();
  if (scenes.isEmpty()) warnings.add("scenes", "there is none");
  if (scenes.size() > 1) warnings.add("scenes", "only one of them is read");
  for (const QJsonValue& name : arrayOf(root["extensionsUsed"], "extensionsUsed")) {
    if (!isOneOf(knownExtensions, name.toString())) {
      warnings.add("extensionsUsed", "'" + name.toString().toStdString() + "' is left alone");
    }
  }
}

}  // namespace

void checkRoles(const QJsonObject& root, GltfWarnings& warnings) {
  checkFile(root, warnings);
  int index = 0;
  for (const QJsonValue& node : root["nodes"].toArray())
    checkNode(index++, node.toObject(), warnings);
  checkSceneplates(root, warnings);
  index = 0;
  for (const QJsonValue& material : root["materials"].toArray()) {
    checkSpelling(material.toObject().value("extras").toObject(), materialKeys,
                  gltfPlace("materials", index++, "extras"), warnings);
  }
  index = 0;
  for (const QJsonValue& scene : root["scenes"].toArray()) {
    checkSpelling(scene.toObject().value("extras").toObject(), sceneKeys,
                  gltfPlace("scenes", index++, "extras"), warnings);
  }
}

}  // namespace kuStandalone
