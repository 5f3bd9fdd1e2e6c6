#pragma once

#include <boost/container/small_vector.hpp>
#include <boost/unordered_set.hpp>
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
  /** Takes a node out; it must still bear the name by which it was added. */
  void remove(SceneNode& node);
  /** Forgets all nodes at once. */
  void clear() { _buckets.clear(); }

  /** The nodes of that name; null if there is none. Good until the next change of the tree. */
  const Nodes* find(std::string_view name);

 private:
  /** The nodes of one name, never empty: it is found by the name that its first node bears. */
  struct Bucket {
    explicit Bucket(SceneNode& node) : nodes(1, &node) {}

    // The set of buckets sees only the name, which the rest does not change.
    mutable Nodes nodes;
    /** Whether nodes came since the order was last established. */
    mutable bool unordered = false;
  };
  struct Hash {
    std::size_t operator()(const Bucket& bucket) const;
  };
  struct Equal {
    bool operator()(const Bucket& a, const Bucket& b) const;
  };
  struct EqualToText {
    bool operator()(std::string_view name, const Bucket& bucket) const;
  };
  using Buckets = boost::unordered_set<Bucket, Hash, Equal>;

  Buckets::iterator bucketOf(std::string_view name);

  Buckets _buckets;
};

/** Sorts nodes of one tree into the order of a depth-first walk. */
KUHOST_EXPORT void sortInSceneOrder(SceneNode** first, SceneNode** last);

}  // namespace kuStandalone
