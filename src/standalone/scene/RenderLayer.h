#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/osg/RaytracingGeoAttachment.h"

namespace kuStandalone {

/** By which rays the geometry of a node and of all below it is seen. */
struct RayVisibility {
  /** Those of the camera. */
  bool camera = true;
  /** Those that a surface reflects or refracts. */
  bool reflections = true;
  /** Those that carry light to other surfaces: what they do not see casts no shadow. */
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

  /** One that stands as this one. They share the stored states until one of them changes its own,
   * so that a clone costs little. */
  RenderLayerPtr copy() const;

  static constexpr osg::FieldMask PresentFieldMask = osg::FieldMask(1) << 0;
  static constexpr osg::FieldMask StatesFieldMask = osg::FieldMask(1) << 1;

  const RayVisibility& present() const { return _present; }
  /** The stored states. */
  const RayVisibilities& states() const { return *_states; }

  /** Whether the other one stands as this one. */
  bool equals(const RenderLayer& other) const;

  /** Stands in an edit bracket whose mask has PresentFieldMask. */
  void setPresent(const RayVisibility& visibility);

  /** Stands in an edit bracket whose mask has StatesFieldMask. */
  void store(const std::string& name);

  /** Makes it stand as another one. The edit bracket is included; there is none where nothing
   * changes. */
  void assign(const RenderLayer& other);

  /**
   * Makes the state of that name the present one. Without such a state it is the default one, since
   * a capture stores only what differs from that. The edit bracket is included; there is none where
   * nothing changes.
   */
  void activateState(const std::string& name);

 private:
  using SharedStates = std::shared_ptr<const RayVisibilities>;

  RenderLayer(const RayVisibility& present, SharedStates states);

  RayVisibility _present;
  /** Never null. */
  SharedStates _states;
};

}  // namespace kuStandalone
