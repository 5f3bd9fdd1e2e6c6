#pragma once

#include <vector>

#include "host/osg/MultiMaterial.h"
#include "host/utils/kuMaterialPtr.h"
#include "host/utils/kuNodePtr.h"

/** The materials of the scene by name. */
class KUHOST_EXPORT kuMaterials {
 public:
  kuMaterials() = delete;

  /**
   * The name in UTF-8; empty for an unnamed or null material. The bytes belong to the material
   * and last until it is renamed or destroyed.
   */
  static const char* getName(const osg::MaterialPtr& material);

  /** Names a material, edit bracket included. @param notify true to tell the host's views. */
  static void setName(const osg::MaterialPtr& material, const char* name, bool notify);

  /** The first material of that name in the pool, or an invalid handle. */
  static kuMaterialPtr findMaterial(const char* name);

  /** Every material of that name in the pool, in the pool's order. */
  static std::vector<kuMaterialPtr> findMaterials(const char* name);

  /** Whether the material may be changed: false for a locked and for a null one. */
  static bool isEditable(const osg::MaterialPtr& material);

  /** The field of sub-materials; null for a material of a class that has no such field. It stands
   * until the next change of the field. */
  static const osg::MFMaterialPtr* getSubMaterials(const osg::MaterialPtr& material);

  /** Takes a material out of the scene: out of the pool, and from every node and switch that bears
   * it, edit brackets included. A switch keeps its choice. Nothing happens for null. */
  static void removeMaterial(const osg::MaterialPtr& material);

  /** Appends every node of the scene whose core uses the material, in the order of the scene. */
  static void getNodesWithMaterial(std::vector<kuNodePtr>& nodes, const osg::MaterialPtr& material);
};
