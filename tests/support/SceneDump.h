#pragma once

#include <string>

#include "standalone/scene/Scene.h"

/**
 * A whole scene as text: nodes with kinds, flags, choices, transforms and clones, materials,
 * cameras, viewpoints, animations, blocks and sceneplates. Two scenes that give the same text are
 * the same to everyone who uses them; where something stood in a file is not told.
 */
std::string dumpScene(const kuStandalone::Scene& scene);
