#include "standalone/scene/NameIndex.h"

#include <algorithm>
#include <vector>

#include "standalone/scene/SceneNode.h"
#include "standalone/scene/TextKey.h"

namespace kuStandalone {
namespace {

/** The child indices from the top of the tree down to the node. */
std::vector<unsigned> placeOf(const SceneNode& node) {
  std::vector<unsigned> place;
  for (const SceneNode* at = &node; at->parent(); at = at->parent()) {
    place.push_back(at->indexInParent());
  }
  std::reverse(place.begin(), place.end());
  return place;
}

}  // namespace

void sortInSceneOrder(SceneNode** first, SceneNode** last) {
  std::vector<std::pair<std::vector<unsigned>, SceneNode*>> placed;
  for (SceneNode** node = first; node != last; ++node)
    placed.emplace_back(placeOf(**node), *node);
  std::sort(placed.begin(), placed.end());
  for (const auto& entry : placed)
    *first++ = entry.second;
}

void NameIndex::add(SceneNode& node) {
  Bucket& bucket = _buckets[node.name()];
  bucket.nodes.push_back(&node);
  bucket.unordered = bucket.nodes.size() > 1;
}

void NameIndex::remove(SceneNode& node, std::string_view name) {
  const auto found = _buckets.find(name, TextHash(), TextEqual());
  if (found == _buckets.end()) return;
  Nodes& nodes = found->second.nodes;
  nodes.erase(std::remove(nodes.begin(), nodes.end(), &node), nodes.end());
  if (nodes.empty()) _buckets.erase(found);
}

const NameIndex::Nodes* NameIndex::find(std::string_view name) {
  const auto found = _buckets.find(name, TextHash(), TextEqual());
  if (found == _buckets.end()) return nullptr;
  Bucket& bucket = found->second;
  if (bucket.unordered) {
    sortInSceneOrder(bucket.nodes.data(), bucket.nodes.data() + bucket.nodes.size());
    bucket.unordered = false;
  }
  return &bucket.nodes;
}

}  // namespace kuStandalone
