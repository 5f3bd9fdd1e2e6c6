#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/kuSceneInterface.h"

/** The material that a core bears, or null. */
osg::MaterialPtr materialOf(const osg::NodeCorePtr& core);

/** The names of a material's states by index; none for a material without states. */
std::vector<std::string> stateNames(const osg::Material& material);

/** The name of the state in which a material stands, if it stands in one. */
std::optional<std::string> presentState(const osg::Material& material);
