#pragma once

#include <cstddef>
#include <vector>

#include "host/osg/NodeCore.h"

namespace kuStandalone {
class SceneNode;
}

namespace osg {

/** What this host keeps about every core. */
struct NodeCoreFields {
  /** The nodes that share the core; the first is the original, the others are its clones. */
  std::vector<kuStandalone::SceneNode*> parents;
  /** The core's place among the users of the material that it bears. */
  std::size_t placeAmongUsers = 0;
};

}  // namespace osg
