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

std::size_t depthOf(const SceneNode& node) {
  std::size_t depth = 0;
  for (const SceneNode* at = node.parent(); at; at = at->parent())
    ++depth;
  return depth;
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

bool standsBefore(const SceneNode& a, const SceneNode& b) {
  const SceneNode *left = &a, *right = &b;
  const std::size_t leftDepth = depthOf(a), rightDepth = depthOf(b);
  for (std::size_t depth = leftDepth; depth > rightDepth; --depth)
    left = left->parent();
  for (std::size_t depth = rightDepth; depth > leftDepth; --depth)
    right = right->parent();
  if (left == right) return leftDepth < rightDepth;
  while (left->parent() != right->parent()) {
    left = left->parent();
    right = right->parent();
  }
  return left->indexInParent() < right->indexInParent();
}

NameIndex::Bucket::Bucket(SceneNode& node, std::size_t nameHash) : nodes(1, &node), hash(nameHash) {
  node.setPlaceInNames(0);
}

void NameIndex::Bucket::add(SceneNode& node) const {
  node.setPlaceInNames(static_cast<std::uint32_t>(nodes.size()));
  nodes.push_back(&node);
  unordered = true;
}

/** The node is one of several. */
void NameIndex::Bucket::remove(SceneNode& node) const {
  nodes[node.placeInNames()] = nullptr;
  ++gaps;
  while (!nodes[first])
    ++first;
  if (gaps > count()) close();
}

/** Lets the others move up into the gaps. */
void NameIndex::Bucket::close() const {
  nodes.erase(std::remove(nodes.begin(), nodes.end(), nullptr), nodes.end());
  gaps = first = 0;
  notePlaces();
}

void NameIndex::Bucket::order() const {
  if (gaps > 0) close();
  if (!unordered) return;
  sortInSceneOrder(nodes.data(), nodes.data() + nodes.size());
  unordered = false;
  notePlaces();
}

void NameIndex::Bucket::notePlaces() const {
  for (std::uint32_t place = 0; place < nodes.size(); ++place)
    nodes[place]->setPlaceInNames(place);
}

bool NameIndex::Bucket::holds(const SceneNode& node) const {
  const std::uint32_t place = node.placeInNames();
  return place < nodes.size() && nodes[place] == &node;
}

bool NameIndex::Equal::operator()(const Bucket& a, const Bucket& b) const {
  return a.hash == b.hash && a.any().name() == b.any().name();
}

bool NameIndex::EqualToSought::operator()(const Sought& sought, const Bucket& bucket) const {
  return sought.hash == bucket.hash && sought.name == bucket.any().name();
}

NameIndex::Buckets::iterator NameIndex::bucketOf(const Sought& sought) {
  return _buckets.find(sought, Hash(), EqualToSought());
}

void NameIndex::add(SceneNode& node) {
  const Sought sought{node.name(), TextHash()(node.name())};
  const auto bucket = bucketOf(sought);
  if (bucket == _buckets.end()) {
    _buckets.emplace(node, sought.hash);
  } else {
    bucket->add(node);
  }
}

void NameIndex::remove(SceneNode& node) {
  const auto bucket = bucketOf({node.name(), TextHash()(node.name())});
  if (bucket == _buckets.end() || !bucket->holds(node)) return;
  if (bucket->count() == 1) {
    _buckets.erase(bucket);
  } else {
    bucket->remove(node);
  }
}

const NameIndex::Nodes* NameIndex::find(std::string_view name) {
  const auto bucket = bucketOf({name, TextHash()(name)});
  if (bucket == _buckets.end()) return nullptr;
  bucket->order();
  return &bucket->nodes;
}

}  // namespace kuStandalone
