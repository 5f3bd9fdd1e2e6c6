#pragma once

#include <QString>
#include <vector>

#include "host/osg/Node.h"
#include "host/utils/kuMaterialPtr.h"
#include "host/utils/kuNodePtr.h"

/** What the names that a set holds lead to in the present scene. */
namespace kuSceneReferences {

// All scene objects of a name.
std::vector<kuNodePtr> nodes(const QString& name);
std::vector<kuMaterialPtr> materials(const QString& name);
std::vector<osg::NodePtr> sceneplates(const QString& name);

bool hasNode(const QString& name);
bool hasViewpoint(const QString& name);

}  // namespace kuSceneReferences
