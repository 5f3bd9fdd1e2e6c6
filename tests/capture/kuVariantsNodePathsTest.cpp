#include <algorithm>

#include "SceneCaptureTest.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "standalone/scene/SceneNode.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Node paths and the index that finds nodes by them.

namespace {

using Access = kuVariantsTestAccess;

class KuVariantsNodePathsTest : public SceneCaptureTest {
 protected:
  static std::string pathOf(const osg::NodePtr& node) {
    return kuVariants::getNodePath(node).toStdString();
  }
  /** The paths of the nodes under a hash, in their order. */
  static Texts pathsUnder(std::uint32_t hash) {
    const auto found = Access::nodePathIndex().find(hash);
    Texts paths;
    if (found == Access::nodePathIndex().end()) return paths;
    for (const kuNodePtr& node : found->second)
      paths.push_back(pathOf(node));
    return paths;
  }
  static std::string materialAt(const osg::NodePtr& node) {
    return kuMaterials::getName(kuNodeUtils::getMaterial(node));
  }
  osg::NodePtr groups(const std::vector<std::string>& names) {
    osg::NodePtr node;
    for (const std::string& name : names)
      node = scene.group(name, node);
    return node;
  }
};

struct HashRow {
  const char* name;
  std::vector<std::string> names;
  const char* path;
  std::uint32_t hash;
};

void PrintTo(const HashRow& row, std::ostream* out) { *out << row.name; }

class KuVariantsNodePathHashTest : public KuVariantsNodePathsTest,
                                   public ::testing::WithParamInterface<HashRow> {};

}  // namespace

TEST_P(KuVariantsNodePathHashTest, IndexHasThePathUnder) {
  groups(GetParam().names);
  Access::rebuildNodePathIndex();
  EXPECT_THAT(pathsUnder(GetParam().hash), ElementsAre(GetParam().path));
  EXPECT_TRUE(Access::checkIfNodeMatchesNodePath({}, GetParam().path, false));
}

// The first three are the known values of the hash; the others were reckoned apart from this
// program. Bytes above 127 are those of UTF-8.
INSTANTIATE_TEST_SUITE_P(
    Hashes, KuVariantsNodePathHashTest,
    ::testing::Values(
        HashRow{"UnnamedNode", {""}, "", 0x811c9dc5}, HashRow{"OneByte", {"a"}, "a", 0x050c5d7e},
        HashRow{"SixBytes", {"foobar"}, "foobar", 0x31f0b262},
        HashRow{"TopLevelNameWithoutSeparator", {"Car"}, "Car", 0x3a47f19d},
        HashRow{"SecondLevel", {"Car", "Roof"}, "Car/Roof", 0x31dfb422},
        HashRow{"ThirdLevel", {"Car", "Door", "Handle"}, "Car/Door/Handle", 0xbea6ab21},
        HashRow{"BytesAbove127AreSigned", {"Türen"}, "Türen", 0xf1500ddd},
        HashRow{"SignedBytesInFrontOfAPath", {"Türen", "Griff"}, "Türen/Griff", 0x0a1ec0b8},
        HashRow{"OnlyBytesAbove127", {"日本"}, "日本", 0x0bac5045},
        HashRow{"UnnamedTopLevelNode", {"", "Car"}, "/Car", 0x8a8e172a}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(KuVariantsNodePathsTest, PathLeavesTheRootOut) {
  EXPECT_EQ(pathOf(scene.root()), "");
  EXPECT_EQ(pathOf({}), "");
  EXPECT_EQ(pathOf(groups({"Car", "Door", "Handle"})), "Car/Door/Handle");
}

TEST_F(KuVariantsNodePathsTest, PathEndsAtANullParent) {
  EXPECT_EQ(pathOf(scene.sceneplate("Logo")), "Sceneplates/Logo");
}

TEST_F(KuVariantsNodePathsTest, NodeNamedRootIsPartOfThePath) {
  EXPECT_EQ(pathOf(groups({"Root", "Car"})), "Root/Car");
}

TEST_F(KuVariantsNodePathsTest, SiblingsOfOneNameStandUnderOneHashInTheirOrder) {
  const osg::NodePtr first = scene.group("Car");
  const osg::NodePtr second = scene.group("Car");
  Access::rebuildNodePathIndex();
  const std::vector<kuNodePtr>& nodes = Access::nodePathIndex().at(0x3a47f19d);
  ASSERT_EQ(nodes.size(), 2u);
  EXPECT_EQ(nodes[0].getNode(), first);
  EXPECT_EQ(nodes[1].getNode(), second);
}

TEST_F(KuVariantsNodePathsTest, IndexHoldsEveryNodeBelowTheRootOnce) {
  groups({"Car", "Door", "Handle"});
  scene.group("Wall");
  scene.sceneplate("Logo");
  Access::rebuildNodePathIndex();
  Access::rebuildNodePathIndex();
  Texts paths;
  for (const auto& entry : Access::nodePathIndex())
    for (const kuNodePtr& node : entry.second)
      paths.push_back(pathOf(node));
  std::sort(paths.begin(), paths.end());
  EXPECT_THAT(paths, ElementsAre("Car", "Car/Door", "Car/Door/Handle", "Wall"));
}

TEST_F(KuVariantsNodePathsTest, IndexIsAsOldAsTheLastCapture) {
  scene.group("Car");
  capture(CaptureFlags());
  EXPECT_THAT(pathsUnder(0x3a47f19d), ElementsAre("Car"));
  groups({"foobar"});
  EXPECT_THAT(pathsUnder(0x31f0b262), IsEmpty());
  capture(CaptureFlags());
  EXPECT_THAT(pathsUnder(0x31f0b262), ElementsAre("foobar"));
}

TEST_F(KuVariantsNodePathsTest, PathsOfOneHashAreToldApart) {
  const osg::NodePtr deep = scene.group("Mipumoge", scene.group("Car"));
  const osg::NodePtr top = scene.group("Suparacu");
  Access::rebuildNodePathIndex();
  ASSERT_THAT(pathsUnder(0x05e72a1f), ElementsAre("Car/Mipumoge", "Suparacu"));

  std::vector<kuNodePtr> nodes{deep, top};
  Access::keepNodesWithPath(nodes, "Suparacu");
  ASSERT_EQ(nodes.size(), 1u);
  EXPECT_EQ(nodes[0].getNode(), top);
  nodes = {deep, top};
  Access::keepNodesWithPath(nodes, "Car/Mipumoge");
  ASSERT_EQ(nodes.size(), 1u);
  EXPECT_EQ(nodes[0].getNode(), deep);
}

TEST_F(KuVariantsNodePathsTest, OnlyNodesOfThePathTakeTheMaterialOfTheFirst) {
  const osg::NodePtr car = scene.group("Car");
  const osg::NodePtr first = scene.geometry("Tipobige", scene.material("Red"), car);
  const osg::NodePtr collides = scene.geometry("Dapuli", scene.material("Blue"), car);
  const osg::NodePtr sibling = scene.geometry("Tipobige", scene.material("Green"), car);
  Access::rebuildNodePathIndex();
  ASSERT_THAT(pathsUnder(0xf2ddd0e5), ElementsAre("Car/Tipobige", "Car/Dapuli", "Car/Tipobige"));
  EXPECT_TRUE(Access::checkIfNodeMatchesNodePath(first, "Car/Tipobige", true));
  EXPECT_THAT(Texts({materialAt(first), materialAt(collides), materialAt(sibling)}),
              ElementsAre("Red", "Blue", "Red"));
}

TEST_F(KuVariantsNodePathsTest, PathWithoutNodeIsNotFoundThoughItsHashIs) {
  scene.group("Lebaco");
  Access::rebuildNodePathIndex();
  EXPECT_TRUE(Access::checkIfNodeMatchesNodePath({}, "Lebaco", true));
  EXPECT_FALSE(Access::checkIfNodeMatchesNodePath({}, "Motedu", true));
}

TEST_F(KuVariantsNodePathsTest, NameWithASeparatorHasThePathOfTheNodesItNames) {
  groups({"Car", "Roof"});
  scene.group("Car/Roof");
  Access::rebuildNodePathIndex();
  EXPECT_THAT(pathsUnder(0x31dfb422), ElementsAre("Car/Roof", "Car/Roof"));
}

struct KeptRow {
  const char* name;
  const char* path;
  bool isKept;
};

void PrintTo(const KeptRow& row, std::ostream* out) { *out << row.name; }

class KuVariantsKeptNodesTest : public KuVariantsNodePathsTest,
                                public ::testing::WithParamInterface<KeptRow> {};

TEST_P(KuVariantsKeptNodesTest, NodeCarDoor) {
  std::vector<kuNodePtr> nodes{groups({"Car", "Door"})};
  Access::keepNodesWithPath(nodes, GetParam().path);
  EXPECT_EQ(!nodes.empty(), GetParam().isKept);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, KuVariantsKeptNodesTest,
    ::testing::Values(KeptRow{"IsKeptForItsPath", "Car/Door", true},
                      KeptRow{"FallsForItsName", "Door", false},
                      KeptRow{"FallsForThePathOfItsParent", "Car", false},
                      KeptRow{"FallsForAPathWithALeadingSeparator", "/Car/Door", false},
                      KeptRow{"FallsForAPathWithATrailingSeparator", "Car/Door/", false},
                      KeptRow{"FallsForALongerName", "MyCar/Door", false},
                      KeptRow{"FallsForALongerPath", "My/Car/Door", false},
                      KeptRow{"FallsForAnotherSeparator", "Car|Door", false},
                      KeptRow{"FallsForAnotherCase", "car/Door", false},
                      KeptRow{"FallsForTheEmptyPath", "", false}),
    [](const auto& row) { return std::string(row.param.name); });
