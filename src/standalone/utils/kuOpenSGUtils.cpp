#include "host/utils/kuOpenSGUtils.h"

#include "standalone/scene/Scene.h"

osg::NodePtr kuOpenSGUtils::getRoot() { return kuStandalone::Scene::the().nodes.root; }
