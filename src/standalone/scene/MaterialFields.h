#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/osg/MultiMaterial.h"
#include "host/osg/NodeCore.h"

namespace kuStandalone {
class ScenePool;
}

namespace osg {

/** What this host keeps about every material. */
struct MaterialFields {
  std::string name;
  /** A locked material must not be changed. */
  bool locked = false;
  /** The pool that the material is in, or null. */
  kuStandalone::ScenePool* pool = nullptr;
  /** The material's rank in its pool: it stands behind all materials of a lower one. */
  std::uint64_t poolRank = 0;
  /** The cores that bear the material. */
  std::vector<NodeCore*> users;
  /** The switches that have it as a sub-material, each as often as it has it. */
  std::vector<MultiMaterial*> holders;
  /** The sub-materials and the choice; empty and 0 for a material that is no switch. */
  MFMaterialPtr subMaterials;
  unsigned choice = 0;
  /** Index of the material in the file that the scene came from, or -1. */
  int source = -1;
};

}  // namespace osg
