#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "host/osg/Material.h"
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

  /** A name parted into what stands before its trailing number, and that number. "Bolt8_12" is the
   * twelfth "Bolt8". */
  struct StrippedName {
    /** Whether the name ends in a number; otherwise baseName is the whole name. */
    bool hasNumber = false;
    std::string baseName;
    std::uint64_t number = 0;
  };
  static StrippedName getStrippedName(const std::string& name);

  /** The @p count smallest numbers from 1 that @p used does not hold; fewer only where there are no
   * more. */
  static std::set<std::uint64_t> getFreeNumbers(const std::set<std::uint64_t>& used,
                                                std::size_t count);

  /** The name with the number behind it, such that getStrippedName parts it into just these: after
   * a digit with a "_" between. */
  static std::string appendNumberToName(const std::string& name, std::uint64_t number);

  /** Repairs what holds a node's name, where the host can find it broken. */
  static void fixBrokenNameAttachment(const osg::NodePtr& node);

  /** Appends all nodes of the scene, the root included, depth first. @param sceneplates also those
   * of the sceneplates. */
  static void getSceneNodes(std::vector<kuNodePtr>& nodes, bool sceneplates);

  /** Whether the node shares its core with a node before it in its tree. */
  static bool isClone(const osg::NodePtr& node);

  /** Whether the node is a switch that selects environment geometry. */
  static bool isEnvironmentGeometrySwitch(const osg::NodePtr& node);

  /** The material that the node itself bears; null for one that bears none. */
  static osg::MaterialPtr getMaterial(const osg::NodePtr& node);

  /**
   * Gives a material to every geometry at and below the node, edit brackets included. The flags are
   * always false: no copy of the material is made, and nothing can be undone.
   */
  static void setMaterial(const osg::NodePtr& node, const osg::MaterialPtr& material, bool copy,
                          bool undoable);

  /** Whether @p a is a clone of @p b: another node with the same core. False for a node itself. */
  static bool isCloneOf(const osg::NodePtr& a, const osg::NodePtr& b);

  /** Whether the node's core is a transform with named states; false for a null node. */
  static bool hasTransformVariants(const osg::NodePtr& node);

  /** The number of transform states; 0 for a node that has none. */
  static int getTransformVariantCount(const osg::NodePtr& node);

  /** The name of a transform state in UTF-8; empty for an index without a state. */
  static std::string getTransformVariantName(const osg::NodePtr& node, int index);

  /** Names a transform state (UTF-8), edit bracket included; nothing for an index without one. */
  static void setTransformVariantName(const osg::NodePtr& node, int index, const std::string& name);

  /** Whether the node's transform equals one of its transform states. */
  static bool isTransformVariantInState(const osg::NodePtr& node);

  /** The index of the first transform state of that name; negative if there is none. */
  static int getTransformVariantIndex(const osg::NodePtr& node, const std::string& name);

  /** The index of the state that the node is meant to stand in; negative if there is none. */
  static int getTransformVariantSupposedActiveIndex(const osg::NodePtr& node);
};
