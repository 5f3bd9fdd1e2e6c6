#include "PictureTest.h"
#include "host/osg/SwitchMaterial.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/SceneNode.h"

using namespace kuStandalone;

namespace {

constexpr const char* hidden = R"("extensions":{"KHR_node_visibility":{"visible":false}})";

/** Pictures of two by two pixels; a piece of the scene covers one of them or more. */
class VisibilityPictureTest : public PictureTest {
 protected:
  VisibilityPictureTest() {
    lookStraight();
    red = unlit(1, 0, 0);
    green = unlit(0, 1, 0);
    blue = unlit(0, 0, 1);
  }

  int topLeft(const char* name, int material, const QByteArray& more = {}) {
    return shown(name, mesh(quad(-1, 0, 0, 1), material), more);
  }
  int topRight(const char* name, int material, const QByteArray& more = {}) {
    return shown(name, mesh(quad(0, 0, 1, 1), material), more);
  }
  int bottomLeft(const char* name, int material, const QByteArray& more = {}) {
    return shown(name, mesh(quad(-1, -1, 0, 0), material), more);
  }
  std::string seen() {
    return text(picture(2), {{'r', {1, 0, 0}}, {'g', {0, 1, 0}}, {'b', {0, 0, 1}}});
  }
  static SwitchCore& switchCore(const char* name) { return SwitchCore::of(find(name)->getCore()); }

  int red, green, blue;
};

}  // namespace

TEST_F(VisibilityPictureTest, ANodeWhoseFlagIsOffIsGone) {
  topLeft("Off", red, hidden);
  topRight("On", green);
  load();
  EXPECT_EQ(seen(), ".g\n..\n");
  SceneNode::of(find("Off")).setActiveFlag(true);
  EXPECT_EQ(seen(), "rg\n..\n");
}

TEST_F(VisibilityPictureTest, ANodeIsGoneWithAnAncestorsFlag) {
  node(QByteArray(R"("name":"Outer",)") + hidden,
       {node(R"("name":"Inner")", {topLeft("Leaf", red)}), topRight("Other", green)});
  bottomLeft("Beside", blue);
  load();
  EXPECT_EQ(seen(), "..\nb.\n");
}

TEST_F(VisibilityPictureTest, ASwitchShowsItsChoiceAllOrNone) {
  node(R"("name":"Choice","extras":{"switch":1})",
       {topLeft("A", red), topRight("B", green), bottomLeft("C", blue)});
  load();
  struct Row {
    int choice;
    const char* picture;
  };
  for (const Row& row : {Row{1, ".g\n..\n"}, Row{0, "r.\n..\n"}, Row{2, "..\nb.\n"},
                         Row{-2, "rg\nb.\n"}, Row{-1, "..\n..\n"}, Row{3, "..\n..\n"},
                         Row{-3, "..\n..\n"}, Row{2147483647, "..\n..\n"}}) {
    switchCore("Choice").choice = row.choice;
    EXPECT_EQ(seen(), row.picture) << row.choice;
  }
}

TEST_F(VisibilityPictureTest, AChosenChildThatIsHiddenIsGone) {
  node(R"("name":"Choice","extras":{"switch":0})",
       {topLeft("A", red, hidden), topRight("B", green)});
  load();
  EXPECT_EQ(seen(), "..\n..\n");
}

TEST_F(VisibilityPictureTest, ANamedTransformMovesWhatIsBelowInsideTheNodesOwn) {
  node(R"("name":"Door","translation":[1,0,0],"extras":{"transforms":[{"name":"Up"},)"
       R"({"name":"Down","translation":[0,-1,0]}]})",
       {topLeft("Panel", red)});
  load();
  EXPECT_EQ(seen(), ".r\n..\n");
  TransformSwitchCore& core = TransformSwitchCore::of(find("Door")->getCore());
  core.choice = 1;
  EXPECT_EQ(seen(), "..\n.r\n");
  core.choice = 2;
  EXPECT_EQ(seen(), ".r\n..\n");
}

TEST_F(VisibilityPictureTest, NestedTransformsApplyFromTheInside) {
  // The inner one shrinks to the middle, the outer one turns by 90 degrees and moves.
  node(R"("name":"Outer","rotation":[0,0,0.70710678,0.70710678],"translation":[-0.5,0,0])",
       {node(R"("name":"Inner","translation":[0.5,0,0])",
             {shown("Leaf", mesh(quad(-0.5f, -0.5f, 0.5f, 0.5f), red))})});
  load();
  EXPECT_EQ(seen(), "r.\n..\n");
}

TEST_F(VisibilityPictureTest, AMatrixPlacesAsItsColumnsSay) {
  node(R"("name":"Node","matrix":[0,-1,0,0, 1,0,0,0, 0,0,1,0, -1,0,0,1])", {topLeft("A", red)});
  load();
  // (x, y) goes to (y - 1, -x): the top left square to the top left again.
  EXPECT_EQ(seen(), "r.\n..\n");
}

TEST_F(VisibilityPictureTest, ACloneAppearsAgainInItsOwnPlace) {
  topLeft("Original", red);
  node(R"("name":"Copy","translation":[1,-1,0],"extras":{"cloneOf":"Original"})");
  load();
  EXPECT_EQ(seen(), "r.\n.r\n");
  SceneNode::of(find("Original")).setActiveFlag(false);
  EXPECT_EQ(seen(), "..\n.r\n");
}

TEST_F(VisibilityPictureTest, ClonesOfASwitchChangeTogether) {
  node(R"("name":"Choice","extras":{"switch":0})", {topLeft("A", red), topLeft("B", green)});
  node(R"("name":"Copy","translation":[1,-1,0],"extras":{"cloneOf":"Choice"})");
  load();
  EXPECT_EQ(seen(), "r.\n.r\n");
  switchCore("Copy").choice = 1;
  EXPECT_EQ(seen(), "g.\n.g\n");
}

TEST_F(VisibilityPictureTest, AMirroredNodeShowsItsFronts) {
  topLeft("Mirror", red, R"("scale":[-1,1,1])");
  load();
  EXPECT_EQ(seen(), ".r\n..\n");
}

TEST_F(VisibilityPictureTest, AnUnevenScaleStretchesEachAxisByItsOwn) {
  shown("Small", mesh(quad(-1, 0, 0, 1), red), R"("scale":[1,0.0001,7])");
  shown("Wide", mesh(quad(0, 0, 0.01f, 2), green), R"("scale":[100,0.5,0.001])");
  load();
  EXPECT_EQ(seen(), ".g\n..\n");
}

TEST_F(VisibilityPictureTest, ANodeThatFlattensToNothingIsGone) {
  topLeft("Flat", red, R"("scale":[1,1,0])");
  topRight("Point", red, R"("scale":[0,0,0])");
  bottomLeft("Plain", blue);
  load();
  EXPECT_EQ(seen(), "..\nb.\n");
}

TEST_F(VisibilityPictureTest, TheNearestMaterialGroupThatIsNotIgnoredCounts) {
  const QByteArray group = R"("extras":{"materialGroup":{"material":)";
  const int leaf = topLeft("Leaf", red);
  const int inner = node(R"("name":"Inner",)" + group + QByteArray::number(blue) + "}}", {leaf});
  node(R"("name":"Outer",)" + group + QByteArray::number(green) + "}}",
       {inner, topRight("Beside", red)});
  bottomLeft("Outside", red);
  load();
  EXPECT_EQ(seen(), "bg\nr.\n");
  MaterialGroupCore::of(find("Inner")->getCore()).ignore = true;
  EXPECT_EQ(seen(), "gg\nr.\n");
  MaterialGroupCore::of(find("Outer")->getCore()).ignore = true;
  EXPECT_EQ(seen(), "rr\nr.\n");
}

TEST_F(VisibilityPictureTest, AMaterialGroupWithoutAMaterialIsPassedOver) {
  node(
      R"("name":"Outer","extras":{"materialGroup":{"material":)" + QByteArray::number(green) + "}}",
      {node(R"("name":"Inner","extras":{"materialGroup":{}})", {topLeft("Leaf", red)})});
  load();
  EXPECT_EQ(seen(), "g.\n..\n");
}

TEST_F(VisibilityPictureTest, ASwitchMaterialLooksLikeItsChoice) {
  const int paint = material(R"("extras":{"switch":{"materials":[0,1],"choice":1}})");
  topLeft("Body", paint);
  load();
  const auto& core = GeometryCore::of(find("Body")->getCore());
  const osg::SwitchMaterialPtr choice = osg::SwitchMaterialPtr::dcast(core.material);
  EXPECT_EQ(seen(), "g.\n..\n");
  choice->hostFields().choice = 0;
  EXPECT_EQ(seen(), "r.\n..\n");
  choice->hostFields().choice = 2;
  EXPECT_EQ(seen(), "..\n..\n");
  choice->hostFields().choice = 4294967295U;
  EXPECT_EQ(seen(), "..\n..\n");
}

TEST_F(VisibilityPictureTest, SwitchMaterialsInsideOneAnotherShowTheInnermostChoice) {
  const QByteArray inner =
      QByteArray::number(material(R"("extras":{"switch":{"materials":[0,2],"choice":1}})"));
  const int outer =
      material(R"("extras":{"switch":{"materials":[1,)" + inner + R"(],"choice":1}})");
  const QByteArray none =
      QByteArray::number(material(R"("extras":{"switch":{"materials":[0],"choice":7}})"));
  const int lost = material(R"("extras":{"switch":{"materials":[)" + none + "]}}");
  topLeft("Body", outer);
  topRight("Lost", lost);
  load();
  EXPECT_EQ(seen(), "b.\n..\n");
}
