#pragma once

#include "host/osg/Material.h"
#include "host/osg/NodeCore.h"

namespace kuStandalone {

/** Gives a core's material field a new value and keeps the materials' lists of users right. */
void assignMaterial(osg::NodeCore& user, osg::MaterialPtr& field, osg::MaterialPtr material);

}  // namespace kuStandalone
