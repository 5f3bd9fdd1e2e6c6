#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "GltfText.h"
#include "host/kuSceneInterface.h"
#include "standalone/gltf/SceneWriter.h"
#include "support/SceneDump.h"
#include "support/SceneTest.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

using RenderLayerFile = SceneTest;

/** A scene of one node with this render layer. */
QByteArray layerText(const QByteArray& layer) {
  return sceneText("0", R"({"name":"Car","extras":{"renderLayer":)" + layer + "}}");
}

RenderLayerPtr layerAt(const SceneLoadResult& result, std::initializer_list<unsigned> path) {
  return SceneNode::of(nodeAt(result, path)).renderLayer();
}

/** The render layer that a saved scene's node of that index has. */
QJsonObject savedLayer(const Scene& scene, int node = 0) {
  const QJsonObject root = QJsonDocument::fromJson(sceneData(scene, false)).object();
  return root["nodes"].toArray()[node].toObject()["extras"].toObject()["renderLayer"].toObject();
}

/** A scene saved and loaded again; it must come back as it was. */
SceneLoadResult savedAndLoaded(const Scene& scene) {
  SceneLoadResult again = loadText(sceneData(scene, false));
  EXPECT_EQ(again.error, "");
  EXPECT_EQ(dumpScene(*again.scene), dumpScene(scene));
  return again;
}

TEST_F(RenderLayerFile, PresentAndStoredStatesAreRead) {
  const auto result = loadText(layerText(
      R"({"camera":false,"states":{"Night":{"shadows":false,"reflections":false},"Day":{}}})"));
  ASSERT_EQ(result.error, "");
  EXPECT_THAT(result.warnings, IsEmpty());
  const RenderLayerPtr layer = layerAt(result, {0});
  ASSERT_TRUE(layer);
  EXPECT_EQ(layer->present(), (RayVisibility{false, true, true}));
  EXPECT_THAT(layer->states(), ElementsAre(Pair("Day", RayVisibility{true, true, true}),
                                           Pair("Night", RayVisibility{true, false, false})));
}

TEST_F(RenderLayerFile, AnEmptyOneIsInTheDefaultState) {
  const auto result = loadText(layerText("{}"));
  ASSERT_TRUE(layerAt(result, {0}));
  EXPECT_TRUE(layerAt(result, {0})->isInDefaultState());
  EXPECT_THAT(layerAt(result, {0})->states(), IsEmpty());
}

TEST_F(RenderLayerFile, ANodeWithoutOneHasNone) {
  EXPECT_FALSE(layerAt(loadText(sceneText("0", R"({"extras":{"mine":{}}})")), {0}));
}

TEST_F(RenderLayerFile, NodesOfAllRolesMayHaveOne) {
  for (const char* role : {R"("switch":0)", R"("transforms":[])", R"("materialGroup":{})",
                           R"("geometry":{})", R"("bare":true)"}) {
    const auto result = loadText(sceneText(
        "0", "{\"extras\":{" + QByteArray(role) + R"(,"renderLayer":{"shadows":false}}})"));
    ASSERT_EQ(result.error, "") << role;
    EXPECT_EQ(layerAt(result, {0})->present(), (RayVisibility{true, true, false})) << role;
  }
}

TEST_F(RenderLayerFile, WhatIsNoRenderLayerIsRefused) {
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"7", ": is no object"},
      {"null", ": is no object"},
      {"[]", ": is no object"},
      {R"({"camera":1})", ".camera: is neither true nor false"},
      {R"({"camera":null})", ".camera: is neither true nor false"},
      {R"({"reflections":"no"})", ".reflections: is neither true nor false"},
      {R"({"shadows":{}})", ".shadows: is neither true nor false"},
      {R"({"states":[]})", ".states: is no object"},
      {R"({"states":"Day"})", ".states: is no object"},
      {R"({"states":{"Day":true}})", ".states.Day: is no object"},
      {R"({"states":{"Day":[0]}})", ".states.Day: is no object"},
      {R"({"states":{"Day":{},"Night":{"shadows":0}}})",
       ".states.Night.shadows: is neither true nor false"},
      {R"({"states":{"":{"camera":[]}}})", ".states..camera: is neither true nor false"},
  };
  for (const auto& row : rows) {
    const auto result = loadText(layerText(row.first));
    EXPECT_EQ(result.error, std::string("f: nodes[0].extras.renderLayer") + row.second)
        << row.first;
    EXPECT_EQ(result.scene, nullptr) << row.first;
  }
}

TEST_F(RenderLayerFile, TwoStatesOfOneNameAreRefused) {
  const auto result = loadText(layerText(R"({"states":{"Day":{},"Day":{}}})"));
  EXPECT_EQ(result.scene, nullptr);
  EXPECT_NE(result.error, "");
}

TEST_F(RenderLayerFile, NamesOfStatesMayHoldAnyText) {
  const auto result =
      loadText(layerText("{\"states\":{\"\":{},\"a\\u0000b\":{},\"T\xC3\xBCr \xE2\x9C\x93\":{},"
                         "\"\\\");import os\":{}}}"));
  ASSERT_EQ(result.error, "");
  EXPECT_THAT(layerAt(result, {0})->states(),
              ElementsAre(Pair("", RayVisibility()), Pair("\");import os", RayVisibility()),
                          Pair("T\xC3\xBCr \xE2\x9C\x93", RayVisibility()),
                          Pair(std::string("a\0b", 3), RayVisibility())));
  savedAndLoaded(*result.scene);
}

TEST_F(RenderLayerFile, OnlyWhatIsHiddenIsWritten) {
  const osg::NodePtr car = scene.group("Car");
  SceneNode::of(car).setRenderLayer(
      RenderLayer::create({true, false, true}, {{"Day", {}}, {"Night", {false, true, false}}}));
  EXPECT_EQ(
      savedLayer(Scene::the()),
      (QJsonObject{
          {"reflections", false},
          {"states", QJsonObject{{"Day", QJsonObject()},
                                 {"Night", QJsonObject{{"camera", false}, {"shadows", false}}}}}}));
  savedAndLoaded(Scene::the());
}

TEST_F(RenderLayerFile, ADefaultOneWithoutStatesComesBack) {
  const auto result = loadText(layerText("{}"));
  EXPECT_TRUE(layerAt(savedAndLoaded(*result.scene), {0}));
}

TEST_F(RenderLayerFile, WhatChangesIsWrittenOverAndWhatMeansNothingIsKept) {
  const auto result = loadText(
      layerText(R"({"camera":false,"mine":1,"states":{"Day":{"shadows":false,"mine":2}}})"));
  ASSERT_EQ(result.error, "");
  layerAt(result, {0})->activateState("Other");
  layerAt(result, {0})->storeState("Day");
  layerAt(result, {0})->storeState("Night");
  EXPECT_EQ(savedLayer(*result.scene),
            (QJsonObject{{"mine", 1},
                         {"states", QJsonObject{{"Day", QJsonObject{{"mine", 2}}},
                                                {"Night", QJsonObject()}}}}));
}

TEST_F(RenderLayerFile, ACloneHasOneOfItsOwnAndItsContentThatOfTheOriginals) {
  const auto result = loadText(sceneText(
      "0,2", R"({"name":"Wheel","children":[1],"extras":{"renderLayer":{"camera":false}}},)"
             R"({"name":"Rim","extras":{"renderLayer":{"shadows":false,"states":{"Day":{}}}}},)"
             R"({"extras":{"cloneOf":"Wheel","renderLayer":{"reflections":false}}})"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(layerAt(result, {0})->present(), (RayVisibility{false, true, true}));
  EXPECT_EQ(layerAt(result, {1})->present(), (RayVisibility{true, false, true}));
  ASSERT_TRUE(layerAt(result, {1, 0}));
  EXPECT_NE(layerAt(result, {0, 0}), layerAt(result, {1, 0}));
  EXPECT_TRUE(layerAt(result, {0, 0})->equals(*layerAt(result, {1, 0})));
  savedAndLoaded(*result.scene);
}

TEST_F(RenderLayerFile, ACloneWhoseContentIsSeenOtherwiseComesBackAsItIs) {
  const char* nodes =
      R"({"name":"Wheel","children":[1]},{"name":"Rim","extras":{"renderLayer":{}}},)"
      R"({"extras":{"cloneOf":"Wheel"}})";
  const auto stored = loadText(sceneText("0,2", nodes));
  layerAt(stored, {1, 0})->storeState("Day");
  savedAndLoaded(*stored.scene);
  const auto taken = loadText(sceneText("0,2", nodes));
  SceneNode::of(nodeAt(taken, {1, 0})).setRenderLayer({});
  savedAndLoaded(*taken.scene);
}

TEST_F(RenderLayerFile, PartsOfAMeshAndALightThatHaveOneComeBackAsNodes) {
  const QByteArray more = R"(,"meshes":[{"primitives":[{"attributes":{}},{"attributes":{}}]}],)"
                          R"("extensions":{"KHR_lights_punctual":{"lights":[{"type":"point"}]}})";
  for (const unsigned part : {0U, 1U, 2U}) {
    const auto result = loadText(sceneText(
        "0", R"({"name":"Car","mesh":0,"extensions":{"KHR_lights_punctual":{"light":0}}})", more));
    ASSERT_EQ(result.error, "");
    const osg::NodePtr child = nodeAt(result, {0, part});
    ASSERT_TRUE(child);
    SceneNode::of(child).setRenderLayer(RenderLayer::create({false, true, true}));
    savedAndLoaded(*result.scene);
  }
}

}  // namespace
