#pragma once

#include "host/osg/Node.h"

/** Visibility of a node and all nodes below it, depth first. No node may be null. */
namespace kuSubTree {

/** Sets the node's own flag, in an edit bracket. */
void setActive(const osg::NodePtr& node, bool active);

/** Sets the node and every node below it active. */
void enable(const osg::NodePtr& node);

/** Sets the geometries at and below the node inactive; whatever stands between keeps its flag. */
void disableGeometries(const osg::NodePtr& node);

}  // namespace kuSubTree
