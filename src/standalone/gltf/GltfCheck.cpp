#include <array>
#include <vector>

#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

constexpr std::array supportedExtensions = {"KHR_node_visibility", "KHR_lights_punctual",
                                            "KHR_materials_variants"};
constexpr std::array collections = {"nodes",   "scenes",    "meshes",      "materials",  "cameras",
                                    "buffers", "accessors", "bufferViews", "animations", "images",
                                    "skins",   "textures",  "samplers"};
constexpr std::array textures = {"normalTexture", "occlusionTexture", "emissiveTexture",
                                 "baseColorTexture", "metallicRoughnessTexture"};

struct IndexRule {
  const char* list;
  const char* member;
  const char* target;
};
constexpr std::array indexRules = {IndexRule{"nodes", "mesh", "meshes"},
                                   IndexRule{"nodes", "camera", "cameras"},
                                   IndexRule{"nodes", "skin", "skins"},
                                   IndexRule{"images", "bufferView", "bufferViews"},
                                   IndexRule{"textures", "source", "images"},
                                   IndexRule{"textures", "sampler", "samplers"},
                                   IndexRule{"bufferViews", "buffer", "buffers"},
                                   IndexRule{"accessors", "bufferView", "bufferViews"}};

QJsonArray listOf(const QJsonObject& root, const char* name) {
  return root[QLatin1String(name)].toArray();
}

void checkVersion(const QJsonObject& root) {
  const QJsonObject asset = root["asset"].toObject();
  const QString version = asset["minVersion"].toString(asset["version"].toString());
  if (version != "2.0") throw GltfRefusal("asset.version", "is not \"2.0\"");
}

void checkExtensions(const QJsonObject& root) {
  const QJsonValue required = root["extensionsRequired"];
  if (!required.isUndefined() && !required.isArray()) {
    throw GltfRefusal("extensionsRequired", "is no array");
  }
  for (const QJsonValue& name : required.toArray()) {
    bool supported = false;
    for (const char* known : supportedExtensions)
      supported |= name.toString() == known;
    if (!supported) {
      throw GltfRefusal("extensionsRequired",
                        "'" + name.toString().toStdString() + "' is not supported");
    }
  }
}

void checkCollections(const QJsonObject& root) {
  for (const char* name : collections) {
    const QJsonValue list = root[QLatin1String(name)];
    if (list.isUndefined()) continue;
    if (!list.isArray()) throw GltfRefusal(name, "is no array");
    int index = 0;
    for (const QJsonValue& entry : list.toArray()) {
      if (!entry.isObject()) throw GltfRefusal(gltfPlace(name, index), "is no object");
      ++index;
    }
  }
}

void checkIndices(const QJsonObject& root) {
  for (const IndexRule& rule : indexRules) {
    const int count = listOf(root, rule.target).size();
    int index = 0;
    for (const QJsonValue& entry : listOf(root, rule.list)) {
      const QJsonValue value = entry.toObject().value(QLatin1String(rule.member));
      if (!value.isUndefined())
        neededIndexIn(value, count, gltfPlace(rule.list, index, rule.member));
      ++index;
    }
  }
}

bool has(const QJsonObject& json, const char* key) { return json.contains(QLatin1String(key)); }

/** Names, extras and extensions of the wrong type would be lost without a word. */
void checkCommonMembers(const QJsonObject& root) {
  for (const char* name : collections) {
    int index = 0;
    for (const QJsonValue& value : listOf(root, name)) {
      const QJsonObject entry = value.toObject();
      const std::string prefix = gltfPlace(name, index++) + ".";
      if (has(entry, "name")) textOf(entry["name"], prefix + "name");
      if (has(entry, "extras")) objectOf(entry["extras"], prefix + "extras");
      if (!has(entry, "extensions")) continue;
      const QJsonObject extensions = objectOf(entry["extensions"], prefix + "extensions");
      for (auto one = extensions.begin(); one != extensions.end(); ++one)
        objectOf(*one, prefix + "extensions." + one.key().toStdString());
    }
  }
  objectOf(root["extensions"], "extensions");
}

void checkTextures(const QJsonObject& root) {
  const int count = listOf(root, "textures").size();
  int index = 0;
  for (const QJsonValue& value : listOf(root, "materials")) {
    const QJsonObject material = value.toObject();
    const std::string prefix = gltfPlace("materials", index++) + ".";
    const QJsonObject surface =
        objectOf(material["pbrMetallicRoughness"], prefix + "pbrMetallicRoughness");
    for (const char* name : textures) {
      for (const QJsonObject& owner : {material, surface}) {
        const QJsonObject texture = objectOf(owner[QLatin1String(name)], prefix + name);
        indexIn(texture["index"], count, prefix + name + ".index");
      }
    }
  }
}

/** The parent of every node, -1 for none; a second parent is refused. */
std::vector<int> parentsOf(const QJsonArray& nodes) {
  std::vector<int> parents(std::size_t(nodes.size()), -1);
  for (int index = 0; index < nodes.size(); ++index) {
    const QJsonValue list = nodes[index].toObject().value(QLatin1String("children"));
    if (list.isUndefined()) continue;
    if (!list.isArray()) throw GltfRefusal(gltfPlace("nodes", index, "children"), "is no array");
    int place = 0;
    for (const QJsonValue& child : list.toArray()) {
      const std::string where =
          gltfPlace("nodes", index, "children[" + std::to_string(place++) + "]");
      neededIndexIn(child, nodes.size(), where);
      int& parent = parents[std::size_t(child.toInt())];
      if (parent >= 0) throw GltfRefusal(where, "the node has a parent already");
      parent = index;
    }
  }
  return parents;
}

/** Every node has one parent at most, so what never reaches a parentless node is in a cycle. */
void checkDepth(const std::vector<int>& parents, std::size_t maximalDepth) {
  std::vector<std::size_t> depths(parents.size(), 0);
  std::vector<std::size_t> chain;
  for (std::size_t node = 0; node < parents.size(); ++node) {
    chain.clear();
    int at = int(node);
    for (; at >= 0 && depths[std::size_t(at)] == 0; at = parents[std::size_t(at)]) {
      chain.push_back(std::size_t(at));
      if (chain.size() > parents.size()) {
        throw GltfRefusal(gltfPlace("nodes", int(node)), "lies below itself");
      }
    }
    std::size_t depth = at >= 0 ? depths[std::size_t(at)] : 0;
    for (auto one = chain.rbegin(); one != chain.rend(); ++one) {
      depths[*one] = ++depth;
      if (depth > maximalDepth) throw GltfRefusal(gltfPlace("nodes", int(*one)), "lies too deep");
    }
  }
}

void checkScenes(const QJsonObject& root, const std::vector<int>& parents) {
  const QJsonArray scenes = listOf(root, "scenes");
  if (!root["scene"].isUndefined()) neededIndexIn(root["scene"], scenes.size(), "scene");
  for (int index = 0; index < scenes.size(); ++index) {
    const QJsonValue list = scenes[index].toObject().value("nodes");
    if (!list.isUndefined() && !list.isArray()) {
      throw GltfRefusal(gltfPlace("scenes", index, "nodes"), "is no array");
    }
    std::vector<bool> seen(parents.size());
    int place = 0;
    for (const QJsonValue& node : list.toArray()) {
      const std::string where =
          gltfPlace("scenes", index, "nodes[" + std::to_string(place++) + "]");
      neededIndexIn(node, int(parents.size()), where);
      const auto which = std::size_t(node.toInt());
      if (parents[which] >= 0) throw GltfRefusal(where, "the node lies below another");
      if (seen[which]) throw GltfRefusal(where, "the node is named twice");
      seen[which] = true;
    }
  }
}

}  // namespace

void checkGltf(const QJsonObject& root, std::size_t maximalDepth) {
  checkVersion(root);
  checkExtensions(root);
  checkCollections(root);
  checkIndices(root);
  checkCommonMembers(root);
  checkTextures(root);
  const std::vector<int> parents = parentsOf(listOf(root, "nodes"));
  checkDepth(parents, maximalDepth);
  checkScenes(root, parents);
}

}  // namespace kuStandalone
