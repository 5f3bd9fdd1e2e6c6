#pragma once

#include "host/services/kuCameraService.h"

namespace kuStandalone {

/** Looks through the viewpoints of the present scene. */
class CameraService final : public kuCameraService {
 public:
  kudCameraBaseNode getActiveCamera(int index) override;
  kudCameraBaseNode findCamera(const QString& name) override;
  kudCameraBaseNode createViewpoint(const QString& name, const kudCameraTrackNode& track) override;
  void refreshCamera(unsigned id, bool) override;
  void activateCamera(unsigned id, bool, bool, bool) override;
  kudCameraTrackNode findSetNamedViewpointTrack(const kudCameraBaseNode& camera) override;
  kudCameraTrackNode findViewSuffixedViewpointTrack(const kudCameraBaseNode& camera) override;
};

}  // namespace kuStandalone
