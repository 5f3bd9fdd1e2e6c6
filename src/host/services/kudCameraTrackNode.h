#pragma once

#include "host/services/kudNode.h"

/** A track of a camera, decoupled: what its viewpoints stand in. */
class KUHOST_EXPORT kudCameraTrackNode : public kudNode {
  Q_GADGET

 public:
  using kudNode::kudNode;
  ~kudCameraTrackNode() override;
};
