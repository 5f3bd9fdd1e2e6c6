#pragma once

#include "host/osg/Group.h"

namespace osg {

/** The fields of a switch. */
class KUHOST_EXPORT SwitchBase : public Group {
 public:
  static const FieldContainerType _type;
  static constexpr FieldMask ChoiceFieldMask = FieldMask(1) << 8;

  /** -2 shows all children, -1 none, a value from 0 that child. Any value is legal and kept. */
  int getChoice() const;

  /** Stands in an edit bracket whose mask has ChoiceFieldMask. */
  void setChoice(const int& choice);

 protected:
  using Group::Group;
  ~SwitchBase() override;
};

/** Core of a node that shows one, none or all of its children. */
class KUHOST_EXPORT Switch : public SwitchBase {
 public:
  static const FieldContainerType _type;

 protected:
  using SwitchBase::SwitchBase;
  ~Switch() override;
};

using SwitchPtr = FCPtr<Switch>;

}  // namespace osg
