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

bool standsBefore(const SceneNode& a, const SceneNode& b) { return placeOf(a) < placeOf(b); }

bool NameIndex::Equal::operator()(const Bucket& a, const Bucket& b) const {
  return a.hash == b.hash && a.nodes.front()->name() == b.nodes.front()->name();
}

bool NameIndex::EqualToSought::operator()(const Sought& sought, const Bucket& bucket) const {
  return sought.hash == bucket.hash && sought.name == bucket.nodes.front()->name();
}

NameIndex::Buckets::iterator NameIndex::bucketOf(const Sought& sought) {
  return _buckets.find(sought, Hash(), EqualToSought());
}

void NameIndex::add(SceneNode& node) {
  const Sought sought{node.name(), TextHash()(node.name())};
  const auto bucket = bucketOf(sought);
  if (bucket == _buckets.end()) {
    _buckets.emplace(node, sought.hash);
    return;
  }
  bucket->nodes.push_back(&node);
  bucket->unordered = true;
}

void NameIndex::remove(SceneNode& node) {
  const auto bucket = bucketOf({node.name(), TextHash()(node.name())});
  if (bucket == _buckets.end()) return;
  Nodes& nodes = bucket->nodes;
  const auto found = std::find(nodes.begin(), nodes.end(), &node);
  if (found == nodes.end()) return;
  if (nodes.size() == 1) {
    _buckets.erase(bucket);
  } else {
    nodes.erase(found);
  }
}

const NameIndex::Nodes* NameIndex::find(std::string_view name) {
  const auto bucket = bucketOf({name, TextHash()(name)});
  if (bucket == _buckets.end()) return nullptr;
  if (bucket->unordered) {
    sortInSceneOrder(bucket->nodes.data(), bucket->nodes.data() + bucket->nodes.size());
    bucket->unordered = false;
  }
  return &bucket->nodes;
}

}  // namespace kuStandalone
