#pragma once

#include "host/osg/NodeCore.h"

namespace osg {

/** Core of a node that is a picture in front of the scene. */
class KUHOST_EXPORT Sceneplate : public NodeCore {
 public:
  static const FieldContainerType _type;

 protected:
  using NodeCore::NodeCore;
  ~Sceneplate() override;
};

using SceneplatePtr = FCPtr<Sceneplate>;

}  // namespace osg
