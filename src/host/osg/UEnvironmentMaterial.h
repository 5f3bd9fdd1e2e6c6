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

class UEnvironmentSwitchMaterial;
using UEnvironmentSwitchMaterialPtr = FCPtr<UEnvironmentSwitchMaterial>;

/** The switch that chooses among environment materials. */
class KUHOST_EXPORT UEnvironmentSwitchMaterial : public SwitchMaterial {
 public:
  static const FieldContainerType _type;

  /** A new switch without sub-materials, name and users; its choice is 0. */
  static UEnvironmentSwitchMaterialPtr create();

 protected:
  using SwitchMaterial::SwitchMaterial;
  ~UEnvironmentSwitchMaterial() override;
};

}  // namespace osg
