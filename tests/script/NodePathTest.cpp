#include "standalone/script/NodePath.h"

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class NodePath : public ScriptTest {};

TEST_F(NodePath, StartsBelowTheRoot) {
  const osg::NodePtr car = scene.group("Car");
  const osg::NodePtr door = scene.group("Door", car);
  EXPECT_EQ(findNodeByPath("Car"), car);
  EXPECT_EQ(findNodeByPath("Car/Door"), door);
  EXPECT_FALSE(findNodeByPath("Root/Car"));
  EXPECT_FALSE(findNodeByPath("Door"));
  EXPECT_FALSE(findNodeByPath("Car/"));
  EXPECT_FALSE(findNodeByPath("/Car"));
  EXPECT_FALSE(findNodeByPath("Car/Doo"));
  EXPECT_FALSE(findNodeByPath(""));
}

TEST_F(NodePath, FirstOfEqualPathsWins) {
  const osg::NodePtr first = scene.group("Car");
  scene.group("Car");
  EXPECT_EQ(findNodeByPath("Car"), first);
}

TEST_F(NodePath, LooksIntoEverySiblingOfOneName) {
  scene.group("Car");
  const osg::NodePtr door = scene.group("Door", scene.group("Car"));
  EXPECT_EQ(findNodeByPath("Car/Door"), door);
}

TEST_F(NodePath, NamesMayHoldASlash) {
  const osg::NodePtr slash = scene.group("A/B");
  const osg::NodePtr below = scene.group("C", slash);
  scene.group("B", scene.group("A"));
  EXPECT_EQ(findNodeByPath("A/B"), slash);
  EXPECT_EQ(findNodeByPath("A/B/C"), below);
}

TEST_F(NodePath, UnnamedNodesTakePart) {
  const osg::NodePtr unnamed = scene.group("");
  const osg::NodePtr below = scene.group("B", unnamed);
  EXPECT_EQ(findNodeByPath("/B"), below);
  EXPECT_EQ(findNodeByPath(""), unnamed);
}

TEST_F(NodePath, DeepPathsAreFound) {
  osg::NodePtr node = scene.group("A");
  std::string path = "A";
  for (int i = 0; i < 2000; ++i) {
    node = scene.group("A", node);
    path += "/A";
  }
  EXPECT_EQ(findNodeByPath(path), node);
}

/** The lines of a captured set, with scripts on and off. */
class SceneFunctions : public ScriptTest, public ::testing::WithParamInterface<bool> {
 protected:
  SceneFunctions() { ScriptPolicy::allow(GetParam()); }
  ~SceneFunctions() override { EXPECT_EQ(ScriptPolicy::refusalCount(), 0u); }
};

TEST_P(SceneFunctions, SetActiveHidesAndShowsTheNodeOfThePath) {
  const osg::NodePtr left = scene.group("Door", scene.group("Left"));
  const osg::NodePtr right = scene.group("Door", scene.group("Right"));
  EXPECT_TRUE(kuScript::run("findNodePath(\"Right/Door\").setActive(false)"));
  EXPECT_TRUE(left->getActive());
  EXPECT_FALSE(right->getActive());
  EXPECT_TRUE(kuScript::run("findNodePath(\"Right/Door\").setActive(true)"));
  EXPECT_TRUE(right->getActive());
  EXPECT_THAT(log, IsEmpty());
}

TEST_P(SceneFunctions, SetActiveOfAnUnknownPathWarns) {
  EXPECT_TRUE(kuScript::run("findNodePath(\"No/Door\").setActive(false)"));
  EXPECT_THAT(log, ElementsAre("warning: findNodePath: there is no node at \"No/Door\""));
}

TEST_P(SceneFunctions, SetIgnoreMaterialGroupSetsTheFlag) {
  const osg::NodePtr group = scene.materialGroup("Paint", {}, scene.group("Car"));
  EXPECT_TRUE(kuScript::run("setIgnoreMaterialGroup(\"Car/Paint\",true)"));
  EXPECT_TRUE(MaterialGroupCore::of(group->getCore()).ignore);
  EXPECT_TRUE(kuScript::run("setIgnoreMaterialGroup(\"Car/Paint\",false)"));
  EXPECT_FALSE(MaterialGroupCore::of(group->getCore()).ignore);
  EXPECT_THAT(log, IsEmpty());
}

TEST_P(SceneFunctions, SetIgnoreMaterialGroupOfAnotherNodeWarns) {
  scene.group("Car");
  scene.bare("Bare");
  for (const char* path : {"Car", "Bare", "None"}) {
    log.clear();
    EXPECT_TRUE(
        kuScript::run(("setIgnoreMaterialGroup(\"" + std::string(path) + "\",true)").c_str()));
    EXPECT_THAT(log, ElementsAre("warning: setIgnoreMaterialGroup: there is no material group at "
                                 "\"" +
                                 std::string(path) + "\""));
  }
}

TEST_P(SceneFunctions, PathsAreUtf8) {
  const osg::NodePtr node = scene.group("T\xC3\xBCr \xE2\x9C\x93");
  EXPECT_TRUE(kuScript::run("findNodePath(\"T\xC3\xBCr \xE2\x9C\x93\").setActive(false)"));
  EXPECT_FALSE(node->getActive());
}

INSTANTIATE_TEST_SUITE_P(Trust, SceneFunctions, ::testing::Bool(), [](const auto& row) {
  return row.param ? std::string("ScriptsOn") : std::string("ScriptsOff");
});

class NodeObject : public ScriptTest {
 protected:
  NodeObject() { ScriptPolicy::allow(true); }
};

TEST_F(NodeObject, TellsNameAndFlag) {
  scene.setActive(scene.group("Car"), false);
  EXPECT_EQ(kuScript::executeNUSR("findNodePath('Car').getName()"), "Car");
  EXPECT_EQ(kuScript::executeNUSR("findNodePath('Car').getActive()"), "False");
  EXPECT_EQ(kuScript::executeNUSR("findNodePath('Car').isValid()"), "True");
}

TEST_F(NodeObject, OfAnUnknownPathIsSafeToAsk) {
  EXPECT_EQ(kuScript::executeNUSR("findNodePath('Car').getName()"), "");
  EXPECT_EQ(kuScript::executeNUSR("findNodePath('Car').getActive()"), "False");
  EXPECT_EQ(kuScript::executeNUSR("findNodePath('Car').isValid()"), "False");
}

TEST_F(NodeObject, OutlivesItsScene) {
  scene.group("Car");
  ASSERT_TRUE(kuScript::run("ran = findNodePath('Car')"));
  scene = SceneBuilder();
  EXPECT_TRUE(kuScript::run("ran.setActive(false)"));
  EXPECT_EQ(kuScript::executeNUSR("ran.getActive()"), "False");
}

}  // namespace
