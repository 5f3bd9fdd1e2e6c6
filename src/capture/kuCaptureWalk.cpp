#include "capture/kuCaptureWalk.h"

#include <QCoreApplication>
#include <algorithm>
#include <string>

#include "host/kernel/kuScenegraph.h"
#include "host/osg/Switch.h"
#include "host/osg/UEnvironmentMaterial.h"
#include "host/osg/UberLight.h"
#include "host/utils/kuLights.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "scene/kuTransformVariant.h"

namespace {

QString nameOf(const osg::NodePtr& node) { return QString::fromUtf8(kuNodeUtils::getName(node)); }

/** The child that a switch shows; null where it shows none, or all. */
osg::NodePtr chosenChild(const osg::NodePtr& node, int choice) {
  return choice < 0 ? osg::NodePtr() : node->getChild(static_cast<unsigned>(choice));
}

/**
 * Whether a scene node of the same name has another flag at this moment: receivers and timers may
 * change flags in the midst of a walk. The host finds nodes by name without a look through all.
 */
bool differsFromNamesakes(const osg::NodePtr& node) {
  const std::vector<kuNodePtr> namesakes = kuScenegraph::findNodes(kuNodeUtils::getName(node));
  return std::any_of(namesakes.begin(), namesakes.end(), [&](const kuNodePtr& other) {
    return other.getNode()->getActive() != node->getActive();
  });
}

}  // namespace

void kuVariants::CaptureWalk::visit(const kuNodePtr& handle) {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  if (!handle.isValid()) return;
  const osg::NodePtr node = handle;
  if (incl.renderLayers) storeRenderLayerState(node);
  const bool sharedCoreSeen = isCoreSeen(node);
  if (incl.transforms && !sharedCoreSeen) captureTransform(node);
  captureSwitch(node);
  const osg::NodeCorePtr core = node->getCore();
  if (const auto geometry = osg::GeometryPtr::dcast(core)) {
    if (mayGoOn(node) && !sharedCoreSeen) captureGeometry(node, geometry);
    return;
  }
  if (const auto group = osg::MaterialGroupPtr::dcast(core)) {
    if (!mayGoOn(node)) return;
    if (incl.mats) captureMaterialGroup(node, group);
  }
  if (incl.lights && osg::UberLightPtr::dcast(core)) captureLight(node);
  if (osg::GroupPtr::dcast(core)) visitChildren(node);
}

void kuVariants::CaptureWalk::storeRenderLayerState(const osg::NodePtr& node) {
  const auto attachment = osg::RaytracingGeoAttachmentPtr::dcast(
      node->findAttachment(osg::RaytracingGeoAttachment::getClassGroupId(), 0));
  if (attachment && !attachment->isInDefaultState()) {
    attachment->storeState(set->getName().toStdString());
  }
}

bool kuVariants::CaptureWalk::isCoreSeen(const osg::NodePtr& node) {
  const auto geometry = osg::GeometryPtr::dcast(node->getCore());
  return geometry && !geometry->getParents().empty() &&
         !_capturedGeometryCores.insert(geometry).second;
}

void kuVariants::CaptureWalk::captureTransform(const osg::NodePtr& node) {
  if (kuNodeUtils::getTransformVariantCount(node) <= 0) return;
  if (!kuNodeUtils::isTransformVariantInState(node)) return;
  if (kuTransformVariant* variant = createTransformVariant(node, sendMessage)) {
    set->add(variant, variant->getCurrent());
  }
}

// A switch that shows all its children is stored as one that shows none.
void kuVariants::CaptureWalk::captureSwitch(const osg::NodePtr& node) {
  const auto core = osg::SwitchPtr::dcast(node->getCore());
  if (!core || core->getChoice() >= static_cast<int>(node->getNChildren())) return;
  const osg::NodePtr chosen = chosenChild(node, core->getChoice());
  if (!(kuNodeUtils::isEnvironmentGeometrySwitch(node) ? incl.env : incl.nodes)) return;
  kuNodeVariant* variant = createNodeVariant(node, sendMessage);
  if (!variant) return;
  if (!chosen) {
    set->add(variant, QStringLiteral("!None"));
  } else {
    set->add(variant, node->getActive() ? nameOf(chosen) : QStringLiteral("!Disable"));
  }
}

void kuVariants::CaptureWalk::captureMaterialGroup(const osg::NodePtr& node,
                                                   const osg::MaterialGroupPtr& group) {
  addMaterialGroupIgnoreToVSet(node, group, &*set);
  osg::MaterialPtr material = group->getMaterial();
  if (!material) return;
  captureMaterials(&*set, material, sendMessage);
  const QString path = getNodePath(node);
  handleSnapshots(node, path, material);
  if (const osg::MaterialPtr present = group->getMaterial()) snapshot(node, path, present);
}

void kuVariants::CaptureWalk::captureGeometry(const osg::NodePtr& node,
                                              const osg::GeometryPtr& geometry) {
  if (!incl.mats && !incl.env) return;
  osg::MaterialPtr material = geometry->getMaterial();
  if (!material) return;
  if (osg::UEnvironmentSwitchMaterialPtr::dcast(material)) {
    captureMaterials(&*set, material, sendMessage);
    return;
  }
  if (incl.mats) captureMaterials(&*set, material, sendMessage);
  const bool isEnvironment = osg::UEnvironmentMaterialPtr::dcast(material) != osg::NullFC;
  if (!(isEnvironment ? incl.env : incl.mats)) return;
  const QString path = getNodePath(node);
  handleSnapshots(node, path, material);
  const osg::MaterialPtr present = geometry->getMaterial();
  snapshot(node, path, present ? present : material);
}

void kuVariants::CaptureWalk::captureLight(const osg::NodePtr& node) {
  kuLightVariant* variant = createLightVariant(node, sendMessage);
  if (!variant) return;
  const bool isOn = node->getActive() && kuLights::getOn(node);
  set->add(variant, isOn ? QStringLiteral("!Enable") : QStringLiteral("!Disable"));
}

void kuVariants::CaptureWalk::visitChildren(const osg::NodePtr& node) {
  if (!mayGoOn(node)) return;
  for (unsigned child = 0; child < node->getNChildren(); ++child)
    visit(node->getChild(child));
}

bool kuVariants::CaptureWalk::mayGoOn(const osg::NodePtr& node) {
  return checkAndSetNodeActive(node, &*set, incl.nodes, sendMessage);
}

void kuVariants::CaptureWalk::handleSnapshots(const osg::NodePtr& node, const QString& path,
                                              osg::MaterialPtr material) {
  handleMaterialSnapshots(&*set, node, path, std::move(material), roots, handledPaths,
                          createdSwitches, handledMaterials, true, sendMessage);
}

void kuVariants::CaptureWalk::snapshot(const osg::NodePtr& node, const QString& path,
                                       const osg::MaterialPtr& material) {
  const QString name = QString::fromUtf8(kuMaterials::getName(material));
  if (!snapshots.emplace(path, name).second) return;
  checkIfNodeMatchesNodePath(node, path.toUtf8().constData(), true);
}

void kuVariants::captureVariantsFromRootNode(kuVariantSet* set, kuNodePtr node, bool inclNodes,
                                             bool inclMats, bool inclLights, bool inclEnv,
                                             bool inclTransforms, bool inclRenderLayers,
                                             MaterialSnapshots& snapshots,
                                             std::vector<kuNodePtr> roots, NodePaths& handledPaths,
                                             Switches& createdSwitches, Materials& handledMaterials,
                                             bool sendMessage) {
  CaptureWalk walk(
      set, {inclNodes, inclMats, inclLights, inclEnv, inclTransforms, inclRenderLayers}, snapshots,
      std::move(roots), handledPaths, createdSwitches, handledMaterials, sendMessage);
  walk.visit(node);
}

bool kuVariants::checkAndSetNodeActive(osg::NodePtr node, kuVariantSet* set, bool& inclNodes,
                                       bool& sendMessage) {
  if (node->getActive()) return true;
  if (!inclNodes) return false;
  const kuVariantSet::Keeper kept(*set);
  if (differsFromNamesakes(node)) {
    // A variant of that name would reach the active ones too.
    set->appendToScript(
        QStringLiteral("findNodePath(\"%1\").setActive(false)").arg(getNodePath(node)));
  } else if (kuNodeVariant* variant = createNodeVariant(node, sendMessage)) {
    kept->add(variant, QStringLiteral("!Disable"));
  }
  return false;
}

void kuVariants::addMaterialGroupIgnoreToVSet(osg::NodePtr node, osg::MaterialGroupPtr group,
                                              kuVariantSet* set) {
  const QString ignore = group->getIgnore() ? QStringLiteral("true") : QStringLiteral("false");
  set->appendToScript(
      QStringLiteral("setIgnoreMaterialGroup(\"%1\",%2)").arg(getNodePath(node), ignore));
}

void kuVariants::captureMaterials(kuVariantSet* set, osg::MaterialPtr& material, bool sendMessage) {
  if (!material) return;
  const kuVariantSet::Keeper kept(*set);
  captureMaterialVariantFromMultiStateMaterial(&*kept, material, sendMessage);
  const osg::MFMaterialPtr* field = kuMaterials::getSubMaterials(material);
  if (!field) return;
  const osg::MFMaterialPtr subMaterials = *field;  // a receiver may change the material
  for (osg::MaterialPtr subMaterial : subMaterials)
    captureMaterialVariantFromMultiStateMaterial(&*kept, subMaterial, sendMessage);
}

void kuVariants::captureMaterialVariantFromMultiStateMaterial(kuVariantSet* set,
                                                              osg::MaterialPtr& material,
                                                              bool sendMessage) {
  if (!material || !material->isMultiState()) return;
  std::string state;
  if (!material->getCurrentStateName(state)) return;
  const kuVariantSet::Keeper kept(*set);
  if (kuMaterialVariant* variant = createMaterialVariant(material, sendMessage)) {
    kept->add(variant, QString::fromStdString(state));
  }
}
