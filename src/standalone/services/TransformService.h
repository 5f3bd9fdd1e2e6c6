#pragma once

#include "host/services/kuTransformService.h"

namespace kuStandalone {

/** Switches the transforms of the scene: what they are meant to stand in, and what they do. */
class TransformService final : public kuTransformService {
 public:
  void switchTransformVariants(const QList<QRPC::NodeTrafoId>& states, int, int) override;
};

}  // namespace kuStandalone
