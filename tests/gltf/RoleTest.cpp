#include <gtest/gtest.h>

#include "GltfText.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

using Lines = std::vector<std::string>;

QByteArray oneNode(const QByteArray& members, const QByteArray& more = {}) {
  return sceneText("0", "{" + members + "}", more);
}

QByteArray oneMaterial(const QByteArray& extras) {
  return sceneText("", "", R"(,"materials":[{"name":"M","extras":{)" + extras + "}}]");
}

TEST(Roles, WhatWouldGoWrongSilentlyIsRefused) {
  const QByteArray lights = R"(,"extensions":{"KHR_lights_punctual":{"lights":[{}]}})";
  const QByteArray mesh = R"(,"meshes":[{"primitives":[{}]}])";
  const std::vector<std::pair<QByteArray, std::string>> cases = {
      {oneNode(R"("extensions":{"KHR_lights_punctual":{"light":1}})", lights),
       "nodes[0].extensions.KHR_lights_punctual.light: there are 1 and no such one"},
      {oneNode(R"("extensions":{"KHR_lights_punctual":{}})", lights),
       "nodes[0].extensions.KHR_lights_punctual.light: is no index"},
      {oneNode(R"("extras":{"sceneplate":{"image":0}})"),
       "nodes[0].extras.sceneplate.image: there are 0 and no such one"},
      {oneNode(R"("extras":{"sceneplate":{"rect":[0,0,1]}})"),
       "nodes[0].extras.sceneplate.rect: is not 4 numbers"},
      {oneNode(R"("extras":{"sceneplate":{"rect":[0,0,1,"1"]}})"),
       "nodes[0].extras.sceneplate.rect: is not 4 numbers"},
      {oneNode(R"("extras":{"sceneplate":true})"), "nodes[0].extras.sceneplate: is no object"},
      {oneNode(R"("name":1)"), "nodes[0].name: is no text"},
      {oneNode(R"("extras":[])"), "nodes[0].extras: is no object"},
      {oneNode(R"("extensions":7)"), "nodes[0].extensions: is no object"},
      {oneNode(R"("extensions":{"KHR_node_visibility":false})"),
       "nodes[0].extensions.KHR_node_visibility: is no object"},
      {oneNode(R"("extensions":{"KHR_node_visibility":{"visible":0}})"),
       "nodes[0].extensions.KHR_node_visibility.visible: is neither true nor false"},
      {oneNode(R"("mesh":0)", R"(,"meshes":[{"primitives":{}}])"),
       "meshes[0].primitives: is no array"},
      {oneNode(R"("extras":{"switch":0,"transforms":[]})"),
       "nodes[0].extras: has both 'switch' and 'transforms'"},
      {oneNode(R"("extras":{"geometry":{},"bare":true})"),
       "nodes[0].extras: has both 'geometry' and 'bare'"},
      {oneNode(R"("mesh":0,"extras":{"geometry":{}})", mesh),
       "nodes[0]: has both 'mesh' and 'geometry'"},
      {oneMaterial(R"("states":["A"],"state":1)"),
       "materials[0].extras.state: is no whole number in range"},
      {oneMaterial(R"("states":["A"],"environment":true)"),
       "materials[0].extras: has both 'states' and 'environment'"},
      {oneMaterial(R"("states":["A"],"switch":{"materials":[]})"),
       "materials[0].extras: has both 'states' and 'switch'"},
      {oneMaterial(R"("locked":1)"), "materials[0].extras.locked: is neither true nor false"},
      {oneMaterial(R"("pool":"no")"), "materials[0].extras.pool: is neither true nor false"},
      {sceneText("", "", R"(,"materials":[{"normalTexture":{"index":0}}])"),
       "materials[0].normalTexture.index: there are 0 and no such one"},
      {sceneText("", "", R"(,"textures":[{"source":3}])"),
       "textures[0].source: there are 0 and no such one"},
  };
  for (const auto& one : cases)
    EXPECT_EQ(loadText(one.first).error, "f: " + one.second) << one.first.toStdString();
}

TEST(Roles, WhatMeansNothingIsWarnedOf) {
  const std::vector<std::pair<QByteArray, Lines>> cases = {
      {oneNode(R"("extras":{"environmentSwitch":true})"),
       {"f: nodes[0].extras.environmentSwitch: means nothing without 'switch'"}},
      {oneNode(R"("extras":{"supposed":1})"),
       {"f: nodes[0].extras.supposed: means nothing without 'transforms'"}},
      {oneNode(R"("extras":{"on":true})"),
       {"f: nodes[0].extras.on: means nothing without a light"}},
      {oneNode(R"("extras":{"renderLayer":{"Camera":false,"other":1}})"),
       {"f: nodes[0].extras.renderLayer: 'Camera' means nothing; 'camera' would mean something"}},
      {oneNode(R"("extras":{"renderLayer":{"states":{"Shadows":{"shadow":false}}}})"),
       {"f: nodes[0].extras.renderLayer.states.Shadows: 'shadow' means nothing; 'shadows' would "
        "mean something"}},
      {oneNode(R"("extras":{"renderLayr":{}})"),
       {"f: nodes[0].extras: 'renderLayr' means nothing; 'renderLayer' would mean something"}},
      {oneNode(R"("extras":{"renderLayer":{"camera":false,"states":{"Day":{}}}})"), {}},
      {sceneText("0", R"({"children":[1],"extras":{"sceneplate":{}}},{})"),
       {"f: nodes[0].children: a sceneplate shows no children"}},
      {sceneText("0", R"({"children":[1]},{"extras":{"sceneplates":true}})"),
       {"f: nodes[1].extras.sceneplates: is not at the top and means nothing"}},
      {oneNode(R"("weights":[1])"), {"f: nodes[0].weights: morph targets are left alone"}},
      {oneNode(R"("mesh":0)", R"(,"meshes":[{"primitives":[{"targets":[]}]}])"),
       {"f: meshes[0].primitives[0].targets: morph targets are left alone"}},
      {oneNode(R"("skin":0)", R"(,"skins":[{}])"), {"f: nodes[0].skin: skins are left alone"}},
      {gltfText(R"("scenes":[{},{}])"), {"f: scenes: only one of them is read"}},
      {sceneText("", "", R"(,"extensionsUsed":["EXT_x","KHR_lights_punctual"])"),
       {"f: extensionsUsed: 'EXT_x' is left alone"}},
      {oneNode(R"("extras":{"Switch":1})"),
       {"f: nodes[0].extras: 'Switch' means nothing; 'switch' would mean something"}},
      {oneNode(R"("extras":{"swtch":1})"),
       {"f: nodes[0].extras: 'swtch' means nothing; 'switch' would mean something"}},
      {oneNode(R"("extras":{"clone_of":"A"})"),
       {"f: nodes[0].extras: 'clone_of' means nothing; 'cloneOf' would mean something"}},
      {oneMaterial(R"("stats":["A"])"),
       {"f: materials[0].extras: 'stats' means nothing; 'states' would mean something"}},
      {oneNode(R"("extras":{"weight":3,"author":"x","no":1})"), {}},
  };
  for (const auto& one : cases) {
    const auto result = loadText(one.first);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.warnings, one.second) << one.first.toStdString();
  }
}

TEST(Roles, ThousandNodesGiveOneWarning) {
  QByteArray nodes = "{}";
  for (int i = 0; i < 1000; ++i)
    nodes += R"(,{"extras":{"on":true}})";
  EXPECT_EQ(loadText(sceneText("0", nodes)).warnings,
            Lines{"f: nodes[1].extras.on: means nothing without a light"});
}

TEST(Roles, GeometryOfAProgramHasNoTriangles) {
  const auto result = loadText(oneNode(R"("extras":{"geometry":{}})"));
  ASSERT_EQ(result.error, "");
  const osg::NodeCorePtr core = nodeAt(result, {0})->getCore();
  ASSERT_STREQ(core->getType().getName(), "Geometry");
  EXPECT_EQ(GeometryCore::of(core).mesh, -1);
  EXPECT_EQ(GeometryCore::of(core).material, osg::NullFC);
}

TEST(Roles, BareNodeHasNoCore) {
  const auto result =
      loadText(sceneText("0", R"({"children":[1],"extras":{"bare":true}},{"name":"A"})"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(nodeAt(result, {0})->getCore(), osg::NullFC);
  EXPECT_EQ(nameOf(nodeAt(result, {0, 0})), "A");
}

TEST(Roles, LightWithOtherContentHangsBelowAGroup) {
  const auto result =
      loadText(oneNode(R"("name":"L","mesh":0,"extensions":{"KHR_lights_punctual":{"light":0}},)"
                       R"("extras":{"on":false})",
                       R"(,"meshes":[{"primitives":[{}]}],)"
                       R"("extensions":{"KHR_lights_punctual":{"lights":[{}]}})"));
  ASSERT_EQ(result.error, "");
  EXPECT_STREQ(nodeAt(result, {0})->getCore()->getType().getName(), "Group");
  EXPECT_EQ(nameOf(nodeAt(result, {0, 0})), "L.geometry1");
  EXPECT_EQ(nameOf(nodeAt(result, {0, 1})), "L.light");
  EXPECT_FALSE(LightCore::of(nodeAt(result, {0, 1})->getCore()).on);
}

TEST(Roles, MaterialCanBeLockedAndInNoPool) {
  const auto result =
      loadText(oneNode(R"("extras":{"materialGroup":{"material":0}})",
                       R"(,"materials":[{"name":"M","extras":{"pool":false,"locked":true}}])"));
  ASSERT_EQ(result.error, "");
  EXPECT_TRUE(ScenePool::of(result.scene->pool).materials().empty());
  const auto& group = MaterialGroupCore::of(nodeAt(result, {0})->getCore());
  ASSERT_NE(group.material, osg::NullFC);
  EXPECT_TRUE(group.material->hostFields().locked);
}

TEST(Roles, EnvironmentSwitchCanBeToldInsideOrBesideTheSwitch) {
  for (const char* extras : {R"("switch":{"materials":[],"environment":true})",
                             R"("switch":{"materials":[]},"environment":true)"}) {
    const auto result = loadText(oneMaterial(extras));
    ASSERT_EQ(result.error, "");
    EXPECT_STREQ(ScenePool::of(result.scene->pool).materials()[0]->getType().getName(),
                 "UEnvironmentSwitchMaterial");
  }
}

}  // namespace
