#pragma once

#include <boost/container/small_vector.hpp>
#include <boost/unordered_map.hpp>
#include <string>
#include <string_view>

#include "host/kuHostExport.h"

namespace kuStandalone {

class SceneNode;

/**
 * The nodes of one tree by name, kept up to date as nodes come, go and are renamed, so that a
 * search costs one hash look-up whatever the size of the scene.
 */
class KUHOST_EXPORT NameIndex {
 public:
  /** The nodes of one name, in the order of a depth-first walk. */
  using Nodes = boost::container::small_vector<SceneNode*, 1>;

  void add(SceneNode& node);
  void remove(SceneNode& node, std::string_view name);
  /** Forgets all nodes at once. */
  void clear() { _buckets.clear(); }

  /** The nodes of that name; null if there is none. Good until the next change of the tree. */
  const Nodes* find(std::string_view name);

 private:
  struct Bucket {
    Nodes nodes;
    /** Whether nodes came since the order was last established. */
    bool unordered = false;
  };

  boost::unordered_map<std::string, Bucket> _buckets;
};

/** Sorts nodes of one tree into the order of a depth-first walk. */
KUHOST_EXPORT void sortInSceneOrder(SceneNode** first, SceneNode** last);

}  // namespace kuStandalone
