#include "host/services/kudCameraTrackNode.h"

kudCameraTrackNode::~kudCameraTrackNode() = default;
