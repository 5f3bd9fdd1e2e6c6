#include "standalone/animation/AnimationPlayer.h"

#include <algorithm>

#include "host/kernel/kuController.h"
#include "host/kernel/kuLog.h"
#include "host/osg/EditCP.h"
#include "standalone/animation/AnimationSampler.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {
namespace {

constexpr const char* startMessage = "animationStart";

std::vector<std::string>& startedNames() {
  static std::vector<std::string> names;
  return names;
}

const AnimationClip* findClip(const std::string& name) {
  const std::vector<AnimationClip>& clips = Scene::the().animations;
  const auto found = std::find_if(clips.begin(), clips.end(),
                                  [&](const AnimationClip& clip) { return clip.name == name; });
  return found == clips.end() ? nullptr : &*found;
}

void moveToEnd(const AnimationClip& clip) {
  for (const NodePose& pose : sample(clip, durationOf(clip))) {
    const osg::EditCP edit(pose.node, SceneNode::TransformFieldMask);
    SceneNode::of(pose.node).moveTo(pose.transform);
  }
}

void startBlock(const std::string& block, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (const AnimationClip* clip = findClip(name)) {
      moveToEnd(*clip);
    } else {
      kuLog::warning("Animation block '%s' names an unknown animation '%s'", block.c_str(),
                     name.c_str());
    }
  }
}

void start(const std::string& name) {
  const AnimationClip* clip = findClip(name);
  const auto& blocks = Scene::the().animationBlocks;
  const auto block = blocks.find(name);
  if (!clip && block == blocks.end()) {
    kuLog::warning("There is no animation '%s'", name.c_str());
    return;
  }
  startedNames().push_back(name);
  clip ? moveToEnd(*clip) : startBlock(name, block->second);
}

void onAnimationStart(kuMessage& message) {
  std::string name;
  if (message.get("animation-name", name)) start(name);
}

}  // namespace

AnimationPlayer::AnimationPlayer() { kuController::addCB(startMessage, onAnimationStart); }

AnimationPlayer::~AnimationPlayer() { kuController::subCB(startMessage, onAnimationStart); }

const std::vector<std::string>& AnimationPlayer::started() { return startedNames(); }

void AnimationPlayer::clearStarted() { startedNames().clear(); }

}  // namespace kuStandalone
