#include "standalone/scene/RenderLayer.h"

#include "host/osg/EditCP.h"
#include "standalone/scene/EditBrackets.h"

namespace kuStandalone {

RenderLayer::RenderLayer(const RayVisibility& present, SharedStates states)
    : osg::RaytracingGeoAttachment(osg::RaytracingGeoAttachment::_type),
      _present(present),
      _states(std::move(states)) {}

RenderLayerPtr RenderLayer::create(const RayVisibility& present, RayVisibilities states) {
  return RenderLayerPtr(
      new RenderLayer(present, std::make_shared<const RayVisibilities>(std::move(states))));
}

RenderLayerPtr RenderLayer::copy() const {
  return RenderLayerPtr(new RenderLayer(_present, _states));
}

bool RenderLayer::equals(const RenderLayer& other) const {
  return _present == other._present && (_states == other._states || *_states == *other._states);
}

void RenderLayer::setPresent(const RayVisibility& visibility) {
  EditBrackets::noteChange(*this, PresentFieldMask, "RenderLayer::setPresent");
  _present = visibility;
}

void RenderLayer::store(const std::string& name) {
  EditBrackets::noteChange(*this, StatesFieldMask, "RenderLayer::store");
  RayVisibilities states = *_states;
  states[name] = _present;
  _states = std::make_shared<const RayVisibilities>(std::move(states));
}

void RenderLayer::assign(const RenderLayer& other) {
  if (equals(other)) return;
  const osg::EditCP edit(RenderLayerPtr(this), PresentFieldMask | StatesFieldMask);
  setPresent(other._present);
  EditBrackets::noteChange(*this, StatesFieldMask, "RenderLayer::assign");
  _states = other._states;
}

void RenderLayer::activateState(const std::string& name) {
  const auto found = _states->find(name);
  const RayVisibility wanted = found == _states->end() ? RayVisibility() : found->second;
  if (wanted == _present) return;
  const osg::EditCP edit(RenderLayerPtr(this), PresentFieldMask);
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

// The one group of attachments that this host has.
unsigned RaytracingGeoAttachment::getClassGroupId() { return 1; }

bool RaytracingGeoAttachment::isInDefaultState() const {
  return static_cast<const RenderLayer*>(this)->present() == kuStandalone::RayVisibility();
}

void RaytracingGeoAttachment::storeState(const std::string& name) {
  const EditCP edit(RaytracingGeoAttachmentPtr(this), RenderLayer::StatesFieldMask);
  static_cast<RenderLayer*>(this)->store(name);
}

}  // namespace osg
