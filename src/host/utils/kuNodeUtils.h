#pragma once

#include <string>
#include <vector>

#include "host/utils/kuNodePtr.h"

/** Questions about nodes, their names and their named transform states. */
class KUHOST_EXPORT kuNodeUtils {
 public:
  kuNodeUtils() = delete;

  /**
   * The node's name in UTF-8; empty for an unnamed or null node. The bytes belong to the node
   * and last until it is renamed or destroyed.
   */
  static const char* getName(const osg::NodePtr& node);

  /** Appends the node and all nodes below it, depth first; nothing for an invalid handle. */
  static void getSubTreeNodes(const kuNodePtr& node, std::vector<kuNodePtr>& nodes);

  /** @p name itself if @p used does not hold it, otherwise a name made from it that is free. */
  static std::string getUniqueName(const std::string& name, const std::vector<std::string>& used);

  /** Whether @p a is a clone of @p b: another node with the same core. False for a node itself. */
  static bool isCloneOf(const osg::NodePtr& a, const osg::NodePtr& b);

  /** Whether the node's core is a transform with named states; false for a null node. */
  static bool hasTransformVariants(const osg::NodePtr& node);

  /** The number of transform states; 0 for a node that has none. */
  static int getTransformVariantCount(const osg::NodePtr& node);

  /** The name of a transform state in UTF-8; empty for an index without a state. */
  static std::string getTransformVariantName(const osg::NodePtr& node, int index);

  /** The index of the first transform state of that name; negative if there is none. */
  static int getTransformVariantIndex(const osg::NodePtr& node, const std::string& name);

  /** The index of the state that the node is meant to stand in; negative if there is none. */
  static int getTransformVariantSupposedActiveIndex(const osg::NodePtr& node);
};
