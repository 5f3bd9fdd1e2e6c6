#pragma once

#include <QString>

#include "host/services/kuBaseService.h"
#include "host/services/kudCameraBaseNode.h"

/** Cameras and viewpoints by name. */
class KUHOST_EXPORT kuCameraService : public kuBaseService {
 public:
  /** The camera or viewpoint of that name, or a null object. */
  virtual kudCameraBaseNode findCamera(const QString& name) = 0;

  /** Brings the camera's picture up to date. */
  virtual void refreshCamera(unsigned id, bool) = 0;

  /** Looks through that camera from now on. An unknown id changes nothing. */
  virtual void activateCamera(unsigned id, bool, bool, bool) = 0;
};
