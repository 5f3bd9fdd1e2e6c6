#include <QApplication>
#include <QProgressDialog>
#include <functional>
#include <stdexcept>

#include "SceneCaptureTest.h"
#include "standalone/kernel/HostState.h"
#include "standalone/scene/SceneNode.h"
#include "support/MessageReceiver.h"
#include "support/kuVariantsTestAccess.h"

using kuStandalone::HostState;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Captures whose receivers of messages throw, or take away what they can.

namespace {

class KuVariantsCaptureReentranceTest : public SceneCaptureTest {
 protected:
  KuVariantsCaptureReentranceTest() {
    scene.geometry("Hood", scene.material("Red"));
    scene.switchNode("Body", 0, {"Coupe"});
    scene.switchNode("Roof", 0, {"Open"});
  }
  void captureTelling() {
    CaptureFlags flags = only(&CaptureFlags::nodes);
    flags.mats = flags.sendMessage = true;
    capture(flags);
  }
  void addInactive(const char* name) { SceneBuilder::setActive(scene.group(name), false); }
  /** With an action when the variant of the first inactive node is announced. */
  void captureWithAtJack(const std::function<void()>& act) {
    const MessageReceiver receiver("nodeVariantAdded", [&](kuMessage&) {
      if (kuVariants::findNodeVariant("Jack")) act();
    });
    captureTelling();
  }
  static void fail(kuMessage&) { throw std::runtime_error("receiver"); }
};

}  // namespace

TEST_F(KuVariantsCaptureReentranceTest, BusyStateAndDialogueAreSeenByReceivers) {
  Texts seen;
  const MessageReceiver receiver("nodeVariantAdded", [&](kuMessage&) {
    const auto* shown = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    seen.push_back(std::string(HostState::the().busy ? "busy " : "idle ") +
                   (shown ? shown->labelText().toStdString() : "no dialogue"));
  });
  captureTelling();
  EXPECT_THAT(seen,
              ElementsAre("busy Capturing Variant Set ...", "busy Capturing Variant Set ..."));
  EXPECT_FALSE(HostState::the().busy);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(KuVariantsCaptureReentranceTest, WhatAReceiverThrowsEndsTheCaptureCleanly) {
  const MessageReceiver receiver("nodeVariantAdded", fail);
  EXPECT_THROW(captureTelling(), std::runtime_error);
  EXPECT_FALSE(HostState::the().busy);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(kuVariantsTestAccess::capturedGeometryCores().empty());
  EXPECT_THAT(content(), IsEmpty());
  kuVariants::removeVariantSet("Set");
  EXPECT_THAT(setNames(), IsEmpty());
}

TEST_F(KuVariantsCaptureReentranceTest, CaptureAfterOneThatFailedIsWhole) {
  {
    const MessageReceiver receiver("nodeVariantAdded", fail);
    EXPECT_THROW(captureTelling(), std::runtime_error);
  }
  SceneBuilder::setActive(scene.group("Mirror"), false);
  captureTelling();
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "node Roof=Open", "node Mirror=!Disable",
                                     "target Root", "snapshot Hood=Red"));
}

TEST_F(KuVariantsCaptureReentranceTest, RemovedVariantsAreNotStored) {
  const MessageReceiver receiver("nodeVariantAdded",
                                 [](kuMessage&) { kuVariants::clearNodeVariants(); });
  captureTelling();
  EXPECT_THAT(content(), ElementsAre("target Root", "snapshot Hood=Red"));
  EXPECT_THAT(kuVariants::getNodeVariants(), IsEmpty());
}

TEST_F(KuVariantsCaptureReentranceTest, OtherSetsMayBeRemoved) {
  makeSet("Before").addMaterialSnapshot("Hood", "Blue");
  makeSet("After").addMaterialSnapshot("Hood", "Blue");
  scene.material("Blue");
  const MessageReceiver receiver("materialVariantAdded", [](kuMessage&) {
    kuVariants::removeVariantSet("Before");
    kuVariants::removeVariantSet("After");
  });
  captureTelling();
  EXPECT_THAT(setNames(), ElementsAre("Set"));
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "node Roof=Open", "material Switch=Red",
                                     "target Root", "snapshot Hood=Switch"));
}

TEST_F(KuVariantsCaptureReentranceTest, NodeThatAReceiverTakesOutIsReleasedAfterIts) {
  const MessageReceiver receiver("nodeVariantAdded", [this](kuMessage&) {
    auto& root = kuStandalone::SceneNode::of(scene.root());
    while (!root.children().empty())
      root.removeChild(root.children().back());
  });
  captureTelling();
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "target Root", "snapshot Hood=Red"));
}

TEST_F(KuVariantsCaptureReentranceTest, SwitchIsStoredAsItStoodBeforeItWasAnnounced) {
  const osg::NodePtr seat = scene.switchNode("Seat", 0, {"Up", "Down"});
  const MessageReceiver receiver("nodeVariantAdded", [&](kuMessage&) {
    kuStandalone::SwitchCore::of(seat->getCore()).choice = 1;
  });
  capture(set,
          [] {
            CaptureFlags flags = only(&CaptureFlags::nodes);
            flags.sendMessage = true;
            return flags;
          }(),
          {seat});
  EXPECT_THAT(content(), ElementsAre("node Seat=Up", "target Seat"));
}

// An inactive node goes by its namesakes as they are when the walk comes to it, and not as they
// were at the first one.

TEST_F(KuVariantsCaptureReentranceTest, NamesakeThatAReceiverHidesIsInactiveToo) {
  addInactive("Jack");
  addInactive("Mirror");
  const osg::NodePtr second = scene.group("Mirror");
  captureWithAtJack([&] { SceneBuilder::setActive(second, false); });
  EXPECT_THAT(scriptLines(), IsEmpty());
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "node Roof=Open", "node Jack=!Disable",
                                     "node Mirror=!Disable", "target Root", "snapshot Hood=Red"));
}

TEST_F(KuVariantsCaptureReentranceTest, NamesakeThatAReceiverTakesOutDoesNotCount) {
  addInactive("Jack");
  addInactive("Mirror");
  const osg::NodePtr second = scene.group("Mirror");
  captureWithAtJack([&] { kuStandalone::SceneNode::of(scene.root()).removeChild(second); });
  EXPECT_THAT(scriptLines(), IsEmpty());
}

TEST_F(KuVariantsCaptureReentranceTest, NamesakeThatAReceiverAddsCounts) {
  addInactive("Jack");
  addInactive("Mirror");
  captureWithAtJack([&] { scene.group("Mirror"); });
  EXPECT_THAT(scriptLines(), ElementsAre("findNodePath(\"Mirror\").setActive(false)"));
}

// What stands on a node after the comparison with the other sets, and what did before.

TEST_F(KuVariantsCaptureReentranceTest, GeometryThatLosesItsMaterialIsRememberedWithTheOneBefore) {
  const osg::NodePtr hood = scene.geometry("Bonnet", scene.material("Green"));
  makeSet("Before").addMaterialSnapshot("Bonnet", "Red");
  const MessageReceiver receiver("materialVariantAdded", [&](kuMessage&) {
    kuVariantsTestAccess::changeMaterial(hood, osg::NullFC);
  });
  captureTelling();
  EXPECT_FALSE(kuNodeUtils::getMaterial(hood));
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "node Roof=Open", "material Switch=Green",
                                     "target Root", "snapshot Bonnet=Green", "snapshot Hood=Red"));
}

TEST_F(KuVariantsCaptureReentranceTest, MaterialGroupThatLosesItsMaterialIsNotRemembered) {
  const osg::NodePtr group = scene.materialGroup("Bonnet", scene.material("Green"));
  makeSet("Before").addMaterialSnapshot("Bonnet", "Red");
  const MessageReceiver receiver("materialVariantAdded", [&](kuMessage&) {
    kuVariantsTestAccess::changeMaterial(group, osg::NullFC);
  });
  captureTelling();
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "node Roof=Open", "material Switch=Green",
                                     "target Root", "snapshot Hood=Red"));
}

TEST_F(KuVariantsCaptureReentranceTest, CaptureWithinACaptureIsWhole) {
  SceneBuilder::setActive(scene.group("Mirror"), false);
  kuVariantSet& inner = makeSet("Inner");
  bool isFirst = true;
  const MessageReceiver receiver("nodeVariantAdded", [&](kuMessage&) {
    if (!std::exchange(isFirst, false)) return;
    capture(inner, only(&CaptureFlags::nodes), {scene.root()});
  });
  captureTelling();
  EXPECT_THAT(content(inner), ElementsAre("node Body=Coupe", "node Roof=Open",
                                          "node Mirror=!Disable", "target Root"));
  EXPECT_THAT(content(), ElementsAre("node Body=Coupe", "node Roof=Open", "node Mirror=!Disable",
                                     "target Root", "snapshot Hood=Red"));
  EXPECT_FALSE(HostState::the().busy);
}
