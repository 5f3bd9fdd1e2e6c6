#pragma once

#include <string>
#include <vector>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * Hears "animationStart" while it lives and moves the scene. The name of the message is that of a
 * clip or of a block of clips; a clip wins. A clip that is started stands at its end at once,
 * instantaneous or not, since without a window nobody sees it run. There is one at a time.
 */
class KUHOST_EXPORT AnimationPlayer {
 public:
  AnimationPlayer();
  ~AnimationPlayer();
  AnimationPlayer(const AnimationPlayer&) = delete;
  AnimationPlayer& operator=(const AnimationPlayer&) = delete;

  /** The names of the animations that were started since the last clearStarted, in order. */
  static const std::vector<std::string>& started();
  static void clearStarted();
};

}  // namespace kuStandalone
