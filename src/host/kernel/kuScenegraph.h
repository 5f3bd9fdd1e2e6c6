#pragma once

#include <vector>

#include "host/osg/MaterialPool.h"
#include "host/osg/Node.h"
#include "host/utils/kuNodePtr.h"

/** The scene: its root, the search by name, the material pool. Main thread only. */
class KUHOST_EXPORT kuScenegraph {
 public:
  kuScenegraph() = delete;

  /** The root of the scene; never null, in an empty scene a node without children. */
  static osg::NodePtr getRoot();
  /** The same in the form of searches. */
  static kuNodePtr getRootNode();

  /** The first node of that name (UTF-8), or an invalid handle. */
  static kuNodePtr findNode(const char* name);

  /** All nodes of that name, clones included, in the order of a depth-first walk. */
  static std::vector<kuNodePtr> findNodes(const char* name);

  /** Whether a name cache is open. */
  static bool hasFindCache();

  /**
   * Opens a name cache: findNode and findNodes are fast until it is closed. It must not cost more
   * than a small constant where the host can help it, since every larger selection opens one.
   */
  static void initFindCache();

  /** Closes the cache. */
  static void clearFindCache();

  /** Sets the active flags of exactly these nodes; an empty vector changes nothing. */
  static void showNodes(const std::vector<kuNodePtr>& nodes);

  /** The materials of the scene; edited in a bracket. Never null. */
  static osg::MaterialPoolPtr getMaterialPool();

  /** Brings the scene graph up to date, with @p now before it returns. */
  static void update(bool now);

  /** The switch that selects environment geometry; the first of the scene, or null. */
  static osg::NodePtr environmentGeometrySwitch();
};
