#pragma once

#include "host/osg/Group.h"
#include "host/osg/Material.h"

namespace osg {

/** Core of a node that gives everything below it one material. */
class KUHOST_EXPORT MaterialGroup : public Group {
 public:
  static const FieldContainerType _type;
  static constexpr FieldMask MaterialFieldMask = FieldMask(1) << 8;
  static constexpr FieldMask IgnoreFieldMask = FieldMask(1) << 9;

  /** The material, or null. */
  MaterialPtr getMaterial() const;

  /** Whether the material is passed over, so that everything below shows its own. */
  bool getIgnore() const;

  /** Stands in an edit bracket whose mask has MaterialFieldMask. */
  void setMaterial(const MaterialPtr& material);

 protected:
  using Group::Group;
  ~MaterialGroup() override;
};

using MaterialGroupPtr = FCPtr<MaterialGroup>;

}  // namespace osg
