#pragma once

#include <string>

#include "host/osg/FieldContainer.h"

namespace osg {

/** What a node bears beside its core, in a group of its own and under a binding number. */
class KUHOST_EXPORT Attachment : public FieldContainer {
 public:
  static const FieldContainerType _type;

 protected:
  using FieldContainer::FieldContainer;
  ~Attachment() override;
};

using AttachmentPtr = FCPtr<Attachment>;

/** A node's part in the render layers: how rays see the node, at present and in states by name. */
class KUHOST_EXPORT RaytracingGeoAttachment : public Attachment {
 public:
  static const FieldContainerType _type;

  /** The group under which a node holds it; its binding is 0. */
  static unsigned getClassGroupId();

  /** Whether the node is seen as one without such an attachment. */
  bool isInDefaultState() const;

  /**
   * Keeps the present state under a name (UTF-8), in the place of an earlier one of that name; the
   * edit bracket is included.
   */
  void storeState(const std::string& name);

 protected:
  using Attachment::Attachment;
  ~RaytracingGeoAttachment() override;
};

using RaytracingGeoAttachmentPtr = FCPtr<RaytracingGeoAttachment>;

}  // namespace osg
