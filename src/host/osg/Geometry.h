#pragma once

#include "host/osg/Material.h"
#include "host/osg/NodeCore.h"

namespace osg {

/** Core of a node that bears triangles and their material. It has no children. */
class KUHOST_EXPORT Geometry : public NodeCore {
 public:
  static const FieldContainerType _type;
  static constexpr FieldMask MaterialFieldMask = FieldMask(1) << 8;

  /** The material, or null. */
  MaterialPtr getMaterial() const;

  /** Stands in an edit bracket whose mask has MaterialFieldMask. */
  void setMaterial(const MaterialPtr& material);

 protected:
  using NodeCore::NodeCore;
  ~Geometry() override;
};

using GeometryPtr = FCPtr<Geometry>;

}  // namespace osg
