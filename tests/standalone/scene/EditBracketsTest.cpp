#include "standalone/scene/EditBrackets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standalone/kernel/LogSink.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneBuilder.h"

using kuStandalone::EditBrackets;
using kuStandalone::LightCore;
using kuStandalone::LogLevel;
using kuStandalone::LogSink;
using kuStandalone::SceneNode;
using kuStandalone::TransformSwitchCore;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** Not a SceneTest: here the contract is broken on purpose. */
class EditBracketsTest : public ::testing::Test {
 protected:
  std::uint64_t violations() const { return EditBrackets::violations() - _before; }

  std::vector<std::string> errors;
  SceneBuilder scene;

 private:
  std::uint64_t _before = EditBrackets::violations();
  LogSink _sink{[this](LogLevel level, const std::string& text) {
    if (level == LogLevel::Error) errors.push_back(text);
  }};
};

}  // namespace

TEST_F(EditBracketsTest, ChangeInAFittingBracketIsSilent) {
  const auto node = scene.group("Roof");
  {
    const osg::EditCP edit(node, osg::Node::TravMaskFieldMask);
    node->setActive(false);
  }
  EXPECT_EQ(violations(), 0u);
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(EditBracketsTest, ChangeOutsideABracketIsReportedCountedAndMade) {
  const auto node = scene.group("Roof");
  node->setActive(false);
  EXPECT_EQ(violations(), 1u);
  EXPECT_THAT(errors, ElementsAre("Node::setActive of a Node outside a fitting edit bracket"));
  EXPECT_FALSE(node->getActive());
}

TEST_F(EditBracketsTest, ChangeUnderAnotherMaskIsAViolation) {
  const auto node = scene.group("Roof");
  const osg::EditCP edit(node, SceneNode::TransformFieldMask);
  node->setActive(false);
  EXPECT_EQ(violations(), 1u);
}

TEST_F(EditBracketsTest, ChangeOfAnotherObjectIsAViolation) {
  const auto node = scene.group("Roof");
  const osg::EditCP edit(scene.root());
  node->setActive(false);
  EXPECT_EQ(violations(), 1u);
}

TEST_F(EditBracketsTest, OuterBracketCoversWhileAnInnerOneIsOpen) {
  const auto node = scene.group("Roof");
  const osg::EditCP outer(node, osg::Node::TravMaskFieldMask);
  const osg::EditCP inner(node, SceneNode::TransformFieldMask);
  node->setActive(false);
  EXPECT_EQ(violations(), 0u);
}

TEST_F(EditBracketsTest, ChangeAfterTheInnerBracketNeedsTheOuterOnesMask) {
  const auto node = scene.group("Roof");
  const osg::EditCP outer(node, SceneNode::TransformFieldMask);
  { const osg::EditCP inner(node, osg::Node::TravMaskFieldMask); }
  node->setActive(false);
  EXPECT_EQ(violations(), 1u);
}

TEST_F(EditBracketsTest, UnclosedBracketIsSeenAsOpen) {
  const auto node = scene.group("Roof");
  osg::beginEditCP(node, osg::AllFieldsMask, 1);
  EXPECT_EQ(EditBrackets::open(), 1u);
  osg::endEditCP(node, osg::AllFieldsMask, 1);
  EXPECT_EQ(EditBrackets::open(), 0u);
  EXPECT_EQ(violations(), 0u);
}

TEST_F(EditBracketsTest, ClosingWhatWasNeverOpenedIsAViolation) {
  const auto node = scene.group("Roof");
  osg::endEditCP(node, osg::AllFieldsMask, 1);
  EXPECT_EQ(violations(), 1u);
  EXPECT_THAT(errors, ElementsAre("endEditCP of a Node outside a fitting edit bracket"));
}

TEST_F(EditBracketsTest, ClosingWithAnotherMaskLeavesTheBracketOpen) {
  const auto node = scene.group("Roof");
  osg::beginEditCP(node, osg::Node::TravMaskFieldMask, 1);
  osg::endEditCP(node, osg::AllFieldsMask, 1);
  EXPECT_EQ(violations(), 1u);
  EXPECT_EQ(EditBrackets::open(), 1u);
  osg::endEditCP(node, osg::Node::TravMaskFieldMask, 1);
}

TEST_F(EditBracketsTest, NullHandleIsAllowedAndDoesNothing) {
  const std::uint64_t revision = EditBrackets::revision();
  { const osg::EditCP edit(osg::NullFC); }
  EXPECT_EQ(violations(), 0u);
  EXPECT_EQ(EditBrackets::revision(), revision);
}

TEST_F(EditBracketsTest, RevisionGrowsWhenABracketCloses) {
  const std::uint64_t revision = EditBrackets::revision();
  {
    const osg::EditCP edit(scene.root());
    EXPECT_EQ(EditBrackets::revision(), revision);
  }
  EXPECT_EQ(EditBrackets::revision(), revision + 1);
}

TEST_F(EditBracketsTest, EveryFieldOfTheSceneAsksForABracket) {
  const auto red = scene.material("Red");
  const auto paint = scene.switchMaterial("Paint", {red}, 0);
  const auto roof = scene.switchNode("Roof", 0, {"Open"});
  const auto door = scene.transforms("Door", {"Shut"}, 0, 0);
  const auto body = scene.geometry("Body");
  const auto group = scene.materialGroup("Group", {});
  const auto lamp = scene.light("Lamp", true);
  osg::SwitchPtr::dcast(roof->getCore())->setChoice(-1);
  osg::SwitchComponentTransformPtr::dcast(door->getCore())->setChoice(3);
  TransformSwitchCore::of(door->getCore()).setSupposed(0);
  osg::GeometryPtr::dcast(body->getCore())->setMaterial(red);
  osg::MaterialGroupPtr::dcast(group->getCore())->setMaterial(red);
  LightCore::of(lamp->getCore()).setOn(false);
  SceneNode::of(lamp).moveTo({});
  paint->setChoice(1);
  paint->addMaterial(scene.material("Blue"));
  paint->subMaterial(red);
  kuScenegraph::getMaterialPool()->add(kuStandalone::PlainMaterial::create("New"));
  EXPECT_THAT(
      errors,
      ElementsAre(
          "SwitchBase::setChoice of a Switch outside a fitting edit bracket",
          "SwitchComponentTransformBase::setChoice of a SwitchComponentTransform outside a "
          "fitting edit bracket",
          "TransformSwitchCore::setSupposed of a SwitchComponentTransform outside a fitting "
          "edit bracket",
          "Geometry::setMaterial of a Geometry outside a fitting edit bracket",
          "MaterialGroup::setMaterial of a MaterialGroup outside a fitting edit bracket",
          "LightCore::setOn of a UberLight outside a fitting edit bracket",
          "SceneNode::moveTo of a Node outside a fitting edit bracket",
          "SwitchMaterialBase::setChoice of a SwitchMaterial outside a fitting edit bracket",
          "MultiMaterial::addMaterial of a SwitchMaterial outside a fitting edit bracket",
          "MultiMaterial::subMaterial of a SwitchMaterial outside a fitting edit bracket",
          "MaterialPool::add of a MaterialPool outside a fitting edit bracket"));
}

TEST_F(EditBracketsTest, ARenderLayerTakesNoStateOutsideABracket) {
  const kuStandalone::RenderLayerPtr layer = kuStandalone::RenderLayer::create();
  layer->setPresent({false, true, true});
  layer->store("Day");
  EXPECT_EQ(violations(), 2u);
  EXPECT_THAT(errors, ElementsAre("RenderLayer::setPresent of a RaytracingGeoAttachment outside a "
                                  "fitting edit bracket",
                                  "RenderLayer::store of a RaytracingGeoAttachment outside a "
                                  "fitting edit bracket"));
}
