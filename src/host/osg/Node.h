#pragma once

#include "host/osg/NodeCore.h"
#include "host/osg/RaytracingGeoAttachment.h"

namespace osg {

class Node;
using NodePtr = FCPtr<Node>;

/** A node of the scene graph: a place in the tree, a visibility flag, and a core. */
class KUHOST_EXPORT Node : public FieldContainer {
 public:
  static const FieldContainerType _type;
  static constexpr FieldMask TravMaskFieldMask = FieldMask(1) << 0;

  /** The core, or null. */
  NodeCorePtr getCore() const;

  unsigned getNChildren() const;

  /** The child at @p index; null if there is none. */
  NodePtr getChild(unsigned index) const;

  /** The parent; null at the top of a tree. */
  NodePtr getParent() const;

  /** The attachment of that group and binding number; null if the node has none. */
  AttachmentPtr findAttachment(unsigned groupId, unsigned short binding = 0) const;

  /** The node's own visibility flag, whatever its ancestors' flags are. */
  bool getActive() const;

  /** Stands in an edit bracket whose mask has TravMaskFieldMask. */
  void setActive(bool active);

 protected:
  using FieldContainer::FieldContainer;
  ~Node() override;
};

}  // namespace osg
