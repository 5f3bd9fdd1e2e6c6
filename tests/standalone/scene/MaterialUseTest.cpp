#include <algorithm>
#include <random>

#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/NodeCoreFields.h"
#include "standalone/scene/SceneSnapshot.h"
#include "support/SceneTest.h"

using kuStandalone::GeometryCore;
using kuStandalone::Scene;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

namespace {

void give(const osg::NodeCorePtr& core, const osg::MaterialPtr& material) {
  const auto geometry = osg::GeometryPtr::dcast(core);
  const osg::EditCP edit(geometry, osg::Geometry::MaterialFieldMask);
  geometry->setMaterial(material);
}

class MaterialUseTest : public SceneTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  static const std::vector<osg::MultiMaterial*>& holders(const osg::MaterialPtr& material) {
    return material->hostFields().holders;
  }

  static void expectUsersAreTheCoresThatBear(const osg::MaterialPtr& material,
                                             const std::vector<osg::NodeCorePtr>& cores) {
    std::vector<osg::NodeCore*> expected;
    for (const osg::NodeCorePtr& core : cores) {
      if (GeometryCore::of(core).material == material) expected.push_back(core.get());
    }
    EXPECT_THAT(material->hostFields().users, UnorderedElementsAreArray(expected));
  }
};

}  // namespace

TEST_P(MaterialUseTest, UsersAreTheCoresThatBearTheMaterialAfterEveryEdit) {
  std::mt19937 random(GetParam());
  const std::vector<osg::MaterialPtr> materials = {scene.material("A"), scene.material("B"), {}};
  std::vector<osg::NodeCorePtr> cores;
  for (int i = 0; i < 300; ++i) {
    const osg::MaterialPtr& material = materials[random() % 3];
    if (cores.size() < 5 || random() % 4 == 0) {
      cores.push_back(GeometryCore::create(material));
    } else if (random() % 4 == 0) {
      cores.erase(cores.begin() + long(random() % cores.size()));
    } else {
      give(cores[random() % cores.size()], material);
    }
    expectUsersAreTheCoresThatBear(materials[0], cores);
    expectUsersAreTheCoresThatBear(materials[1], cores);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, MaterialUseTest, ::testing::Range(1u, 5u));

TEST_F(MaterialUseTest, ManyCoresLeaveOneMaterialAtOnce) {
  // With a search for each among the others this would be some ten thousand million steps.
  const auto red = scene.material("Red"), blue = scene.material("Blue");
  std::vector<osg::NodeCorePtr> cores;
  for (int i = 0; i < 200000; ++i)
    cores.push_back(GeometryCore::create(red));
  for (const osg::NodeCorePtr& core : cores)
    give(core, blue);
  EXPECT_THAT(red->hostFields().users, IsEmpty());
  EXPECT_EQ(blue->hostFields().users.size(), cores.size());
}

TEST_F(MaterialUseTest, HoldersAreTheSwitchesAsOftenAsTheyHaveTheMaterial) {
  const auto red = scene.material("Red");
  const auto paint = scene.switchMaterial("Paint", {red, scene.material("Blue"), red}, 0);
  const auto other = osg::SwitchMaterial::create();
  {
    const osg::EditCP edit(other, osg::MultiMaterial::MaterialsFieldMask);
    other->addMaterial(red);
    other->addMaterial(paint);
  }
  EXPECT_THAT(holders(red), UnorderedElementsAre(paint.get(), paint.get(), other.get()));
  EXPECT_THAT(holders(paint), UnorderedElementsAre(other.get()));
  {
    const osg::EditCP edit(paint, osg::MultiMaterial::MaterialsFieldMask);
    paint->subMaterial(red);
    paint->subMaterial(other);
  }
  EXPECT_THAT(holders(red), UnorderedElementsAre(paint.get(), other.get()));
}

TEST_F(MaterialUseTest, SwitchThatIsGoneHoldsNothing) {
  const auto red = scene.material("Red");
  auto paint = osg::MaterialPtr(kuStandalone::createSwitchMaterial("Paint", {red}, 0));
  EXPECT_EQ(holders(red).size(), 1u);
  paint = osg::NullFC;
  EXPECT_THAT(holders(red), IsEmpty());
}

TEST_F(MaterialUseTest, SwitchThatIsPutBackHoldsWhatItHeld) {
  const auto red = scene.material("Red"), blue = scene.material("Blue");
  const auto paint = scene.switchMaterial("Paint", {red}, 0);
  const kuStandalone::SceneSnapshot snapshot(Scene::the());
  {
    const osg::EditCP edit(paint, osg::MultiMaterial::MaterialsFieldMask);
    paint->subMaterial(red);
    paint->addMaterial(blue);
  }
  snapshot.restore(Scene::the());
  EXPECT_THAT(holders(red), UnorderedElementsAre(paint.get()));
  EXPECT_THAT(holders(blue), IsEmpty());
}
