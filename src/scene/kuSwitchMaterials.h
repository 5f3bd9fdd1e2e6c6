#pragma once

#include "host/osg/Material.h"

/** Bringing a new switch material into the scene. */
namespace kuSwitchMaterials {

/** Enters a material into the scene's pool. */
void enterIntoPool(const osg::MaterialPtr& material);

/** Puts @p material to every node of the scene that uses @p former. */
void replaceInScene(const osg::MaterialPtr& former, const osg::MaterialPtr& material);

/** Tells the host's modules that a switch material was added to the pool. */
void tellAdded();

}  // namespace kuSwitchMaterials
