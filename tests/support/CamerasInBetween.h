#pragma once

#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"

/**
 * Stands in the place of the host's camera service as long as it lives, and passes everything on to
 * it. A test overrides what it wants to see, or to answer otherwise.
 */
class CamerasInBetween : public kuCameraService {
 public:
  CamerasInBetween() : own(*factory().getService<kuCameraService>()) {
    factory().registerService<kuCameraService>(this);
  }
  ~CamerasInBetween() override { factory().registerService<kuCameraService>(&own); }
  CamerasInBetween(const CamerasInBetween&) = delete;
  CamerasInBetween& operator=(const CamerasInBetween&) = delete;

  kudCameraBaseNode getActiveCamera(int index) override { return own.getActiveCamera(index); }
  kudCameraBaseNode findCamera(const QString& name) override { return own.findCamera(name); }
  kudCameraBaseNode createViewpoint(const QString& name, const kudCameraTrackNode& track) override {
    return own.createViewpoint(name, track);
  }
  void refreshCamera(unsigned id, bool flag) override { own.refreshCamera(id, flag); }
  void activateCamera(unsigned id, bool a, bool b, bool c) override {
    own.activateCamera(id, a, b, c);
  }
  kudCameraTrackNode findSetNamedViewpointTrack(const kudCameraBaseNode& camera) override {
    return own.findSetNamedViewpointTrack(camera);
  }
  kudCameraTrackNode findViewSuffixedViewpointTrack(const kudCameraBaseNode& camera) override {
    return own.findViewSuffixedViewpointTrack(camera);
  }

 protected:
  kuCameraService& own;

 private:
  static kuKernelServiceFactory& factory() { return kuKernelServiceFactory::the(); }
};
