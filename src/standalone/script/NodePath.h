#pragma once

#include <string_view>

#include "host/kuHostExport.h"
#include "host/osg/Node.h"

namespace kuStandalone {

/**
 * The first node of that path, in the order of a depth-first walk, or null. A path is made of the
 * names joined by "/", from the topmost node below the scene's root down to the node. Names may
 * hold a "/" themselves.
 */
KUHOST_EXPORT osg::NodePtr findNodeByPath(std::string_view path);

}  // namespace kuStandalone
