#pragma once

#include "host/kernel/kuMessage.h"
#include "host/osg/Node.h"

/**
 * Fills a message with what now shows of a node and sends it under @p name: of a switch its
 * children, of any other node itself. What the message held already stays, but for a value of the
 * same attribute. The attributes are "visible" and "invisible" (std::vector<std::string>),
 * "parent" and "path" (std::string), in this order.
 * @param pathRoot where the path ends, see kuNodePath.
 */
void kuSendNodesChanged(const char* name, const osg::NodePtr& node, const osg::NodePtr& pathRoot,
                        kuMessage& message);

/**
 * Sends the message that a state was selected.
 * @param variant the variant as a kuVariant. It is handed on and not looked at: a receiver of an
 * earlier message may have deleted it.
 */
void kuSendVariantSelected(const char* name, void* variant);
