#pragma once

#include "host/osg/Group.h"

namespace osg {

/** The fields of a transform that has several states. */
class KUHOST_EXPORT SwitchComponentTransformBase : public Group {
 public:
  static const FieldContainerType _type;
  static constexpr FieldMask ChoiceFieldMask = FieldMask(1) << 8;

  /** Index of the present transform state. May lie beyond the count: then no state applies. */
  unsigned getChoice() const;

  /** Stands in an edit bracket whose mask has ChoiceFieldMask. No value is refused. */
  void setChoice(const unsigned& choice);

 protected:
  using Group::Group;
  ~SwitchComponentTransformBase() override;
};

/** Core of a node that can stand in one of several transform states, which may have names. */
class KUHOST_EXPORT SwitchComponentTransform : public SwitchComponentTransformBase {
 public:
  static const FieldContainerType _type;

  /** Number of transform states. */
  unsigned getCount() const;

 protected:
  using SwitchComponentTransformBase::SwitchComponentTransformBase;
  ~SwitchComponentTransform() override;
};

using SwitchComponentTransformPtr = FCPtr<SwitchComponentTransform>;

}  // namespace osg
