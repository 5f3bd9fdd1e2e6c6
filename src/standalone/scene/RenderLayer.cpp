#include "standalone/scene/RenderLayer.h"

#include "host/osg/EditCP.h"
#include "standalone/scene/EditBrackets.h"

namespace kuStandalone {

RenderLayer::RenderLayer(const RayVisibility& present, RayVisibilities states)
    : osg::RaytracingGeoAttachment(osg::RaytracingGeoAttachment::_type),
      _present(present),
      _states(std::move(states)) {}

RenderLayerPtr RenderLayer::create(const RayVisibility& present, RayVisibilities states) {
  return RenderLayerPtr(new RenderLayer(present, std::move(states)));
}

void RenderLayer::setPresent(const RayVisibility& visibility) {
  EditBrackets::noteChange(*this, PresentFieldMask, "RenderLayer::setPresent");
  _present = visibility;
}

void RenderLayer::setStates(RayVisibilities states) {
  EditBrackets::noteChange(*this, StatesFieldMask, "RenderLayer::setStates");
  _states = std::move(states);
}

void RenderLayer::activateState(const std::string& name) {
  const auto found = _states.find(name);
  const RayVisibility wanted = found == _states.end() ? RayVisibility() : found->second;
  if (wanted == _present) return;
  const osg::EditCP edit{RenderLayerPtr(this), PresentFieldMask};
  setPresent(wanted);
}

}  // namespace kuStandalone

namespace osg {

using kuStandalone::RenderLayer;

const FieldContainerType Attachment::_type("Attachment", &FieldContainer::_type);
const FieldContainerType RaytracingGeoAttachment::_type("RaytracingGeoAttachment",
                                                        &Attachment::_type);

Attachment::~Attachment() = default;
RaytracingGeoAttachment::~RaytracingGeoAttachment() = default;

// The one group of attachments that this host has; 0 is none.
unsigned RaytracingGeoAttachment::getClassGroupId() { return 1; }

bool RaytracingGeoAttachment::isInDefaultState() const {
  return static_cast<const RenderLayer*>(this)->present() == kuStandalone::RayVisibility();
}

void RaytracingGeoAttachment::storeState(const std::string& name) {
  auto& self = static_cast<RenderLayer&>(*this);
  kuStandalone::RayVisibilities states = self.states();
  states[name] = self.present();
  const EditCP edit{RaytracingGeoAttachmentPtr(this), RenderLayer::StatesFieldMask};
  self.setStates(std::move(states));
}

}  // namespace osg
