#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/osg/FieldContainer.h"

namespace osg {

class Material;
using MaterialPtr = FCPtr<Material>;
struct MaterialFields;

/**
 * A material of the scene. Some have states of their own, and all of those answer through the
 * multi-state interface, whatever their class. Names are read and set through kuMaterials.
 */
class KUHOST_EXPORT Material : public FieldContainer {
 public:
  static const FieldContainerType _type;

  /** Whether the material has states: a switch, or a material with presets. */
  virtual bool isMultiState() const = 0;

  /** Appends the names of the states in index order; nothing for a material without states. */
  virtual void getStateNames(std::vector<std::string>& names) const = 0;

  /**
   * Puts the material into the state of that index, edit bracket included. The answer is false,
   * and nothing changes, for an index without a state.
   */
  virtual bool setCurrentState(unsigned index) = 0;

  /**
   * Gives the index of the present state. The answer is false if there is no defined present
   * state; @p index is then not to be trusted.
   */
  virtual bool getCurrentState(int& index) const = 0;

  /** The same for the name; @p name is left alone where the answer is false. */
  virtual bool getCurrentStateName(std::string& name) const = 0;

  /**
   * Whether exactly @p material is one of the sub-materials; with @p recursive, also of theirs.
   * False for a material that has none.
   */
  virtual bool hasSubMaterial(const MaterialPtr& material, bool recursive) const = 0;

  /** What the host keeps about every material, defined by the host alone. */
  MaterialFields& hostFields() { return *_fields; }
  const MaterialFields& hostFields() const { return *_fields; }

 protected:
  explicit Material(const FieldContainerType& type);
  ~Material() override;

 private:
  std::unique_ptr<MaterialFields> _fields;
};

}  // namespace osg
