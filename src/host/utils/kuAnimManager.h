#pragma once

#include <set>
#include <string>

#include "host/kuHostExport.h"

/** The animations of the scene: clips, and blocks of clips. */
class KUHOST_EXPORT kuAnimManager {
 public:
  static kuAnimManager& the();

  kuAnimManager(const kuAnimManager&) = delete;
  kuAnimManager& operator=(const kuAnimManager&) = delete;

  /** Adds the names of all animation blocks and of all clips, in UTF-8. */
  void getBlockAndClipNames(std::set<std::string>& names) const;

 private:
  kuAnimManager() = default;
};
