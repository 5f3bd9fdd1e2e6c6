#include <QByteArray>
#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <string>
#include <string_view>

#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"

// Node paths, and the index that finds nodes by them. The hash is the 32-bit FNV-1: multiply, then
// xor. A byte is taken as signed and widened, so that one above 127 sets the upper 24 bits.

namespace {

constexpr std::uint32_t kHashStart = 0x811C9DC5;

std::uint32_t hashed(std::uint32_t hash, char byte) {
  const std::uint32_t low = static_cast<unsigned char>(byte);
  const std::uint32_t widened = low < 0x80 ? low : low | 0xFFFFFF00u;
  return (hash * 16777619u) ^ widened;
}

std::uint32_t hashed(std::uint32_t hash, std::string_view text) {
  for (const char byte : text)
    hash = hashed(hash, byte);
  return hash;
}

/** Takes a name, and the separator in front of it, off the end of a path that ends so. */
bool takeOff(std::string_view& path, std::string_view name, bool isTopmost) {
  if (path.size() < name.size() || path.substr(path.size() - name.size()) != name) return false;
  path.remove_suffix(name.size());
  if (isTopmost) return path.empty();
  if (path.empty() || path.back() != '/') return false;
  path.remove_suffix(1);
  return true;
}

/** Whether getNodePath of the node gives that path: the same climb, without making the text. */
bool hasPath(osg::NodePtr node, const osg::NodePtr& root, std::string_view path) {
  if (!node || node == root) return path.empty();
  while (true) {
    osg::NodePtr parent = node->getParent();
    const bool isTopmost = !parent || parent == root;
    if (!takeOff(path, kuNodeUtils::getName(node), isTopmost)) return false;
    if (isTopmost) return true;
    node = std::move(parent);
  }
}

}  // namespace

QString kuVariants::getNodePath(kuNodePtr node) {
  const osg::NodePtr root = kuScenegraph::getRootNode();
  boost::container::small_vector<std::string_view, 16> names;
  std::size_t length = 0;
  for (osg::NodePtr at = node; at && at != root; at = at->getParent()) {
    names.emplace_back(kuNodeUtils::getName(at));
    length += names.back().size() + 1;
  }
  std::string path;
  path.reserve(length);
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (name != names.rbegin()) path += '/';
    path += *name;
  }
  return QString::fromStdString(path);
}

namespace {

/** Enters a node and all below it. @param hash that of the parent's path. */
void enter(std::unordered_map<std::uint32_t, std::vector<kuNodePtr>>& index,
           const osg::NodePtr& node, const osg::NodePtr& root, std::uint32_t hash) {
  if (node->getParent() != root) hash = hashed(hash, '/');
  hash = hashed(hash, kuNodeUtils::getName(node));
  index[hash].emplace_back(node);
  for (unsigned child = 0; child < node->getNChildren(); ++child)
    enter(index, node->getChild(child), root, hash);
}

}  // namespace

void kuVariants::rebuildNodePathIndex() {
  _nodePathIndex.clear();
  const osg::NodePtr root = kuScenegraph::getRootNode();
  for (unsigned child = 0; child < root->getNChildren(); ++child)
    enter(_nodePathIndex, root->getChild(child), root, kHashStart);
}

osg::NodePtr kuVariants::firstNodeOfPath(const char* path) {
  std::vector<kuNodePtr> nodes = _nodePathIndex[hashed(kHashStart, path)];
  keepNodesWithPath(nodes, path);
  return nodes.empty() ? osg::NodePtr() : nodes.front().getNode();
}

// The node is not read: all nodes of the path are meant, whichever was asked with.
bool kuVariants::checkIfNodeMatchesNodePath(osg::NodePtr, const char* path, bool applyToAll) {
  std::vector<kuNodePtr> nodes = _nodePathIndex[hashed(kHashStart, path)];
  keepNodesWithPath(nodes, path);
  if (nodes.empty()) return false;
  if (applyToAll) {
    const osg::MaterialPtr material = kuNodeUtils::getMaterial(nodes.front());
    for (auto node = nodes.begin() + 1; node != nodes.end(); ++node)
      changeMaterial(*node, material);
  }
  return true;
}

void kuVariants::keepNodesWithPath(std::vector<kuNodePtr>& nodes, const char* path) {
  const osg::NodePtr root = kuScenegraph::getRootNode();
  nodes.erase(std::remove_if(nodes.begin(), nodes.end(),
                             [&](const kuNodePtr& node) { return !hasPath(node, root, path); }),
              nodes.end());
}
