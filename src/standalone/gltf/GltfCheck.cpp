#include <array>
#include <cmath>
#include <vector>

#include "standalone/gltf/GltfJson.h"

namespace kuStandalone {
namespace {

constexpr std::array supportedExtensions = {"KHR_node_visibility", "KHR_lights_punctual",
                                            "KHR_materials_variants"};
constexpr std::array collections = {"nodes",   "scenes",    "meshes",      "materials", "cameras",
                                    "buffers", "accessors", "bufferViews", "animations"};

struct IndexRule {
  const char* list;
  const char* member;
  const char* target;
};
constexpr std::array indexRules = {IndexRule{"nodes", "mesh", "meshes"},
                                   IndexRule{"nodes", "camera", "cameras"},
                                   IndexRule{"bufferViews", "buffer", "buffers"},
                                   IndexRule{"accessors", "bufferView", "bufferViews"}};

struct LengthRule {
  const char* member;
  int length;
};
constexpr std::array lengthRules = {LengthRule{"translation", 3}, LengthRule{"rotation", 4},
                                    LengthRule{"scale", 3}, LengthRule{"matrix", 16}};

QJsonArray listOf(const QJsonObject& root, const char* name) {
  return root[QLatin1String(name)].toArray();
}

void checkIndex(const QJsonValue& value, int count, const std::string& place) {
  const double index = value.toDouble(-1);
  if (!value.isDouble() || index != std::floor(index)) throw GltfRefusal(place, "is no index");
  if (index < 0 || index >= count) {
    throw GltfRefusal(place, "there are " + std::to_string(count) + " and no such one");
  }
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
      if (!value.isUndefined()) checkIndex(value, count, gltfPlace(rule.list, index, rule.member));
      ++index;
    }
  }
}

void checkTransforms(const QJsonArray& nodes) {
  for (int index = 0; index < nodes.size(); ++index) {
    const QJsonObject node = nodes[index].toObject();
    for (const LengthRule& rule : lengthRules) {
      const QJsonValue value = node[QLatin1String(rule.member)];
      if (value.isUndefined()) continue;
      bool fits = value.isArray() && value.toArray().size() == rule.length;
      for (const QJsonValue& number : value.toArray())
        fits = fits && number.isDouble();
      if (!fits) {
        throw GltfRefusal(gltfPlace("nodes", index, rule.member),
                          "is not " + std::to_string(rule.length) + " numbers");
      }
    }
  }
}

/** The parent of every node, -1 for none; a second parent is refused. */
std::vector<int> parentsOf(const QJsonArray& nodes) {
  std::vector<int> parents(std::size_t(nodes.size()), -1);
  for (int index = 0; index < nodes.size(); ++index) {
    const QJsonValue list = nodes[index].toObject().value("children");
    if (list.isUndefined()) continue;
    if (!list.isArray()) throw GltfRefusal(gltfPlace("nodes", index, "children"), "is no array");
    int place = 0;
    for (const QJsonValue& child : list.toArray()) {
      const std::string where =
          gltfPlace("nodes", index, "children[" + std::to_string(place++) + "]");
      checkIndex(child, nodes.size(), where);
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
  if (!root["scene"].isUndefined()) checkIndex(root["scene"], scenes.size(), "scene");
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
      checkIndex(node, int(parents.size()), where);
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
  const QJsonArray nodes = listOf(root, "nodes");
  checkTransforms(nodes);
  const std::vector<int> parents = parentsOf(nodes);
  checkDepth(parents, maximalDepth);
  checkScenes(root, parents);
}

}  // namespace kuStandalone
