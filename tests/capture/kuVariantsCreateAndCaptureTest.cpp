#include <QApplication>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "SceneCaptureTest.h"
#include "standalone/kernel/HostState.h"
#include "standalone/scene/SceneNode.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"
#include "support/PictureScene.h"
#include "support/SceneDump.h"

using kuStandalone::HostState;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The capture of the whole scene into a new set of a group.

namespace {

class KuVariantsCreateAndCaptureTest : public VariantsTest {
 protected:
  using Texts = std::vector<std::string>;

  KuVariantsCreateAndCaptureTest() {
    HostState::the().raytracing = false;
    HostState::the().renderSetting = 1;
  }

  static Texts setsOf(const kuVariantGroup& group) {
    Texts names;
    for (const kuVariantSet* set : group.getVariantSets())
      names.push_back(set->getName().toStdString());
    return names;
  }
  static kuVariantSet* made(const char* name) { return kuVariants::findVariantSet(name); }
  /** What the messages say last: that everything may have changed. */
  static Texts withChanges(Texts messages) {
    for (const char* kind : {"lightVariant", "nodeVariant", "materialVariant", "overlayVariant",
                             "transformVariant", "variantSet", "variantGroup"})
      messages.push_back(std::string(kind) + "Changed/1 bare");
    return messages;
  }
};

/** Answers the question whether nodes are to be renamed. */
class Answer {
 public:
  explicit Answer(QMessageBox::StandardButton button) {
    QObject::connect(&_timer, &QTimer::timeout, [this, button] {
      auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!question) return;
      ++asked;
      question->button(button)->click();
    });
    _timer.start(0);
  }

  int asked = 0;

 private:
  QTimer _timer;
};

}  // namespace

TEST_F(KuVariantsCreateAndCaptureTest, SetHoldsEverythingAndTakesItsNameForTheView) {
  scene.switchNode("Body", 0, {"Coupe"});
  scene.geometry("Hood", scene.switchMaterial("Paint", {scene.material("Red")}, 0));
  scene.light("Lamp", true);
  const osg::NodePtr city = scene.environmentSwitch("Surroundings", 0, {"City"});
  scene.geometry("Dome", scene.environmentMaterial("Sunset"), city->getChild(0));
  scene.transforms("Door", {"Closed", "Open"}, 1, 1);
  scene.camera("Front");
  SceneBuilder::setActive(scene.sceneplate("Logo"), false);
  kuVariants::createAndCaptureVariantSet("Türen", "Fälle");
  ASSERT_TRUE(made("Türen"));
  made("Türen")->setPreview({});
  EXPECT_EQ(setDump(*made("Türen")),
            "set Türen script=activateRenderLayerState(\"Türen\") viewpoint=Türen incl=111111 "
            "group=Fälle\n"
            "  node Body=Coupe\n"
            "  node Surroundings=City\n"
            "  material Paint=Red\n"
            "  light Lamp=!Enable\n"
            "  overlay Logo=!Disable\n"
            "  transform Door=Open\n"
            "  viewpoint Türen\n"
            "  target Root\n"
            "  snapshot Hood=Paint\n"
            "  snapshot Surroundings/City/Dome=Sunset\n");
}

TEST_F(KuVariantsCreateAndCaptureTest, MessagesTellOfGroupAndSetAndThatAllMayHaveChanged) {
  scene.switchNode("Body", 0, {"Coupe"});
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(messages.lines(),
            withChanges({"variantGroupAdded/1 variant:void*=kuVariantGroup Seasons",
                         "variantSetAdded/1 variant:void*=kuVariantSet Summer"}));
}

TEST_F(KuVariantsCreateAndCaptureTest, SetIsInItsGroupAndStillEmptyWhenItIsAnnounced) {
  scene.switchNode("Body", 0, {"Coupe"});
  std::string seen;
  const MessageReceiver receiver("variantSetAdded",
                                 [&](kuMessage&) { seen = setDump(*made("Summer")); });
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(seen, "set Summer group=Seasons\n");
}

TEST_F(KuVariantsCreateAndCaptureTest, PreviewIsAPictureOf264By256WithoutProgress) {
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(QImage::fromData(made("Summer")->getPreview()).size(), QSize(264, 256));
  EXPECT_EQ(HostState::the().exports.begun, 1u);
  EXPECT_TRUE(HostState::the().exports.noProgress);
}

TEST_F(KuVariantsCreateAndCaptureTest, PreviewIsRenderedWithTheSettingOfAFinishedPicture) {
  installTriangle();
  HostState::the().raytracing = true;
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  const QByteArray preview = made("Summer")->getPreview();
  EXPECT_EQ(preview, kuVariants::createPreviewImage(264, 256, false, true));
  EXPECT_NE(preview, kuVariants::createPreviewImage(264, 256, false, false));
}

TEST_F(KuVariantsCreateAndCaptureTest, GroupThatExistsIsUsed) {
  kuVariants::createVariantGroup("Other", false, true);
  kuVariantGroup* group = kuVariants::createVariantGroup("Seasons", false, false);
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_THAT(setsOf(*group), ElementsAre("Summer"));
  EXPECT_FALSE(group->getVisible());
  EXPECT_EQ(kuVariants::getVariantGroups().size(), 2u);
  EXPECT_EQ(messages.lines(), withChanges({"variantSetAdded/1 variant:void*=kuVariantSet Summer"}));
}

TEST_F(KuVariantsCreateAndCaptureTest, FirstOfTwoGroupsOfANameIsUsed) {
  kuVariantGroup* first = kuVariants::createVariantGroup("Seasons", false, true);
  kuVariantGroup* second = kuVariants::createVariantGroup("Later", false, true);
  second->setName("Seasons");
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_THAT(setsOf(*first), ElementsAre("Summer"));
  EXPECT_THAT(setsOf(*second), IsEmpty());
}

TEST_F(KuVariantsCreateAndCaptureTest, GroupOfAnotherCaseIsAnother) {
  kuVariants::createVariantGroup("seasons", false, true);
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_THAT(setsOf(*kuVariants::findVariantGroup("Seasons")), ElementsAre("Summer"));
}

TEST_F(KuVariantsCreateAndCaptureTest, EmptyGroupNameStandsForNewGroup1) {
  kuVariants::createAndCaptureVariantSet("Summer", "");
  kuVariants::createAndCaptureVariantSet("Winter", nullptr);
  ASSERT_EQ(kuVariants::getVariantGroups().size(), 1u);
  const kuVariantGroup& group = *kuVariants::getVariantGroups().front();
  EXPECT_EQ(group.getName(), "New Group 1");
  EXPECT_TRUE(group.getVisible());
  EXPECT_THAT(setsOf(group), ElementsAre("Summer", "Winter"));
}

TEST_F(KuVariantsCreateAndCaptureTest, NewRenderQueueIsHiddenAndNotAnnounced) {
  kuVariants::createAndCaptureVariantSet("Summer", "Render Queue");
  const kuVariantGroup* group = kuVariants::findVariantGroup("Render Queue");
  ASSERT_TRUE(group);
  EXPECT_FALSE(group->getVisible());
  EXPECT_THAT(setsOf(*group), ElementsAre("Summer"));
  EXPECT_EQ(messages.lines(), withChanges({"variantSetAdded/1 variant:void*=kuVariantSet Summer"}));
}

TEST_F(KuVariantsCreateAndCaptureTest, RenderQueueThatExistsIsUsedAsItIs) {
  const kuVariantGroup* group = kuVariants::createVariantGroup("Render Queue", false, true);
  kuVariants::createAndCaptureVariantSet("Summer", "Render Queue");
  EXPECT_TRUE(group->getVisible());
  EXPECT_THAT(setsOf(*group), ElementsAre("Summer"));
}

TEST_F(KuVariantsCreateAndCaptureTest, RenderQueueOfAnotherCaseIsShownAndAnnounced) {
  kuVariants::createAndCaptureVariantSet("Summer", "Render queue");
  EXPECT_TRUE(kuVariants::findVariantGroup("Render queue")->getVisible());
  EXPECT_THAT(messages.linesOf("variantGroupAdded"),
              ElementsAre("variantGroupAdded/1 variant:void*=kuVariantGroup Render queue"));
}

TEST_F(KuVariantsCreateAndCaptureTest, NameInUseIsMadeUnique) {
  kuVariants::createVariantSet("Summer", false, nullptr);
  const QString unique = kuVariants::getUniqueVariantSetName("Summer");
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  ASSERT_NE(unique, "Summer");
  EXPECT_THAT(setsOf(*kuVariants::findVariantGroup("Seasons")), ElementsAre(unique.toStdString()));
  EXPECT_EQ(kuVariants::findVariantSet(unique)->getScript(),
            "activateRenderLayerState(\"" + unique + "\")");
}

TEST_F(KuVariantsCreateAndCaptureTest, EmptySetNameMakesTheGroupAndCapturesNothing) {
  scene.switchNode("Roof", 0, {"Open"});
  kuVariants::createAndCaptureVariantSet("", "Group");
  EXPECT_THAT(messages.lines(),
              ElementsAre("variantGroupAdded/1 variant:void*=kuVariantGroup Group"));
  EXPECT_EQ(managerDump(), "group Group\n");
}

TEST_F(KuVariantsCreateAndCaptureTest, GroupThatIsRemovedAtOnceEndsTheCapture) {
  const MessageReceiver receiver("variantGroupAdded",
                                 [](kuMessage&) { kuVariants::removeVariantGroup("Seasons"); });
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(managerDump(), "");
  EXPECT_THAT(messages.linesOf("variantSetChanged"), IsEmpty());
  EXPECT_EQ(HostState::the().exports.begun, 0u);
}

TEST_F(KuVariantsCreateAndCaptureTest, SetThatIsRemovedAtOnceEndsTheCapture) {
  const MessageReceiver receiver("variantSetAdded",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Summer"); });
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(managerDump(), "group Seasons\n");
  EXPECT_THAT(messages.linesOf("variantSetChanged"), IsEmpty());
  EXPECT_EQ(HostState::the().exports.begun, 0u);
}

TEST_F(KuVariantsCreateAndCaptureTest, RefusedRenamingChangesNothing) {
  scene.switchNode("Body", 0, {"Coupe"});
  scene.switchNode("Body", 0, {"Cabrio"});
  const std::string before = dumpScene(kuStandalone::Scene::the());
  Answer answer(QMessageBox::No);
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(answer.asked, 1);
  EXPECT_EQ(managerDump(), "");
  EXPECT_EQ(dumpScene(kuStandalone::Scene::the()), before);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(KuVariantsCreateAndCaptureTest, AcceptedRenamingIsCaptured) {
  const osg::NodePtr first = scene.switchNode("Body", 0, {"Coupe"});
  const osg::NodePtr second = scene.switchNode("Body", 0, {"Cabrio"});
  Answer answer(QMessageBox::Yes);
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(answer.asked, 1);
  const std::string renamed = kuStandalone::SceneNode::of(second).name();
  EXPECT_EQ(kuStandalone::SceneNode::of(first).name(), "Body");
  EXPECT_NE(renamed, "Body");
  ASSERT_TRUE(made("Summer"));
  Texts states;
  for (const kuVariantState& entry : made("Summer")->getNodeVariants())
    states.push_back((entry.getVariant() + "=" + entry.getState()).toStdString());
  EXPECT_THAT(states, ElementsAre("Body=Coupe", renamed + "=Cabrio"));
}

TEST_F(KuVariantsCreateAndCaptureTest, UnambiguousNamesAreNotAskedAbout) {
  scene.group("Body");
  Answer answer(QMessageBox::No);
  kuVariants::createAndCaptureVariantSet("Summer", "Seasons");
  EXPECT_EQ(answer.asked, 0);
  EXPECT_TRUE(made("Summer"));
}
