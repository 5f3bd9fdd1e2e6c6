#pragma once

#include <string>

#include "host/osg/Node.h"

/**
 * The path of a node as the messages carry it, in UTF-8: the names from below @p root down to the
 * node, each followed by "|"; empty for a null node and for @p root itself. A node named "Root",
 * wherever it stands, ends the path like @p root does.
 */
std::string kuNodePath(osg::NodePtr node, const osg::NodePtr& root);
