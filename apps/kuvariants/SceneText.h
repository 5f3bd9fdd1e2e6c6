#pragma once

#include <string>

namespace kuStandalone {
class Scene;
}

/** A scene for people to read: the tree of nodes, then sceneplates, materials and the rest. */
std::string sceneText(const kuStandalone::Scene& scene);
