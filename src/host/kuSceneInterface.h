#pragma once

/**
 * @file
 * The scene as the library sees it: everything that a host answers about nodes, cores, materials
 * and their names.
 */
#include "host/kernel/kuScenegraph.h"
#include "host/osg/EditCP.h"
#include "host/osg/Geometry.h"
#include "host/osg/GraphOp.h"
#include "host/osg/Group.h"
#include "host/osg/Material.h"
#include "host/osg/MaterialGroup.h"
#include "host/osg/MaterialPool.h"
#include "host/osg/MultiMaterial.h"
#include "host/osg/Node.h"
#include "host/osg/RaytracingGeoAttachment.h"
#include "host/osg/Sceneplate.h"
#include "host/osg/Switch.h"
#include "host/osg/SwitchComponentTransform.h"
#include "host/osg/SwitchMaterial.h"
#include "host/osg/UEnvironmentMaterial.h"
#include "host/osg/UberLight.h"
#include "host/osg/Vector.h"
#include "host/utils/NodeUtils.h"
#include "host/utils/kuLights.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuOpenSGUtils.h"
#include "host/utils/kuSceneplateUtils.h"
