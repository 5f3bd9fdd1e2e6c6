#include "host/services/kudCameraBaseNode.h"

kudCameraBaseNode::~kudCameraBaseNode() = default;
