#pragma once

#include <QJsonArray>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

/**
 * Fills the nodes that are clones of others: with the original's core and a copy of all below it.
 * It works when all nodes of the file stand, so that originals come first among a core's parents
 * wherever they stand in the file. Throws GltfRefusal.
 */
class CloneMaker {
 public:
  /** What the reader of nodes does for the maker. */
  struct Callbacks {
    /** The node of that index, made outside the scene if it is not in it. */
    std::function<osg::NodePtr(int)> node;
    /** Counts one more node; throws when there are too many. */
    std::function<void()> count;
  };

  /** @param nodes the file's. @param root does not count as depth. */
  CloneMaker(QJsonArray nodes, const osg::NodePtr& root, std::size_t maximalDepth,
             Callbacks callbacks);

  /**
   * Notes a node without core that is to be a clone of what @p original names.
   * @param ownChildren whether it has children of its own and takes no copies.
   */
  void note(const osg::NodePtr& clone, int index, const QJsonValue& original, bool ownChildren);

  /** Fills all noted nodes. */
  void fillAll();

 private:
  struct Clone {
    osg::NodePtr node;
    int index;
    int original;
    bool ownChildren;
    enum { Empty, InWork, Filled } state = Empty;
  };

  int originalOf(int index, const QJsonValue& original);
  void indexNames();
  void fill(std::size_t place, std::size_t depth);
  void copyChildren(const SceneNode& from, SceneNode& to, std::size_t depth);
  std::size_t depthOf(const SceneNode& node) const;

  QJsonArray _nodes;
  const SceneNode* _root;
  std::size_t _maximalDepth;
  Callbacks _callbacks;
  std::vector<Clone> _clones;
  std::unordered_map<const SceneNode*, std::size_t> _places;
  /** The first node of each name that is no clone itself. */
  std::unordered_map<std::string, int> _names;
};

}  // namespace kuStandalone
