#pragma once

#include <QString>
#include <string>

#include "host/osg/Node.h"
#include "host/osg/Switch.h"

class kuOptionRebuild;
class kuVariant;

/**
 * What the states of a node are, for the two kinds that are bound to nodes: the children of a
 * switch, or on and off of any other node. No node may be null but where it is said.
 */
namespace kuNodeStates {

/** Choices of a switch that are no child's index. */
constexpr int NoChild = -1;
constexpr int AllChildren = -2;

/**
 * The index of the child that a switch shows, otherwise -1. A switch that shows all children gives
 * -1 too: read as an unsigned number, -2 is not below the number of children.
 */
int shownChild(const osg::Switch& core, const osg::Node& node);

/** Whether the node's core is a switch and it has a child; false for a null node. */
bool isSwitchWithChildren(const osg::NodePtr& node);

/** Whether a child of the node bears that name, in UTF-8. */
bool hasChild(const osg::Node& node, const std::string& name);

/** The name of the child at @p index; empty without such a child. */
QString childName(const osg::Node& node, unsigned index);

/** Fills an empty variant with the options and the default that the node gives; a null one none. */
void fill(kuVariant& variant, const osg::NodePtr& node);

/** Adds the options anew and sets the default that the node gives. */
void rebuild(kuVariant& variant, kuOptionRebuild& options, const osg::NodePtr& node);

/**
 * The state that the node stands in: "!All", "!None" or the name of the child that a switch shows,
 * "!Enable" or "!Disable" for any other node. Empty for a null node and for a switch whose choice
 * is neither.
 */
QString current(const osg::NodePtr& node);

}  // namespace kuNodeStates
