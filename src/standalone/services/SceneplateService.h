#pragma once

#include "host/services/kuSceneplateService.h"

namespace kuStandalone {

/** Finds the sceneplates of the present scene. */
class SceneplateService final : public kuSceneplateService {
 public:
  QList<kudNode> findNodes(const QString& name) override;
};

}  // namespace kuStandalone
