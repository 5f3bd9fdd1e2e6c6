#include "standalone/scene/Materials.h"

#include <algorithm>

#include "host/kernel/kuLog.h"
#include "host/osg/EditCP.h"
#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/MaterialUse.h"

namespace kuStandalone {
namespace {

class PlainSwitchMaterial final : public osg::SwitchMaterial {
 public:
  PlainSwitchMaterial() : osg::SwitchMaterial(osg::SwitchMaterial::_type) {}
};

class EnvironmentSwitchMaterial final : public osg::UEnvironmentSwitchMaterial {
 public:
  EnvironmentSwitchMaterial()
      : osg::UEnvironmentSwitchMaterial(osg::UEnvironmentSwitchMaterial::_type) {}
};

osg::MaterialPtr named(osg::Material* material, std::string name) {
  material->hostFields().name = std::move(name);
  return osg::MaterialPtr(material);
}

}  // namespace

const osg::FieldContainerType PlainMaterial::_type("PlainMaterial", &osg::Material::_type);
const osg::FieldContainerType PresetMaterial::_type("PresetMaterial", &osg::Material::_type);

PlainMaterial::PlainMaterial() : osg::Material(_type) {}

osg::MaterialPtr PlainMaterial::create(std::string name) {
  return named(new PlainMaterial, std::move(name));
}

PresetMaterial::PresetMaterial(std::vector<std::string> names, int firstPresent)
    : osg::Material(_type), presets(std::move(names)), present(firstPresent) {}

osg::MaterialPtr PresetMaterial::create(std::string name, std::vector<std::string> presets,
                                        int present) {
  return named(new PresetMaterial(std::move(presets), present), std::move(name));
}

void PresetMaterial::getStateNames(std::vector<std::string>& names) const {
  names.insert(names.end(), presets.begin(), presets.end());
}

bool PresetMaterial::setCurrentState(unsigned index) {
  if (index >= presets.size()) return false;
  const osg::EditCP edit{osg::MaterialPtr(this)};
  present = static_cast<int>(index);
  return true;
}

bool PresetMaterial::getCurrentState(int& index) const {
  index = present;
  return present >= 0 && static_cast<std::size_t>(present) < presets.size();
}

bool PresetMaterial::getCurrentStateName(std::string& name) const {
  int index = -1;
  if (!getCurrentState(index)) return false;
  name = presets[static_cast<std::size_t>(index)];
  return true;
}

EnvironmentMaterial::EnvironmentMaterial()
    : osg::UEnvironmentMaterial(osg::UEnvironmentMaterial::_type) {}

osg::MaterialPtr EnvironmentMaterial::create(std::string name) {
  return named(new EnvironmentMaterial, std::move(name));
}

osg::SwitchMaterialPtr createSwitchMaterial(std::string name, osg::MFMaterialPtr subMaterials,
                                            unsigned choice, bool environment) {
  osg::SwitchMaterialPtr material(
      environment ? static_cast<osg::SwitchMaterial*>(new EnvironmentSwitchMaterial)
                  : new PlainSwitchMaterial);
  osg::MaterialFields& fields = material->hostFields();
  fields.name = std::move(name);
  fields.choice = choice;
  assignSubMaterials(*material, std::move(subMaterials));
  return material;
}

}  // namespace kuStandalone

namespace osg {

using kuStandalone::EditBrackets;

const FieldContainerType Material::_type("Material", &FieldContainer::_type);
const FieldContainerType MultiMaterialBase::_type("MultiMaterialBase", &Material::_type);
const FieldContainerType MultiMaterial::_type("MultiMaterial", &MultiMaterialBase::_type);
const FieldContainerType SwitchMaterialBase::_type("SwitchMaterialBase", &MultiMaterial::_type);
const FieldContainerType SwitchMaterial::_type("SwitchMaterial", &SwitchMaterialBase::_type);
const FieldContainerType UEnvironmentMaterial::_type("UEnvironmentMaterial", &Material::_type);
const FieldContainerType UEnvironmentSwitchMaterial::_type("UEnvironmentSwitchMaterial",
                                                           &SwitchMaterial::_type);

Material::Material(const FieldContainerType& type)
    : FieldContainer(type), _fields(std::make_unique<MaterialFields>()) {}
Material::~Material() = default;
MultiMaterialBase::~MultiMaterialBase() = default;
MultiMaterial::~MultiMaterial() { kuStandalone::assignSubMaterials(*this, {}); }
SwitchMaterialBase::~SwitchMaterialBase() = default;
SwitchMaterial::~SwitchMaterial() = default;
UEnvironmentMaterial::~UEnvironmentMaterial() = default;
UEnvironmentSwitchMaterial::~UEnvironmentSwitchMaterial() = default;

const MFMaterialPtr& MultiMaterialBase::getMaterials() const { return hostFields().subMaterials; }

void MultiMaterial::addMaterial(const MaterialPtr& material) {
  EditBrackets::noteChange(*this, MaterialsFieldMask, "MultiMaterial::addMaterial");
  if (!material) return;
  // A material inside itself would never be freed and never end a walk.
  if (material == MaterialPtr(this) || material->hasSubMaterial(MaterialPtr(this), true)) {
    kuLog::error("Material '%s' cannot be a part of itself", hostFields().name.c_str());
    return;
  }
  kuStandalone::addSubMaterial(*this, material);
}

void MultiMaterial::subMaterial(const MaterialPtr& material) {
  EditBrackets::noteChange(*this, MaterialsFieldMask, "MultiMaterial::subMaterial");
  kuStandalone::removeSubMaterial(*this, material);
}

SwitchMaterialPtr SwitchMaterialBase::create() {
  return kuStandalone::createSwitchMaterial({}, {}, 0);
}

UEnvironmentSwitchMaterialPtr UEnvironmentSwitchMaterial::create() {
  return UEnvironmentSwitchMaterialPtr::dcast(kuStandalone::createSwitchMaterial({}, {}, 0, true));
}

unsigned SwitchMaterialBase::getChoice() const { return hostFields().choice; }

void SwitchMaterialBase::setChoice(const unsigned& choice) {
  EditBrackets::noteChange(*this, ChoiceFieldMask, "SwitchMaterialBase::setChoice");
  hostFields().choice = choice;
}

MaterialPtr SwitchMaterial::getMaterial(unsigned index) const {
  const MFMaterialPtr& materials = getMaterials();
  return index < materials.size() ? materials[index] : MaterialPtr();
}

bool SwitchMaterial::isMultiState() const { return true; }

void SwitchMaterial::getStateNames(std::vector<std::string>& names) const {
  for (const MaterialPtr& material : getMaterials())
    names.push_back(material->hostFields().name);
}

bool SwitchMaterial::setCurrentState(unsigned index) {
  if (index >= getMaterials().size()) return false;
  const EditCP edit(MaterialPtr(this), ChoiceFieldMask);
  setChoice(index);
  return true;
}

bool SwitchMaterial::getCurrentState(int& index) const {
  index = static_cast<int>(getChoice());
  return getChoice() < getMaterials().size();
}

bool SwitchMaterial::getCurrentStateName(std::string& name) const {
  const MaterialPtr material = getMaterial(getChoice());
  if (!material) return false;
  name = material->hostFields().name;
  return true;
}

bool SwitchMaterial::hasSubMaterial(const MaterialPtr& material, bool recursive) const {
  return std::any_of(getMaterials().begin(), getMaterials().end(), [&](const MaterialPtr& own) {
    return own == material || (recursive && own->hasSubMaterial(material, true));
  });
}

}  // namespace osg
