#pragma once

#include "host/services/kudNode.h"

/** A switch node, decoupled. Made with the number 0 it is null until assigned. */
class KUHOST_EXPORT kudSwitchNode : public kudNode {
  Q_GADGET

 public:
  using kudNode::kudNode;
  ~kudSwitchNode() override;

  /** The choice of the switch, as osg::SwitchBase has it; -1 for a null object. */
  int getChoice() const;

  /** Sets the choice, edit bracket included; nothing for a null object. */
  void setChoice(int choice);
};
