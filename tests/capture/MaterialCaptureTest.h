#pragma once

#include <string>
#include <vector>

#include "host/kernel/kuScenegraph.h"
#include "host/osg/EditCP.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuOpenSGUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

/** Fixture of the tests of what captures make of materials. */
class MaterialCaptureTest : public VariantsTest {
 protected:
  using Texts = std::vector<std::string>;
  using Snapshots = std::map<QString, QString>;

  /** A set that says which materials the nodes had, without states. */
  static kuVariantSet& setWith(const char* name, Snapshots snapshots) {
    kuVariantSet& set = *kuVariants::createVariantSet(name, false, nullptr);
    set.setMaterialSnapshots(std::move(snapshots));
    return set;
  }

  /** Captures the materials of the scene into a new set, those of the surroundings too. */
  static kuVariantSet& capture(const char* name, bool sendMessage = false) {
    kuVariantSet& set = *kuVariants::createVariantSet(name, false, nullptr);
    captureInto(set, kuOpenSGUtils::getRoot(), sendMessage);
    return set;
  }
  static void captureInto(kuVariantSet& set, const osg::NodePtr& root, bool sendMessage = false) {
    kuVariants::captureVariantsFromRootNodes(&set, {root}, false, true, false, true, false, false,
                                             false, false, sendMessage, true);
  }

  /** Gives a geometry or a material group another material, as the user does between captures. */
  static void bear(const osg::NodePtr& node, const osg::MaterialPtr& material) {
    kuVariantsTestAccess::changeMaterial(node, material);
  }
  static void choose(const osg::SwitchMaterialPtr& material, unsigned choice) {
    const osg::EditCP edit(material, osg::SwitchMaterialBase::ChoiceFieldMask);
    material->setChoice(choice);
  }

  static osg::MaterialPtr environmentMaterial(const char* name) {
    const osg::MaterialPtr made = kuStandalone::EnvironmentMaterial::create(name);
    kuStandalone::ScenePool::of(kuStandalone::Scene::the().pool).enter(made);
    return made;
  }
  static osg::SwitchMaterialPtr findSwitch(const char* name) {
    return osg::SwitchMaterialPtr::dcast(kuMaterials::findMaterial(name).getMaterial());
  }

  /** The sets, each as "A: Roof=Red Hood=Red | Switch=Red": snapshots, then states. */
  static Texts sets() {
    Texts result;
    for (const kuVariantSet* set : kuVariants::getVariantSets())
      result.push_back(textOf(*set));
    return result;
  }

  /** The switches of the pool, each as "Switch: Red *Blue": the entry that shows has a star. */
  static Texts switches() {
    Texts result;
    for (const osg::MaterialPtr& material :
         kuStandalone::ScenePool::of(kuStandalone::Scene::the().pool).materials()) {
      if (const auto found = osg::SwitchMaterialPtr::dcast(material)) {
        result.push_back(textOf(found));
      }
    }
    return result;
  }

  /** The nodes that bear a material, each as "Roof: Red". */
  static Texts nodes() {
    std::vector<kuNodePtr> all;
    kuNodeUtils::getSceneNodes(all, false);
    Texts result;
    for (const kuNodePtr& node : all) {
      const osg::MaterialPtr material = kuNodeUtils::getMaterial(node);
      if (!material) continue;
      result.push_back(std::string(kuNodeUtils::getName(node)) + ": " +
                       kuMaterials::getName(material));
    }
    return result;
  }

  static std::string textOf(const osg::SwitchMaterialPtr& material) {
    if (!material) return "no switch";
    std::string text = std::string(kuMaterials::getName(material)) + ':';
    for (std::size_t index = 0; index < material->getMaterials().size(); ++index) {
      text += index == material->getChoice() ? " *" : " ";
      text += kuMaterials::getName(material->getMaterials()[index]);
    }
    return text;
  }

  static std::string textOf(const kuVariantSet& set) {
    std::string text = set.getName().toStdString() + ':';
    for (const auto& [path, material] : set.getMaterialSnapshots())
      text += " " + path.toStdString() + '=' + material.toStdString();
    if (!set.getMaterialVariants().empty()) text += " |";
    for (const kuVariantState& entry : set.getMaterialVariants())
      text += " " + entry.getVariant().toStdString() + '=' + entry.getState().toStdString();
    return text;
  }
};
