#pragma once

#include <map>
#include <string>

#include "host/osg/RaytracingGeoAttachment.h"

namespace kuStandalone {

/** By which kinds of rays the geometry of a node and of all below it is seen. */
struct RayVisibility {
  /** The camera's own rays. */
  bool camera = true;
  /** What surfaces reflect and refract. */
  bool reflections = true;
  /** The light on its way to other surfaces: what it does not see casts no shadow. */
  bool shadows = true;

  bool operator==(const RayVisibility& other) const {
    return camera == other.camera && reflections == other.reflections && shadows == other.shadows;
  }
  bool operator!=(const RayVisibility& other) const { return !(*this == other); }
};

/** Visibilities by name, sorted. */
using RayVisibilities = std::map<std::string, RayVisibility>;

class RenderLayer;
using RenderLayerPtr = osg::FCPtr<RenderLayer>;

/** The render-layer attachment of this host. It belongs to one node. */
class KUHOST_EXPORT RenderLayer final : public osg::RaytracingGeoAttachment {
 public:
  static RenderLayerPtr create(const RayVisibility& present = {}, RayVisibilities states = {});

  static constexpr osg::FieldMask PresentFieldMask = osg::FieldMask(1) << 0;
  static constexpr osg::FieldMask StatesFieldMask = osg::FieldMask(1) << 1;

  const RayVisibility& present() const { return _present; }
  /** Stands in an edit bracket whose mask has PresentFieldMask. */
  void setPresent(const RayVisibility& visibility);

  const RayVisibilities& states() const { return _states; }
  /** Stands in an edit bracket whose mask has StatesFieldMask. */
  void setStates(RayVisibilities states);

  /**
   * Makes the state of that name the present one. Without such a state it is the default one, since
   * a capture stores only what differs from that. The edit bracket is included; there is none where
   * nothing changes.
   */
  void activateState(const std::string& name);

 private:
  RenderLayer(const RayVisibility& present, RayVisibilities states);

  RayVisibility _present;
  RayVisibilities _states;
};

}  // namespace kuStandalone
