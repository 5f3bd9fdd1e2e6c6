#pragma once

#include "host/osg/NodeCore.h"

namespace osg {

/** Core of a node that only gathers its children; the base of every core that has children. */
class KUHOST_EXPORT Group : public NodeCore {
 public:
  static const FieldContainerType _type;

 protected:
  using NodeCore::NodeCore;
  ~Group() override;
};

using GroupPtr = FCPtr<Group>;

}  // namespace osg
