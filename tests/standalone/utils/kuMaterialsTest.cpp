#include "host/utils/kuMaterials.h"

#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/SceneNode.h"
#include "support/SceneTest.h"

using kuStandalone::SceneNode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuMaterialsTest : public SceneTest {
 protected:
  static std::vector<osg::MaterialPtr> found(const char* name) {
    std::vector<osg::MaterialPtr> materials;
    for (const kuMaterialPtr& material : kuMaterials::findMaterials(name)) {
      materials.push_back(material.getMaterial());
    }
    return materials;
  }

  static std::vector<osg::NodePtr> users(const osg::MaterialPtr& material) {
    std::vector<kuNodePtr> nodes;
    kuMaterials::getNodesWithMaterial(nodes, material);
    std::vector<osg::NodePtr> result;
    for (const kuNodePtr& node : nodes)
      result.push_back(node.getNode());
    return result;
  }
};

}  // namespace

TEST_F(kuMaterialsTest, MaterialsOfOneNameStandInTheOrderOfThePool) {
  const auto first = scene.material("Red");
  scene.material("Blue");
  const auto second = scene.switchMaterial("Red", {}, 0);
  EXPECT_THAT(found("Red"), ElementsAre(first, second));
  EXPECT_EQ(kuMaterials::findMaterial("Red").getMaterial(), first);
}

TEST_F(kuMaterialsTest, UnknownAndNullNamesGiveNothing) {
  scene.material("Red");
  EXPECT_THAT(found("Green"), IsEmpty());
  EXPECT_THAT(found(nullptr), IsEmpty());
  EXPECT_FALSE(kuMaterials::findMaterial("Green").isValid());
  EXPECT_FALSE(kuMaterials::findMaterial(nullptr).isValid());
}

TEST_F(kuMaterialsTest, RenamedMaterialIsFoundUnderItsNewNameInItsPlace) {
  const auto first = scene.material("Old");
  const auto second = scene.material("New");
  kuMaterials::setName(first, "New", true);
  EXPECT_THAT(found("Old"), IsEmpty());
  EXPECT_THAT(found("New"), ElementsAre(first, second));
  EXPECT_STREQ(kuMaterials::getName(first), "New");
}

TEST_F(kuMaterialsTest, MaterialOutsideThePoolHasANameButIsNotFound) {
  const auto material = kuStandalone::PlainMaterial::create("");
  kuMaterials::setName(material, "Lone", false);
  EXPECT_STREQ(kuMaterials::getName(material), "Lone");
  EXPECT_THAT(found("Lone"), IsEmpty());
}

TEST_F(kuMaterialsTest, NullMaterialIsSafe) {
  EXPECT_STREQ(kuMaterials::getName(osg::NullFC), "");
  kuMaterials::setName(osg::NullFC, "Name", true);
  EXPECT_FALSE(kuMaterials::isEditable(osg::NullFC));
  EXPECT_THAT(users(osg::NullFC), IsEmpty());
}

TEST_F(kuMaterialsTest, LockedMaterialIsNotEditable) {
  const auto red = scene.material("Red");
  EXPECT_TRUE(kuMaterials::isEditable(red));
  red->hostFields().locked = true;
  EXPECT_FALSE(kuMaterials::isEditable(red));
}

TEST_F(kuMaterialsTest, NodesWithAMaterialStandInSceneOrderClonesIncluded) {
  const auto red = scene.material("Red");
  const auto left = scene.group("Left");
  const auto last = scene.geometry("Last", red);
  const auto group = scene.materialGroup("Group", red, left);
  const auto inner = scene.geometry("Inner", red, group);
  const auto clone = scene.clone(last, "Clone", left);
  scene.geometry("Other", scene.material("Blue"));
  EXPECT_THAT(users(red), ElementsAre(group, inner, clone, last));
}

TEST_F(kuMaterialsTest, NodesOutsideTheSceneAreLeftOut) {
  const auto red = scene.material("Red");
  const auto body = scene.geometry("Body", red);
  SceneNode::of(scene.root()).removeChild(body);
  const auto plate = scene.geometry("Plate", red, scene.sceneplateRoot());
  EXPECT_THAT(users(red), IsEmpty());
}

TEST_F(kuMaterialsTest, GivenNodesAreKept) {
  const auto red = scene.material("Red");
  scene.geometry("Body", red);
  std::vector<kuNodePtr> nodes{kuNodePtr(scene.root())};
  kuMaterials::getNodesWithMaterial(nodes, red);
  EXPECT_EQ(nodes.size(), 2u);
}

TEST_F(kuMaterialsTest, SubMaterialsOfASwitchAreNoUseByTheNode) {
  const auto red = scene.material("Red");
  const auto paint = scene.switchMaterial("Paint", {red}, 0);
  const auto body = scene.geometry("Body", paint);
  EXPECT_THAT(users(red), IsEmpty());
  EXPECT_THAT(users(paint), ElementsAre(body));
}
