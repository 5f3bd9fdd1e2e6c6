#pragma once

#include "host/osg/SwitchMaterial.h"

namespace osg {

/** A material that shows the scene's surroundings. */
class KUHOST_EXPORT UEnvironmentMaterial : public Material {
 public:
  static const FieldContainerType _type;

 protected:
  using Material::Material;
  ~UEnvironmentMaterial() override;
};

using UEnvironmentMaterialPtr = FCPtr<UEnvironmentMaterial>;

/** The switch that chooses among environment materials. */
class KUHOST_EXPORT UEnvironmentSwitchMaterial : public SwitchMaterial {
 public:
  static const FieldContainerType _type;

 protected:
  using SwitchMaterial::SwitchMaterial;
  ~UEnvironmentSwitchMaterial() override;
};

using UEnvironmentSwitchMaterialPtr = FCPtr<UEnvironmentSwitchMaterial>;

}  // namespace osg
