#include "PictureTest.h"
#include "host/osg/SwitchMaterial.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/SceneNode.h"

using namespace kuStandalone;

namespace {

class RendererTest : public PictureTest {
 protected:
  /** Two nodes with one mesh, a third one with another under a switch, and a switch material. */
  void build() {
    unlit(1, 0, 0);
    unlit(0, 1, 0);
    const int paint = material(R"("extras":{"switch":{"materials":[0,1]}})");
    const int shared = mesh(quad(-1, -1, 0, 1), paint);
    shown("First", shared);
    shown("Second", shared, R"("translation":[0.4,0.2,-1])");
    node(R"("name":"Choice","extras":{"switch":-2})", {shown("Third", mesh(quad(0, -1, 1, 1), 1))});
    load();
  }
  static PictureSettings settings(int width, int height, int samples, unsigned threads) {
    PictureSettings made;
    made.width = width;
    made.height = height;
    made.samples = samples;
    made.threads = threads;
    return made;
  }
  std::pair<std::uint64_t, std::uint64_t> builds() {
    picture(4);
    return {renderer.geometry().meshBuilds(), renderer.geometry().topBuilds()};
  }
  using Builds = std::pair<std::uint64_t, std::uint64_t>;
};

}  // namespace

TEST_F(RendererTest, ThePictureIsTheSameWhateverTheThreads) {
  build();
  const QImage one = renderer.render(Scene::the(), settings(48, 40, 3, 1));
  for (const unsigned threads : {2U, 7U, 0U, 1000U})
    EXPECT_EQ(renderer.render(Scene::the(), settings(48, 40, 3, threads)), one) << threads;
  EXPECT_EQ(Renderer().render(Scene::the(), settings(48, 40, 3, 2)), one);
}

TEST_F(RendererTest, APictureThatItsProgressEndsIsNull) {
  build();
  const auto stop = [](double) { return false; };
  EXPECT_TRUE(renderer.render(Scene::the(), settings(200, 200, 8, 2), stop).isNull());
  EXPECT_TRUE(renderer.render(Scene::the(), settings(1, 1, 1, 2), stop).isNull());
  EXPECT_FALSE(renderer.render(Scene::the(), settings(1, 1, 1, 2)).isNull());
}

TEST_F(RendererTest, ProgressRisesToOne) {
  build();
  std::vector<double> shares;
  const auto note = [&](double share) {
    shares.push_back(share);
    return true;
  };
  EXPECT_FALSE(renderer.render(Scene::the(), settings(40, 40, 4, 2), note).isNull());
  ASSERT_FALSE(shares.empty());
  EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
  EXPECT_GE(shares.front(), 0);
  EXPECT_EQ(shares.back(), 1);
}

TEST_F(RendererTest, SettingsOutOfRangeGiveNoPicture) {
  build();
  for (const int bad : {0, -1, 16385, 2147483647}) {
    EXPECT_TRUE(renderer.render(Scene::the(), settings(bad, 4, 1, 1)).isNull()) << bad;
    EXPECT_TRUE(renderer.render(Scene::the(), settings(4, bad, 1, 1)).isNull()) << bad;
  }
  for (const int bad : {0, -1, 65537})
    EXPECT_TRUE(renderer.render(Scene::the(), settings(4, 4, bad, 1)).isNull()) << bad;
}

TEST_F(RendererTest, TheSmallestAndTheWidestPicturesAreTaken) {
  build();
  EXPECT_EQ(renderer.render(Scene::the(), settings(1, 1, 1, 1)).size(), QSize(1, 1));
  EXPECT_EQ(renderer.render(Scene::the(), settings(16384, 1, 1, 2)).size(), QSize(16384, 1));
  EXPECT_EQ(renderer.render(Scene::the(), settings(1, 16384, 1, 2)).size(), QSize(1, 16384));
}

TEST_F(RendererTest, ASharedMeshIsBuiltOnceAndASecondPictureBuildsNothing) {
  build();
  EXPECT_EQ(builds(), Builds(2, 1));
  EXPECT_EQ(builds(), Builds(2, 1));
}

TEST_F(RendererTest, ASwitchThatChangesBuildsNoMeshAgain) {
  build();
  builds();
  SwitchCore::of(find("Choice")->getCore()).choice = -1;
  EXPECT_EQ(builds(), Builds(2, 2));
  SwitchCore::of(find("Choice")->getCore()).choice = 0;
  EXPECT_EQ(builds(), Builds(2, 3));
}

TEST_F(RendererTest, ANodeThatIsHiddenBuildsNoMeshAgain) {
  build();
  builds();
  SceneNode::of(find("First")).setActiveFlag(false);
  EXPECT_EQ(builds(), Builds(2, 2));
  EXPECT_EQ(builds(), Builds(2, 2));
}

TEST_F(RendererTest, AMaterialThatIsSwappedBuildsNothing) {
  build();
  builds();
  const osg::MaterialPtr paint = GeometryCore::of(find("First")->getCore()).material;
  paint->hostFields().choice = 1;
  EXPECT_EQ(builds(), Builds(2, 1));
}

TEST_F(RendererTest, ANodeThatIsMovedBuildsNoMeshAgain) {
  build();
  builds();
  Transform moved;
  moved.translation = {0, 3, 0};
  SceneNode::of(find("First")).setTransform(moved);
  EXPECT_EQ(builds(), Builds(2, 2));
}

TEST_F(RendererTest, WhatIsHiddenFromTheStartIsBuiltWhenItShows) {
  build();
  SwitchCore::of(find("Choice")->getCore()).choice = -1;
  EXPECT_EQ(builds(), Builds(1, 1));
  SwitchCore::of(find("Choice")->getCore()).choice = 0;
  EXPECT_EQ(builds(), Builds(2, 2));
}

TEST_F(RendererTest, AnotherSceneStartsAnew) {
  build();
  const QImage before = picture(8);
  load();
  EXPECT_EQ(picture(8), before);
  EXPECT_EQ(builds(), Builds(4, 2));
}

TEST_F(RendererTest, APictureAfterManyChangesIsThatOfAFreshRenderer) {
  build();
  picture(8);
  SceneNode::of(find("Second")).setActiveFlag(false);
  SwitchCore::of(find("Choice")->getCore()).choice = -1;
  picture(8);
  SceneNode::of(find("Second")).setActiveFlag(true);
  Transform moved;
  moved.translation = {0.3, 0.1, 0.2};
  SceneNode::of(find("Second")).setTransform(moved);
  SwitchCore::of(find("Choice")->getCore()).choice = 0;
  EXPECT_EQ(picture(24), Renderer().render(Scene::the(), settings(24, 24, 1, 1)));
}

TEST_F(RendererTest, ANodeThatIsGivenAnotherCoreShowsThatOne) {
  lookStraight();
  shown("Left", mesh(quad(-1, -1, 0, 1), unlit(1, 0, 0)));
  shown("Right", mesh(quad(0, -1, 1, 1), unlit(0, 0, 1)));
  load();
  const std::map<char, QVector3D> letters{{'r', {1, 0, 0}}, {'b', {0, 0, 1}}};
  EXPECT_EQ(text(picture(2), letters), "rb\nrb\n");
  SceneNode& node = SceneNode::of(find("Left"));
  const osg::NodeCorePtr own = node.core();
  node.setCore(find("Right")->getCore());
  EXPECT_EQ(text(picture(2), letters), ".b\n.b\n");
  for (int turn = 0; turn < 3; ++turn) {
    node.setCore(own);
    picture(1);
    node.setCore(find("Right")->getCore());
    picture(1);
  }
  EXPECT_EQ(renderer.geometry().instances().size(), 3u);
}

TEST_F(RendererTest, WhatANodeThatDiedLeavesBehindIsUsedAgain) {
  build();
  const osg::NodeCorePtr core = find("First")->getCore();
  SceneNode& root = SceneNode::of(Scene::the().nodes.root);
  for (int turn = 0; turn < 5; ++turn) {
    const osg::NodePtr guest = SceneNode::create("Guest", core);
    root.addChild(guest);
    picture(2);
    root.removeChild(guest);
  }
  picture(2);
  EXPECT_LE(renderer.geometry().instances().size(), 5u);
  EXPECT_EQ(renderer.geometry().meshBuilds(), 2u);
  EXPECT_EQ(picture(16), Renderer().render(Scene::the(), settings(16, 16, 1, 1)));
}
