#pragma once

#include "host/services/kudNode.h"

/** A camera or viewpoint, decoupled. A null one stands for a camera that was not found. */
class KUHOST_EXPORT kudCameraBaseNode : public kudNode {
  Q_GADGET

 public:
  using kudNode::kudNode;
  ~kudCameraBaseNode() override;
};
