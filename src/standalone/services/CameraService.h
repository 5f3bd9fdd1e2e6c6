#pragma once

#include "host/services/kuCameraService.h"

namespace kuStandalone {

/** Looks through the viewpoints of the present scene. */
class CameraService final : public kuCameraService {
 public:
  kudCameraBaseNode findCamera(const QString& name) override;
  void refreshCamera(unsigned id, bool) override;
  void activateCamera(unsigned id, bool, bool, bool) override;
};

}  // namespace kuStandalone
