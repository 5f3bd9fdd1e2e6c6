// The question about equal names that stands before a capture.

#include <QMainWindow>
#include <QPushButton>
#include <QTranslator>

#include "capture/CheckerTest.h"
#include "capture/DialogAnswer.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "standalone/kernel/HostState.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "support/ManagerDump.h"
#include "support/SceneDump.h"

using kuStandalone::HostState;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

const char* const question =
    "Some nodes have the same name and/or node path. In order to continue, the names of those "
    "nodes will be changed.\n ";
const char* const warning = "\nWarning: Renaming might break existing variant sets!\n";

class kuVariantsNameCheckTest : public CheckerTest {
 protected:
  ~kuVariantsNameCheckTest() override { HostState::the().mainWindow = nullptr; }

  static kuVariantSet& makeSet() { return *kuVariants::createVariantSet("Set", false, nullptr); }

  /** The text of the box that the present scene gives, which is answered with a refusal. */
  static std::string textAsked() {
    const DialogAnswer cancel(QMessageBox::No);
    EXPECT_FALSE(kuVariants::verifyNodeNames());
    return cancel.shown.size() == 1 ? cancel.shown.front().text.toStdString() : "not one box";
  }
};

/** Marks every text that is translated in the library's context. */
class Marking : public QTranslator {
 public:
  Marking() { QCoreApplication::installTranslator(this); }
  QString translate(const char* context, const char* text, const char*, int) const override {
    return QLatin1String(context) == QLatin1String("kuVariants") ? QStringLiteral("<%1>").arg(text)
                                                                 : QString();
  }
  bool isEmpty() const override { return false; }
};

}  // namespace

TEST_F(kuVariantsNameCheckTest, EmptySceneIsNotAskedAbout) {
  const DialogAnswer rename(QMessageBox::Yes);
  EXPECT_TRUE(kuVariants::verifyNodeNames());
  EXPECT_THAT(rename.shown, IsEmpty());
}

TEST_F(kuVariantsNameCheckTest, SceneOfDifferentNamesIsNotAskedAbout) {
  groups({"A", "A1", "B"});
  scene.clone(scene.group("C"));
  scene.sceneplate("D");
  const DialogAnswer rename(QMessageBox::Yes);
  EXPECT_TRUE(kuVariants::verifyNodeNames());
  EXPECT_THAT(rename.shown, IsEmpty());
  EXPECT_THAT(names(), ElementsAre("A", "A1", "B", "C", "C", "D"));
}

TEST_F(kuVariantsNameCheckTest, DuplicateTransformStatesAloneAreNeitherAskedAboutNorFixed) {
  const osg::NodePtr door = scene.transforms("Door", {"Open", "Open"}, 0, -1);
  const DialogAnswer rename(QMessageBox::Yes);
  EXPECT_TRUE(kuVariants::verifyNodeNames());
  EXPECT_THAT(rename.shown, IsEmpty());
  EXPECT_THAT(stateNames(door), ElementsAre("Open", "Open"));
}

TEST_F(kuVariantsNameCheckTest, RenameRenamesNodesAndTransformStatesAndGoesOn) {
  const osg::NodePtr door = scene.transforms("Door", {"Open", "Open"}, 0, -1);
  groups({"A", "A"});
  const DialogAnswer rename(QMessageBox::Yes);
  EXPECT_TRUE(kuVariants::verifyNodeNames());
  EXPECT_THAT(rename.shown, SizeIs(1));
  EXPECT_THAT(names(), ElementsAre("Door", "A", "A1"));
  EXPECT_THAT(stateNames(door), ElementsAre("Open", "Open1"));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsNameCheckTest, CancelChangesNothingAndDoesNotGoOn) {
  scene.transforms("Door", {"Open", "Open"}, 0, -1);
  groups({"A", "A"});
  const std::string before = dumpScene(Scene::the());
  const DialogAnswer cancel(QMessageBox::No);
  EXPECT_FALSE(kuVariants::verifyNodeNames());
  EXPECT_THAT(cancel.shown, SizeIs(1));
  EXPECT_EQ(dumpScene(Scene::the()), before);
}

TEST_F(kuVariantsNameCheckTest, SceneIsLookedAtAnewEachTime) {
  const auto nodes = groups({"A", "A"});
  const DialogAnswer cancel(QMessageBox::No);
  EXPECT_FALSE(kuVariants::verifyNodeNames());
  SceneNode::of(nodes[1]).setName("B");
  EXPECT_TRUE(kuVariants::verifyNodeNames());
  EXPECT_THAT(cancel.shown, SizeIs(1));
}

TEST_F(kuVariantsNameCheckTest, NoWarningWhereNoSetNamesADuplicate) {
  groups({"A", "A"});
  makeSet().add(kuVariants::createNodeVariant("B", false), "!None");
  EXPECT_EQ(textAsked(), question);
}

TEST_F(kuVariantsNameCheckTest, WarningWhereASetNamesADuplicate) {
  groups({"A", "A"});
  makeSet().add(kuVariants::createNodeVariant("A", false), "!None");
  EXPECT_EQ(textAsked(), std::string(question) + warning);
}

TEST_F(kuVariantsNameCheckTest, NoWarningForADuplicateNamedInMaterialStatesAlone) {
  groups({"A", "A"});
  makeSet().add(kuVariants::createMaterialVariant("A", false), "A");
  EXPECT_FALSE(kuVariantCaptureChecker().containsAmbiguousVariantSets());
  EXPECT_EQ(textAsked(), question);
}

TEST_F(kuVariantsNameCheckTest, DialogShowsTitleTextIconAndButtons) {
  const DialogAnswer rename(QMessageBox::Yes);
  kuVariants::showAmbiguousNodesDialog(false);
  ASSERT_THAT(rename.shown, SizeIs(1));
  const DialogAnswer::Shown& box = rename.shown.front();
  EXPECT_EQ(box.title.toStdString(), "Ambiguous node names detected");
  EXPECT_EQ(box.text.toStdString(), question);
  EXPECT_EQ(box.icon, QMessageBox::Question);
  EXPECT_EQ(box.buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(box.yes.toStdString(), "Rename");
  EXPECT_EQ(box.no.toStdString(), "Cancel");
}

TEST_F(kuVariantsNameCheckTest, DialogIsAModalDialogOfFixedSize) {
  const DialogAnswer rename(QMessageBox::Yes);
  kuVariants::showAmbiguousNodesDialog(false);
  ASSERT_THAT(rename.shown, SizeIs(1));
  EXPECT_TRUE(rename.shown.front().modal);
  const Qt::WindowFlags flags = rename.shown.front().flags;
  EXPECT_EQ(flags & Qt::WindowType_Mask, Qt::Dialog);
  EXPECT_TRUE(flags & Qt::MSWindowsFixedSizeDialogHint);
}

TEST_F(kuVariantsNameCheckTest, WarningStandsBehindTheQuestion) {
  const DialogAnswer rename(QMessageBox::Yes);
  kuVariants::showAmbiguousNodesDialog(true);
  ASSERT_THAT(rename.shown, SizeIs(1));
  EXPECT_EQ(rename.shown.front().text.toStdString(), std::string(question) + warning);
}

TEST_F(kuVariantsNameCheckTest, ParentIsTheMainWindow) {
  QMainWindow window;
  HostState::the().mainWindow = &window;
  const DialogAnswer rename(QMessageBox::Yes);
  kuVariants::showAmbiguousNodesDialog(false);
  ASSERT_THAT(rename.shown, SizeIs(1));
  EXPECT_EQ(rename.shown.front().parent, &window);
  EXPECT_THAT(window.findChildren<QMessageBox*>(), IsEmpty());
}

TEST_F(kuVariantsNameCheckTest, WithoutAMainWindowThereIsNoParent) {
  const DialogAnswer rename(QMessageBox::Yes);
  kuVariants::showAmbiguousNodesDialog(false);
  ASSERT_THAT(rename.shown, SizeIs(1));
  EXPECT_EQ(rename.shown.front().parent, nullptr);
}

TEST_F(kuVariantsNameCheckTest, ArrowCursorShowsWhileTheDialogRunsAndTheFormerOneReturns) {
  const DialogAnswer rename(QMessageBox::Yes);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  kuVariants::showAmbiguousNodesDialog(false);
  ASSERT_THAT(rename.shown, SizeIs(1));
  EXPECT_EQ(rename.shown.front().cursor, Qt::ArrowCursor);
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QGuiApplication::restoreOverrideCursor();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(kuVariantsNameCheckTest, OnlyTheRenameButtonMeansYes) {
  using Act = DialogAnswer::Act;
  const std::pair<const char*, Act> rows[] = {
      {"cancel", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); }},
      {"escape", [](QMessageBox& box) { box.reject(); }},
      {"close", [](QMessageBox& box) { box.close(); }},
  };
  for (const auto& [name, act] : rows) {
    const DialogAnswer answer(act);
    EXPECT_FALSE(kuVariants::showAmbiguousNodesDialog(true)) << name;
  }
  const DialogAnswer rename(QMessageBox::Yes);
  EXPECT_TRUE(kuVariants::showAmbiguousNodesDialog(true));
}

TEST_F(kuVariantsNameCheckTest, AllTextsAreTranslated) {
  const Marking translator;
  const DialogAnswer rename(QMessageBox::Yes);
  kuVariants::showAmbiguousNodesDialog(true);
  ASSERT_THAT(rename.shown, SizeIs(1));
  const DialogAnswer::Shown& box = rename.shown.front();
  EXPECT_EQ(box.title.toStdString(), "<Ambiguous node names detected>");
  EXPECT_EQ(box.text.toStdString(), std::string("<") + question + "><" + warning + ">");
  EXPECT_EQ(box.yes.toStdString(), "<Rename>");
  EXPECT_EQ(box.no.toStdString(), "<Cancel>");
}

TEST_F(kuVariantsNameCheckTest, RefusalEndsACaptureWithNothingChanged) {
  groups({"A", "A"});
  const std::string before = dumpScene(Scene::the());
  const DialogAnswer cancel(QMessageBox::No);
  kuVariants::createAndCaptureVariantSet("Set", "Group");
  EXPECT_THAT(cancel.shown, SizeIs(1));
  EXPECT_EQ(dumpScene(Scene::the()), before);
  EXPECT_EQ(managerDump(), "");
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsNameCheckTest, RenamingLetsACaptureGoOn) {
  groups({"A", "A"});
  const DialogAnswer rename(QMessageBox::Yes);
  kuVariants::createAndCaptureVariantSet("Set", "Group");
  EXPECT_THAT(names(), ElementsAre("A", "A1"));
  EXPECT_NE(kuVariants::findVariantSet("Set"), nullptr);
}

TEST_F(kuVariantsNameCheckTest, SceneMayVanishWhileTheDialogRuns) {
  groups({"A", "A", "A"});
  const DialogAnswer answer([](QMessageBox& box) {
    SceneBuilder();  // empties the scene
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_TRUE(kuVariants::verifyNodeNames());
  EXPECT_THAT(names(), IsEmpty());
}
