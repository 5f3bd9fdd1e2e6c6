#pragma once

#include "host/osg/Material.h"

namespace osg {

/** The materials of the scene. A material can be found by its name while it is in the pool. */
class KUHOST_EXPORT MaterialPool : public FieldContainer {
 public:
  static const FieldContainerType _type;

  /**
   * Enters a material, in an edit bracket of the pool. A null one, and one that is in the pool
   * already, change nothing.
   */
  void add(const MaterialPtr& material);

 protected:
  using FieldContainer::FieldContainer;
  ~MaterialPool() override;
};

using MaterialPoolPtr = FCPtr<MaterialPool>;

}  // namespace osg
