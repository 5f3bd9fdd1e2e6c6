#pragma once

#include "host/osg/Material.h"

namespace osg {

/** The field of several materials. */
using MFMaterialPtr = std::vector<MaterialPtr>;

/** The fields of a material that is made of others. */
class KUHOST_EXPORT MultiMaterialBase : public Material {
 public:
  static const FieldContainerType _type;
  static constexpr FieldMask MaterialsFieldMask = FieldMask(1) << 8;

  /** The sub-materials by index. The reference stands until the next change of the field. */
  const MFMaterialPtr& getMaterials() const;

 protected:
  using Material::Material;
  ~MultiMaterialBase() override;
};

/** A material made of others. */
class KUHOST_EXPORT MultiMaterial : public MultiMaterialBase {
 public:
  static const FieldContainerType _type;

  /** Appends a sub-material, in an edit bracket whose mask has MaterialsFieldMask. */
  void addMaterial(const MaterialPtr& material);

  /**
   * Takes the first entry of that material out, in an edit bracket whose mask has
   * MaterialsFieldMask. Nothing happens if there is none.
   */
  void subMaterial(const MaterialPtr& material);

 protected:
  using MultiMaterialBase::MultiMaterialBase;
  ~MultiMaterial() override;
};

using MultiMaterialPtr = FCPtr<MultiMaterial>;

}  // namespace osg
