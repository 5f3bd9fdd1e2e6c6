#pragma once

#include "host/osg/MultiMaterial.h"

namespace osg {

class SwitchMaterial;
using SwitchMaterialPtr = FCPtr<SwitchMaterial>;

/** The fields of a switch material. */
class KUHOST_EXPORT SwitchMaterialBase : public MultiMaterial {
 public:
  static const FieldContainerType _type;
  static constexpr FieldMask ChoiceFieldMask = FieldMask(1) << 9;

  /** A new switch without sub-materials, name and users; its choice is 0. */
  static SwitchMaterialPtr create();

  /** Index of the sub-material that shows; may lie beyond their number: then none does. */
  unsigned getChoice() const;

  /** Stands in an edit bracket whose mask has ChoiceFieldMask. No value is refused. */
  void setChoice(const unsigned& choice);

 protected:
  using MultiMaterial::MultiMaterial;
  ~SwitchMaterialBase() override;
};

/** A material that shows one of its sub-materials; its states are their names. */
class KUHOST_EXPORT SwitchMaterial : public SwitchMaterialBase {
 public:
  static const FieldContainerType _type;

  /** The sub-material at @p index; null if there is none. */
  MaterialPtr getMaterial(unsigned index) const;

  bool isMultiState() const override;
  void getStateNames(std::vector<std::string>& names) const override;
  bool setCurrentState(unsigned index) override;
  bool getCurrentState(int& index) const override;
  bool getCurrentStateName(std::string& name) const override;
  bool hasSubMaterial(const MaterialPtr& material, bool recursive) const override;

 protected:
  using SwitchMaterialBase::SwitchMaterialBase;
  ~SwitchMaterial() override;
};

}  // namespace osg
