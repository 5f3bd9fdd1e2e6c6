#include "standalone/scene/ScenePool.h"

#include <random>

#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "support/SceneTest.h"

using kuStandalone::PlainMaterial;
using kuStandalone::Scene;
using kuStandalone::ScenePool;
using ::testing::ElementsAre;

namespace {

class ScenePoolTest : public SceneTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  ScenePool& pool() { return ScenePool::of(Scene::the().pool); }

  osg::MFMaterialPtr linearSearch(const std::string& name) {
    osg::MFMaterialPtr found;
    for (const osg::MaterialPtr& material : pool().materials()) {
      if (material->hostFields().name == name) found.push_back(material);
    }
    return found;
  }

  void editAtRandom(std::mt19937& random) {
    const auto& all = pool().materials();
    const unsigned kind = static_cast<unsigned>(random() % 4);
    if (all.empty() || kind < 2) return pool().enter(PlainMaterial::create(anyName(random)));
    const osg::MaterialPtr material = all[random() % all.size()];
    if (kind == 2) return pool().remove(material);
    pool().rename(material, anyName(random));
  }

  static std::string anyName(std::mt19937& random) {
    return "Material" + std::to_string(random() % 5);
  }
};

}  // namespace

TEST_P(ScenePoolTest, AnswersAsALinearSearchAfterEveryEdit) {
  std::mt19937 random(GetParam());
  for (int i = 0; i < 300; ++i) {
    editAtRandom(random);
    const std::string name = anyName(random);
    ASSERT_EQ(pool().find(name), linearSearch(name)) << name << " after edit " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ScenePoolTest, ::testing::Range(1u, 7u));

TEST_F(ScenePoolTest, SecondEntryOfAMaterialChangesNothing) {
  const auto red = scene.material("Red");
  pool().enter(red);
  pool().enter(osg::NullFC);
  EXPECT_THAT(pool().materials(), ElementsAre(red));
}

TEST_F(ScenePoolTest, MaterialIsFoundOnceItIsAdded) {
  const osg::MaterialPtr red = PlainMaterial::create("Red");
  EXPECT_TRUE(pool().find("Red").empty());
  {
    const osg::EditCP edit(kuScenegraph::getMaterialPool());
    kuScenegraph::getMaterialPool()->add(red);
  }
  EXPECT_THAT(pool().find("Red"), ElementsAre(red));
}

TEST_F(ScenePoolTest, MaterialOutlivesItsPool) {
  const osg::MaterialPtr red = scene.material("Red");
  Scene::install(std::make_unique<Scene>());
  EXPECT_EQ(red->hostFields().pool, nullptr);
  kuMaterials::setName(red, "Blue", true);
  EXPECT_STREQ(kuMaterials::getName(red), "Blue");
}
