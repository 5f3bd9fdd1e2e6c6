#include <QCoreApplication>
#include <QProgressDialog>

#include "capture/kuSnapshotIndex.h"
#include "host/kernel/kuController.h"
#include "host/kernel/kuScenegraph.h"
#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuOpenSGUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSetKeeper.h"

// A capture from its beginning to its end; the walk over the scene stands for itself.

namespace {

/** The busy state of the application, with the dialogue that shows it. */
class BusyDialog {
 public:
  BusyDialog() {
    kuVariants::initVSetProgressDialog(&_dialog);
    kuController::setBusy(true, true);
  }
  ~BusyDialog() { kuController::setBusy(false, true); }
  BusyDialog(const BusyDialog&) = delete;
  BusyDialog& operator=(const BusyDialog&) = delete;

 private:
  QProgressDialog _dialog;
};

/** Empties a container when a capture ends, however it ends. */
template <class Container>
class EmptiedAtEnd {
 public:
  explicit EmptiedAtEnd(Container& container) : _container(container) {}
  ~EmptiedAtEnd() { _container.clear(); }
  EmptiedAtEnd(const EmptiedAtEnd&) = delete;
  EmptiedAtEnd& operator=(const EmptiedAtEnd&) = delete;

 private:
  Container& _container;
};

/** The group of that name; made, where there is none. Null where that fails. */
kuVariantGroup* groupNamed(const QString& name) {
  if (kuVariantGroup* existing = kuVariants::findVariantGroup(name)) return existing;
  // A render queue is the application's own affair: it is neither shown nor announced.
  const bool visible = name.toUtf8() != "Render Queue";
  return kuVariants::createVariantGroup(kuVariants::getUniqueVariantGroupName(name), visible,
                                        visible);
}

void captureViewpoint(kuVariantSet* set, bool useSetNameForView) {
  auto* cameras = kuKernelServiceFactory::the().getService<kuCameraService>();
  if (!cameras) return;
  const kudCameraBaseNode camera = cameras->getActiveCamera(0);
  if (camera.isNull()) return;
  const kudCameraTrackNode track = useSetNameForView
                                       ? cameras->findSetNamedViewpointTrack(camera)
                                       : cameras->findViewSuffixedViewpointTrack(camera);
  if (track.isNull()) return;
  const QString name = useSetNameForView ? set->getName() : set->getName() + " View";
  const kudCameraBaseNode viewpoint = cameras->createViewpoint(name, track);
  if (viewpoint.isNull()) return;
  set->addViewpoint(viewpoint.getName());
  set->setDefaultViewpoint(viewpoint.getName());
}

void announceEverything() {
  for (const char* message : {"lightVariantChanged", "nodeVariantChanged", "materialVariantChanged",
                              "overlayVariantChanged", "transformVariantChanged",
                              "variantSetChanged", "variantGroupChanged"})
    kuController::call(message, 1);
}

}  // namespace

void kuVariants::createAndCaptureVariantSet(const char* setName, const char* groupName) {
  if (!verifyNodeNames()) return;
  QString wished = QString::fromUtf8(groupName);
  if (wished.isEmpty()) wished = QStringLiteral("New Group 1");
  kuVariantGroup* group = groupNamed(wished);
  if (!group) return;
  kuVariantSet* set =
      createVariantSet(getUniqueVariantSetName(QString::fromUtf8(setName)), true, group);
  if (!set) return;
  const kuVariantSet::Keeper kept(*set);
  captureVariantsFromRootNodes(set, {kuOpenSGUtils::getRoot()}, true, true, true, true, true, true,
                               true, true, false, true);
  QByteArray preview = createPreviewImage(264, 256, false, true);
  kept->setPreview(std::move(preview));  // only now: the set may have gone while it rendered
  announceEverything();
}

void kuVariants::captureVariantsFromRootNodes(kuVariantSet* set, std::vector<kuNodePtr> roots,
                                              bool inclNodes, bool inclMats, bool inclLights,
                                              bool inclEnv, bool inclView, bool inclTransforms,
                                              bool inclRenderLayers, bool inclSceneplates,
                                              bool sendMessage, bool useSetNameForView) {
  // A receiver or a timer may remove the set: the capture then goes on for the others.
  const kuVariantSet::Keeper kept(*set);
  const BusyDialog busy;
  const EmptiedAtEnd emptied(_capturedGeometryCores);
  kept->clear();
  rebuildNodePathIndex();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  const kuSnapshotIndex index;
  MaterialSnapshots snapshots;
  NodePaths handledPaths;
  Switches createdSwitches;
  Materials handledMaterials;
  for (const kuNodePtr& root : roots)
    captureVariantsFromRootNode(&*kept, root, inclNodes, inclMats, inclLights, inclEnv,
                                inclTransforms, inclRenderLayers, snapshots, roots, handledPaths,
                                createdSwitches, handledMaterials, sendMessage);
  if (inclSceneplates) captureSceneplateVariants(&*kept, sendMessage);
  if (inclEnv) {
    captureVariantsFromRootNode(&*kept, kuScenegraph::environmentGeometrySwitch(), false, false,
                                false, true, false, false, snapshots, roots, handledPaths,
                                createdSwitches, handledMaterials, sendMessage);
  }
  kept->setMaterialSnapshots(std::move(snapshots));
  if (inclView) captureViewpoint(&*kept, useSetNameForView);
  for (const kuNodePtr& root : roots)
    kept->addTargetNodeName(QString::fromUtf8(kuNodeUtils::getName(root)));
  kept->setInclInfo(inclNodes, inclMats, inclLights, inclEnv, inclView, inclSceneplates);
  if (inclRenderLayers) {
    kept->appendToScript(QStringLiteral("activateRenderLayerState(\"%1\")").arg(kept->getName()));
  }
}
