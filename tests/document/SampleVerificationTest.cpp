// The sample is held against its document, and against what the creators make of it.

#include "VerifierTest.h"
#include "document/kuVariantReader.h"
#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuMaterials.h"
#include "scene/kuLightVariantCreator.h"
#include "scene/kuNodeVariantCreator.h"
#include "scene/kuOverlayVariantCreator.h"
#include "scene/kuTransformVariantCreator.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/Scene.h"

using kuStandalone::Scene;
using ::testing::ElementsAre;

namespace {

/** The car is the present scene. */
class SampleVerification : public VerifierTest {
 protected:
  SampleVerification() {
    kuStandalone::SceneLoadResult loaded = kuStandalone::loadScene(KU_SAMPLES_DIR "/car/car.gltf");
    EXPECT_EQ(loaded.error, "");
    if (loaded.scene) Scene::install(std::move(loaded.scene));
  }

  static void readDocument() {
    QFile file(KU_SAMPLES_DIR "/car/car.variants.xml");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    kuVariantReader().read(file.readAll().constData());
  }
};

TEST_F(SampleVerification, EverySetAndVariantOfTheDocumentIsValid) {
  readDocument();
  EXPECT_THAT(
      report(),
      ElementsAre(
          "Info,VariantSet,Base Model,,,valid", "Info,VariantSet,Sport,,,valid",
          "Info,VariantSet,Family,,,valid", "Info,VariantSet,Summer Trip,,,valid",
          "Info,VariantSet,Winter Trip,,,valid", "Info,VariantSet,Night Drive,,,valid",
          "Info,VariantSet,Doors Open,,,valid", "Info,VariantSet,Next Colour,,,valid",
          "Info,VariantSet,Engine Bay,,,valid", "Info,VariantSet,Jack,,,valid",
          "Info,NodeVariant,Roof,Roof,,valid", "Info,NodeVariant,Rack,Rack,,valid",
          "Info,NodeVariant,Wheels,Wheels,,valid", "Info,NodeVariant,Mirror,Mirror,,valid",
          "Info,NodeVariant,Jack,Jack,,valid", "Info,NodeVariant,Surroundings,Surroundings,,valid",
          "Info,MaterialVariant,Paint,Paint,,valid", "Info,MaterialVariant,Glass,Glass,,valid",
          "Info,MaterialVariant,Fabric Switch,Fabric Switch,,valid"));
}

TEST_F(SampleVerification, ItStaysValidWhenItWasUsed) {
  readDocument();
  const ReportLines before = report();
  EXPECT_TRUE(verifier.verifyKorvo());
  EXPECT_EQ(report(), before);
}

TEST_F(SampleVerification, WhatTheCreatorsMakeOfTheTreeIsValid) {
  const osg::NodePtr root = Scene::the().nodes.root;
  kuNodeVariantCreator().traverse(root);
  kuOverlayVariantCreator().traverse(Scene::the().sceneplates.root);
  kuLightVariantCreator().traverse(root);
  kuTransformVariantCreator().traverse(root);
  EXPECT_THAT(
      report(),
      ElementsAre("Info,NodeVariant,Roof,Roof,,valid", "Info,NodeVariant,Rack,Rack,,valid",
                  "Info,NodeVariant,Wheels,Wheels,,valid", "Info,NodeVariant,Mirror,Mirror,,valid",
                  "Info,NodeVariant,Surroundings,Surroundings,,valid"));
  EXPECT_EQ(kuVariants::getLightVariants().size(), 4u);
  EXPECT_EQ(kuVariants::getTransformVariants().size(), 3u);
  EXPECT_EQ(kuVariants::getOverlayVariants().size(), 1u);
}

TEST_F(SampleVerification, AVariantMadeFromAnyMaterialIsValid) {
  const std::vector<std::string> names{"Paint", "Glass", "Fabric Switch", "Rubber"};
  for (const std::string& name : names)
    kuVariants::createMaterialVariant(kuMaterials::findMaterial(name.c_str()).getMaterial(), false);
  EXPECT_THAT(report(), ElementsAre("Info,MaterialVariant,Paint,Paint,,valid",
                                    "Info,MaterialVariant,Glass,Glass,,valid",
                                    "Info,MaterialVariant,Fabric Switch,Fabric Switch,,valid",
                                    "Info,MaterialVariant,Rubber Switch,Rubber Switch,,valid"));
}

// Errors that cannot be helped: the check knows switches and other nodes, and to it a transform
// node is one of the others, whose steps and indices it does not know.

TEST_F(SampleVerification, ANodeVariantMadeFromATransformNodeFailsForItsDefault) {
  kuVariants::createNodeVariant(kuScenegraph::findNode("Bonnet").getNode(), false);
  EXPECT_THAT(report(), ElementsAre("Error,NodeVariant,Bonnet,Bonnet,,node is not a switch-node "
                                    "and has illegal default value"));
}

TEST_F(SampleVerification, ANodeVariantMadeFromATransformNodeFailsForEachOfItsOptions) {
  kuVariants::createNodeVariant(kuScenegraph::findNode("Bonnet").getNode(), false)->setDefault("");
  const std::string line = "Error,NodeVariant,Bonnet,Bonnet,";
  const std::string message = ",node state not found in switch node";
  EXPECT_THAT(report(),
              ElementsAre(line + "!Next" + message, line + "!Next (Loop)" + message,
                          line + "!Previous" + message, line + "!Previous (Loop)" + message,
                          line + "Transform 0" + message, line + "Transform 1" + message));
}

// The variant of a sceneplate is an overlay variant; the look-up of the check knows the tree alone.
TEST_F(SampleVerification, ANodeVariantMadeFromASceneplateHasNoNode) {
  kuNodeVariantCreator().traverse(Scene::the().sceneplates.root);
  EXPECT_THAT(report(), ElementsAre("Error,NodeVariant,Season,Season,,switch-node not found"));
}

}  // namespace
