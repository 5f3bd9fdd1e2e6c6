#include <gtest/gtest.h>

#include "GltfText.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

QByteArray mapped(const QByteArray& material, const QByteArray& mappings) {
  return "{" + material + R"("extensions":{"KHR_materials_variants":{"mappings":[)" + mappings +
         "]}}}";
}

/** Variants "One" and "Two"; materials Red, Blue, Green and a switch of Red and Blue; a node for
 * each of the primitives. */
QByteArray withPrimitives(const std::vector<QByteArray>& primitives) {
  QByteArray top, nodes, meshes;
  for (std::size_t i = 0; i < primitives.size(); ++i) {
    const QByteArray comma = i ? "," : "";
    top += comma + QByteArray::number(int(i));
    nodes += comma + R"({"mesh":)" + QByteArray::number(int(i)) + "}";
    meshes += comma + R"({"primitives":[)" + primitives[i] + "]}";
  }
  return sceneText(
      top, nodes,
      R"(,"extensions":{"KHR_materials_variants":{"variants":[{"name":"One"},{"name":"Two"}]}},)"
      R"("materials":[{"name":"Red"},{"name":"Blue"},{"name":"Green"},)"
      R"({"name":"Paint","extras":{"switch":{"materials":[0,1],"choice":1}}}],"meshes":[)" +
          meshes + "]");
}

osg::MaterialPtr materialAt(const SceneLoadResult& result, unsigned node) {
  return GeometryCore::of(nodeAt(result, {node})->getCore()).material;
}

std::vector<std::string> statesAt(const SceneLoadResult& result, unsigned node) {
  std::vector<std::string> names;
  materialAt(result, node)->getStateNames(names);
  return names;
}

using Names = std::vector<std::string>;

TEST(FileVariants, PrimitiveWithMappingsBearsASwitchOfItsOwnMaterialFirst) {
  const auto result = loadText(withPrimitives({mapped(
      R"("material":1,)",
      R"({"material":2,"variants":[0]},{"material":1,"variants":[]},{"material":0,"variants":[1]})")}));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(result.warnings, Names{});
  EXPECT_EQ(statesAt(result, 0), (Names{"Blue", "Green", "Red"}));
  const osg::MaterialPtr material = materialAt(result, 0);
  EXPECT_STREQ(material->getType().getName(), "SwitchMaterial");
  EXPECT_EQ(material->hostFields().name, "Blue Switch");
  EXPECT_EQ(material->hostFields().choice, 0u);
  EXPECT_EQ(material->hostFields().source, -1);
  EXPECT_EQ(ScenePool::of(result.scene->pool).materials().back(), material);
}

TEST(FileVariants, EachVariantChoosesASubMaterialOfEachSwitch) {
  const auto result =
      loadText(withPrimitives({mapped(R"("material":0,)", R"({"material":1,"variants":[1]})"),
                               mapped(R"("material":1,)", R"({"material":2,"variants":[0,1]})")}));
  ASSERT_EQ(result.error, "");
  const auto& variants = result.scene->fileVariants;
  ASSERT_EQ(variants.size(), 2u);
  EXPECT_EQ(variants[0].name, "One");
  EXPECT_EQ(variants[1].name, "Two");
  ASSERT_EQ(variants[0].choices.size(), 2u);
  EXPECT_EQ(osg::MaterialPtr(variants[0].choices[0].first), materialAt(result, 0));
  EXPECT_EQ(variants[0].choices[0].second, 0u);
  EXPECT_EQ(variants[0].choices[1].second, 1u);
  EXPECT_EQ(variants[1].choices[0].second, 1u);
  EXPECT_EQ(variants[1].choices[1].second, 1u);
}

TEST(FileVariants, LikePrimitivesShareASwitchAndOthersHaveOneOfAnotherName) {
  const auto result =
      loadText(withPrimitives({mapped(R"("material":0,)", R"({"material":1,"variants":[0]})"),
                               mapped(R"("material":0,)", R"({"material":1,"variants":[0]})"),
                               mapped(R"("material":0,)", R"({"material":1,"variants":[1]})")}));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(materialAt(result, 0), materialAt(result, 1));
  EXPECT_NE(materialAt(result, 0), materialAt(result, 2));
  EXPECT_EQ(materialAt(result, 2)->hostFields().name, "Red Switch 2");
}

TEST(FileVariants, OwnSwitchThatHoldsAllMappedOnesIsUsedAsItIs) {
  const auto result =
      loadText(withPrimitives({mapped(R"("material":3,)", R"({"material":1,"variants":[0]})"),
                               mapped(R"("material":3,)", R"({"material":2,"variants":[0]})")}));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(materialAt(result, 0)->hostFields().name, "Paint");
  EXPECT_EQ(materialAt(result, 0)->hostFields().choice, 1u);
  EXPECT_EQ(result.scene->fileVariants[0].choices[0].second, 1u);
  EXPECT_EQ(statesAt(result, 1), (Names{"Paint", "Green"}));
}

TEST(FileVariants, OwnSwitchFollowsOneMappingOnly) {
  const auto result =
      loadText(withPrimitives({mapped(R"("material":3,)", R"({"material":1,"variants":[0]})"),
                               mapped(R"("material":3,)", R"({"material":1,"variants":[1]})")}));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(materialAt(result, 0)->hostFields().name, "Paint");
  EXPECT_EQ(statesAt(result, 1), (Names{"Paint", "Blue"}));
}

TEST(FileVariants, PrimitiveWithoutMaterialHasADefaultOneFirst) {
  const auto result = loadText(withPrimitives({mapped("", R"({"material":1,"variants":[0]})")}));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(statesAt(result, 0), (Names{"Default", "Blue"}));
}

TEST(FileVariants, PrimitiveWithoutMappingsBearsItsOwnMaterial) {
  const auto result = loadText(withPrimitives({mapped(R"("material":2,)", ""), "{}"}));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(materialAt(result, 0)->hostFields().name, "Green");
  EXPECT_EQ(materialAt(result, 1), osg::NullFC);
  EXPECT_TRUE(result.scene->fileVariants[0].choices.empty());
}

TEST(FileVariants, WrongMappingsAreRefused) {
  const std::string place = "f: meshes[0].primitives[0].extensions.KHR_materials_variants.mappings";
  const std::vector<std::pair<QByteArray, std::string>> cases = {
      {R"({"material":9,"variants":[0]})", "[0].material: there are 4 and no such one"},
      {R"({"variants":[0]})", "[0].material: is no index"},
      {R"({"material":1,"variants":[2]})", "[0].variants: there are 2 and no such one"},
      {R"({"material":1,"variants":0})", "[0].variants: is no array"},
      {R"(7)", "[0]: is no object"},
      {R"({"material":1,"variants":[0]},{"material":2,"variants":[0]})",
       "[1].variants: variant 0 has a material already"},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(loadText(withPrimitives({mapped(R"("material":0,)", one.first)})).error,
              place + one.second);
  }
}

}  // namespace
