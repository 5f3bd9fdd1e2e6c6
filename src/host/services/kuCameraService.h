#pragma once

#include <QString>

#include "host/services/kuBaseService.h"
#include "host/services/kudCameraBaseNode.h"
#include "host/services/kudCameraTrackNode.h"

/** Cameras and viewpoints by name. */
class KUHOST_EXPORT kuCameraService : public kuBaseService {
 public:
  /** The camera that a picture of the scene is taken with, or a null object. @param index always
   * 0. */
  virtual kudCameraBaseNode getActiveCamera(int index) = 0;

  /** The camera or viewpoint of that name, or a null object. */
  virtual kudCameraBaseNode findCamera(const QString& name) = 0;

  /**
   * A new viewpoint in the track of a camera that looks from where that camera is now. Its name is
   * @p name or, where that is in use, one made from it. A null object where it cannot be made.
   */
  virtual kudCameraBaseNode createViewpoint(const QString& name,
                                            const kudCameraTrackNode& track) = 0;

  /** Brings the camera's picture up to date. */
  virtual void refreshCamera(unsigned id, bool) = 0;

  /** Looks through that camera from now on. An unknown id changes nothing. */
  virtual void activateCamera(unsigned id, bool, bool, bool) = 0;

  /** The track of a camera for viewpoints that bear the name of a variant set, or a null object. */
  virtual kudCameraTrackNode findSetNamedViewpointTrack(const kudCameraBaseNode& camera) = 0;

  /** The same for viewpoints that bear such a name with " View" behind it. */
  virtual kudCameraTrackNode findViewSuffixedViewpointTrack(const kudCameraBaseNode& camera) = 0;
};
