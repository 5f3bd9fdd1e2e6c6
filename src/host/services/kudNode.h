#pragma once

#include "host/services/kudObject.h"

/** A node of the scene or of the sceneplates, decoupled. */
class KUHOST_EXPORT kudNode : public kudObject {
  Q_GADGET

 public:
  using kudObject::kudObject;
  ~kudNode() override;

  /** The node's name; empty for a null object. */
  QString getName() const;

  /** The node's own visibility flag, the one that osg::Node::getActive reads. */
  bool getVisibilityFlag() const;

  /** Sets the flag, edit bracket included; nothing for a null object. */
  void setVisibilityFlag(bool visible);

  /** The number of children; 0 for a null object. */
  unsigned getChildCount() const;

  /** The child at that index; a null object if there is none. */
  kudNode getChild(unsigned index) const;
};
