#pragma once

#include "host/osg/NodeCore.h"

namespace osg {

/** Core of a light node. It is read and switched through kuLights. */
class KUHOST_EXPORT UberLight : public NodeCore {
 public:
  static const FieldContainerType _type;

 protected:
  using NodeCore::NodeCore;
  ~UberLight() override;
};

using UberLightPtr = FCPtr<UberLight>;

}  // namespace osg
