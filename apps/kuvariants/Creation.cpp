#include "Creation.h"

#include <QFile>
#include <QFileInfo>

#include "Diagnostics.h"
#include "SceneState.h"
#include "VariableObjects.h"
#include "host/osg/Sceneplate.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariantCreator.h"
#include "scene/kuNodeVariantCreator.h"
#include "scene/kuOverlayVariantCreator.h"
#include "scene/kuTransformVariantCreator.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

/** Those that stand in a switch are left out: the switch's own variant turns them on and off. */
void createPlateVariants(const osg::NodePtr& node) {
  if (osg::SwitchPtr::dcast(node->getCore())) return;
  if (osg::SceneplatePtr::dcast(node->getCore())) kuVariants::createOverlayVariant(node, false);
  for (unsigned i = 0; i < node->getNChildren(); ++i)
    createPlateVariants(node->getChild(i));
}

void createOverlayVariants() {
  const osg::NodePtr root = kuSceneplateUtils::getSceneplateRoot();
  if (!root) return;
  createPlateVariants(root);
  kuOverlayVariantCreator().traverse(root);
}

void createMaterialVariants(const ScenePool& pool) {
  const osg::MFMaterialPtr materials = pool.materials();
  for (const osg::MaterialPtr& material : materials) {
    if (material->isMultiState()) kuVariants::createMaterialVariant(material, false);
  }
}

void createVariants() {
  const osg::NodePtr root = kuScenegraph::getRoot();
  kuNodeVariantCreator().traverse(root);
  createMaterialVariants(ScenePool::of(Scene::the().pool));
  kuTransformVariantCreator().traverse(root);
  kuLightVariantCreator().traverse(root);
  createOverlayVariants();
}

/** A set for one of the file's variants; @p number tells those without a name apart. */
kuVariantSet& createSet(const FileVariant& variant, int number, kuVariantGroup* group) {
  const QString wanted = variant.name.empty() ? QStringLiteral("Variant %1").arg(number)
                                              : QString::fromStdString(variant.name);
  const QString name = kuVariants::getUniqueVariantSetName(wanted);
  if (name != wanted) {
    printDiagnostic("warning: the scene file has several variants \"" + wanted.toStdString() +
                    "\"; number " + std::to_string(number) + " becomes the set \"" +
                    name.toStdString() + '"');
  }
  return *kuVariants::createVariantSet(name, false, group);
}

void addChoice(kuVariantSet& set, const osg::SwitchMaterialPtr& material, unsigned choice) {
  const QString name = QString::fromUtf8(kuMaterials::getName(material));
  const std::vector<std::string> states = stateNames(*material);
  if (!kuVariants::findMaterialVariant(name) || choice >= states.size()) return;
  const QString state = QString::fromStdString(states[choice]);
  const kuVariantState* other = set.findMaterialVariant(name);
  if (other && other->getState() != state) {
    printDiagnostic("warning: several materials are named \"" + name.toStdString() +
                    "\"; the set \"" + set.getName().toStdString() +
                    "\" cannot put them into different states");
    return;
  }
  set.addMaterialVariant(name, state);
}

QString groupName(const std::string& scenePath) {
  const QString base = QFileInfo(QFile::decodeName(scenePath.c_str())).completeBaseName();
  return base.isEmpty() ? QStringLiteral("Scene") : base;
}

void createFileSets(const std::string& scenePath) {
  const std::vector<FileVariant>& variants = Scene::the().fileVariants;
  if (variants.empty()) return;
  kuVariantGroup* group = kuVariants::createVariantGroup(groupName(scenePath), false, true);
  int number = 0;
  for (const FileVariant& variant : variants) {
    kuVariantSet& set = createSet(variant, ++number, group);
    for (const auto& choice : variant.choices)
      addChoice(set, choice.first, choice.second);
  }
}

}  // namespace

void createFromScene(const std::string& scenePath) {
  warnOfVariableObjects();
  createVariants();
  createFileSets(scenePath);
}
