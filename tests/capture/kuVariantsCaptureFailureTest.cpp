#include <QApplication>
#include <QProgressDialog>
#include <algorithm>
#include <stdexcept>
#include "host/kernel/kuController.h"

#include "SceneCaptureTest.h"
#include "standalone/kernel/HostState.h"
#include "support/MessageReceiver.h"
#include "support/kuVariantsTestAccess.h"

// A receiver of what a capture tells throws in the midst of it.

namespace {

struct Place {
  const char* name;
  const char* message;
};

void PrintTo(const Place& place, std::ostream* out) { *out << place.name; }

class CaptureFailure : public SceneCaptureTest, public ::testing::WithParamInterface<Place> {
 protected:
  /** A scene in which a second capture tells of a variant of each kind, and of a new switch. */
  void arrange() { arrangeInto(set); }
  void arrangeInto(kuVariantSet& former) {
    red = scene.material("Red");
    scene.switchNode("Roof", 1, {"Closed", "Open"});
    scene.transforms("Door", {"Shut", "Wide"}, 1, 1);
    scene.light("Sun", true);
    hood = scene.geometry("Hood", red);
    scene.clone(hood, "Spare");
    scene.sceneplate("Title");
    scene.setActive(scene.sceneplateRoot()->getChild(0), false);
    CaptureFlags materials;
    materials.mats = true;
    capture(former, materials, {scene.root()});
    kuVariantsTestAccess::changeMaterial(hood, scene.material("Blue"));
  }

  static CaptureFlags announced() {
    CaptureFlags flags = everything();
    flags.sendMessage = true;
    return flags;
  }

  void captureAndFail() {
    const MessageReceiver receiver(
        GetParam().message, [](kuMessage&) { throw std::runtime_error("a receiver's own"); });
    EXPECT_THROW(capture(makeSet("Broken"), announced(), {scene.root()}), std::runtime_error);
  }

  /** What a capture of the scene gives, and what becomes of the set of before. */
  std::string captured() {
    capture(makeSet("Whole"), announced(), {scene.root()});
    return managerDump();
  }

  static bool isDialogShown() {
    const QWidgetList widgets = QApplication::topLevelWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
      return qobject_cast<const QProgressDialog*>(widget) != nullptr;
    });
  }

  osg::MaterialPtr red;
  osg::NodePtr hood;
};

TEST_P(CaptureFailure, EndsTheBusyStateWithItsDialog) {
  arrange();
  bool wasBusy = false, wasShown = false;
  const auto throwing = [&](kuMessage&) {
    wasBusy = kuStandalone::HostState::the().busy;
    wasShown = isDialogShown();
    throw std::runtime_error("a receiver's own");
  };
  const MessageReceiver receiver(GetParam().message, throwing);
  EXPECT_THROW(capture(makeSet("Broken"), announced(), {scene.root()}), std::runtime_error);
  EXPECT_TRUE(wasBusy);
  EXPECT_TRUE(wasShown);
  EXPECT_FALSE(kuStandalone::HostState::the().busy);
  EXPECT_FALSE(isDialogShown());
}

TEST_P(CaptureFailure, ForgetsTheCoresThatItMet) {
  arrange();
  captureAndFail();
  EXPECT_TRUE(kuVariantsTestAccess::capturedGeometryCores().empty());
}

TEST_P(CaptureFailure, LeavesASetThatCanBeRemoved) {
  arrange();
  captureAndFail();
  EXPECT_TRUE(kuVariants::removeVariantSet("Broken"));
  EXPECT_EQ(setNames(), Texts{"Set"});
}

TEST_P(CaptureFailure, ShowsInTheNextCaptureByNothingButASwitchThatStandsOnItsNode) {
  arrange();
  captureAndFail();
  kuVariants::removeVariantSet("Broken");
  QString after = QString::fromStdString(captured());
  // That one is taken for a switch of the scene's own, and the set gets its name for a state.
  if (GetParam().message == std::string("materialVariantAdded")) {
    EXPECT_EQ(after.count("Switch=Switch\n  light"), 1);
    after.replace("Switch=Switch\n  light", "Switch=Blue\n  light");
  }

  kuController::call("clearAllVariants", 1);
  scene = SceneBuilder();
  kuVariantSet& former = makeSet("Set");
  arrangeInto(former);
  EXPECT_EQ(after.toStdString(), captured());
}

INSTANTIATE_TEST_SUITE_P(Told, CaptureFailure,
                         ::testing::Values(Place{"ANodeVariant", "nodeVariantAdded"},
                                           Place{"ATransformVariant", "transformVariantAdded"},
                                           Place{"ALightVariant", "lightVariantAdded"},
                                           Place{"ANewSwitch", "MaterialGetUniqueName"},
                                           Place{"AMaterialVariant", "materialVariantAdded"},
                                           Place{"AnOverlayVariant", "overlayVariantAdded"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
