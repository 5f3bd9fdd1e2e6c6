#pragma once

#include "host/osg/SwitchMaterial.h"
#include "host/osg/UEnvironmentMaterial.h"

/**
 * @file
 * The materials of this host. Every create() gives a material outside any pool.
 */
namespace kuStandalone {

/** A material without states. */
class KUHOST_EXPORT PlainMaterial final : public osg::Material {
 public:
  static const osg::FieldContainerType _type;

  static osg::MaterialPtr create(std::string name);

  bool isMultiState() const override { return false; }
  void getStateNames(std::vector<std::string>&) const override {}
  bool setCurrentState(unsigned) override { return false; }
  bool getCurrentState(int&) const override { return false; }
  bool getCurrentStateName(std::string&) const override { return false; }
  bool hasSubMaterial(const osg::MaterialPtr&, bool) const override { return false; }

 private:
  PlainMaterial();
};

/** A material with presets of its own: states that are not materials. */
class KUHOST_EXPORT PresetMaterial final : public osg::Material {
 public:
  static const osg::FieldContainerType _type;

  /** @param present index of the present preset, -1 for none. */
  static osg::MaterialPtr create(std::string name, std::vector<std::string> presets, int present);
  static PresetMaterial& of(const osg::MaterialPtr& material) {
    return static_cast<PresetMaterial&>(*material);
  }

  bool isMultiState() const override { return true; }
  void getStateNames(std::vector<std::string>& names) const override;
  bool setCurrentState(unsigned index) override;
  bool getCurrentState(int& index) const override;
  bool getCurrentStateName(std::string& name) const override;
  bool hasSubMaterial(const osg::MaterialPtr&, bool) const override { return false; }

  std::vector<std::string> presets;
  int present;

 private:
  PresetMaterial(std::vector<std::string> names, int firstPresent);
};

/** An environment material without states. */
class KUHOST_EXPORT EnvironmentMaterial final : public osg::UEnvironmentMaterial {
 public:
  static osg::MaterialPtr create(std::string name);

  bool isMultiState() const override { return false; }
  void getStateNames(std::vector<std::string>&) const override {}
  bool setCurrentState(unsigned) override { return false; }
  bool getCurrentState(int&) const override { return false; }
  bool getCurrentStateName(std::string&) const override { return false; }
  bool hasSubMaterial(const osg::MaterialPtr&, bool) const override { return false; }

 private:
  EnvironmentMaterial();
};

/** A switch material with sub-materials; @param environment makes it an environment switch. */
KUHOST_EXPORT osg::SwitchMaterialPtr createSwitchMaterial(std::string name,
                                                          osg::MFMaterialPtr subMaterials,
                                                          unsigned choice,
                                                          bool environment = false);

}  // namespace kuStandalone
