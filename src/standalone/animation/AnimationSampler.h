#pragma once

#include <array>
#include <optional>
#include <vector>

#include "standalone/scene/Scene.h"

namespace kuStandalone {

/** Where an animation puts a node. */
struct NodePose {
  osg::NodePtr node;
  Transform transform;
};

/** The time of the clip's last key in seconds; 0 for a clip without keys. */
KUHOST_EXPORT double durationOf(const AnimationClip& clip);

/**
 * The value of a channel at a time in seconds: x, y, z of a translation or scale (the fourth number
 * is 0), x, y, z, w of a rotation, which has unit length. Before the first and after the last key
 * it is that key's value. Keys without all their numbers are passed over; with none left, and for a
 * value that is no finite number or no rotation, there is no answer.
 */
KUHOST_EXPORT std::optional<std::array<double, 4>> sample(const AnimationChannel& channel,
                                                          double time);

/**
 * The poses of all nodes that the clip moves, each once, at a time in seconds. What has no channel
 * of its own keeps the value that the node has now. A node that is placed by a matrix cannot be
 * animated and is left out.
 */
KUHOST_EXPORT std::vector<NodePose> sample(const AnimationClip& clip, double time);

}  // namespace kuStandalone
