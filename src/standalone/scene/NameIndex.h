#pragma once

#include <boost/container/small_vector.hpp>
#include <boost/unordered_set.hpp>
#include <cstdint>
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
  /** The nodes of one name, never without any: it is found by the name that its first one bears. */
  struct Bucket {
    Bucket(SceneNode& node, std::size_t nameHash);

    void add(SceneNode& node) const;
    void remove(SceneNode& node) const;
    void close() const;
    void order() const;
    void notePlaces() const;
    bool holds(const SceneNode& node) const;
    std::size_t count() const { return nodes.size() - gaps; }
    const SceneNode& any() const { return *nodes[first]; }

    // The set of buckets sees only the name, which the rest does not change.
    /** With null where a node went: it knows its place, and the others keep theirs. */
    mutable Nodes nodes;
    /** Hash of the name: others of the same slot are told apart without a look at their nodes. */
    std::size_t hash;
    /** The number of those nulls, and the first place without one. */
    mutable std::uint32_t gaps = 0, first = 0;
    /** Whether nodes came since the order was last established. */
    mutable bool unordered = false;
  };
  /** A name with its hash, as it is looked for. */
  struct Sought {
    std::string_view name;
    std::size_t hash;
  };
  struct Hash {
    std::size_t operator()(const Bucket& bucket) const { return bucket.hash; }
    std::size_t operator()(const Sought& sought) const { return sought.hash; }
  };
  struct Equal {
    bool operator()(const Bucket& a, const Bucket& b) const;
  };
  struct EqualToSought {
    bool operator()(const Sought& sought, const Bucket& bucket) const;
  };
  using Buckets = boost::unordered_set<Bucket, Hash, Equal>;

  Buckets::iterator bucketOf(const Sought& sought);

  Buckets _buckets;
};

/** Sorts nodes of one tree into the order of a depth-first walk. */
KUHOST_EXPORT void sortInSceneOrder(SceneNode** first, SceneNode** last);

/** Whether a depth-first walk of their tree meets @p a before @p b. */
KUHOST_EXPORT bool standsBefore(const SceneNode& a, const SceneNode& b);

}  // namespace kuStandalone
