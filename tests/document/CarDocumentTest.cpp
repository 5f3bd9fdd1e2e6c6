// The sample document over the sample scene.

#include <QFile>

#include "RoundTripTest.h"
#include "SchemaCheck.h"
#include "manager/kuVariants.h"
#include "standalone/gltf/SceneFile.h"

using ::testing::IsEmpty;

namespace {

class CarDocument : public RoundTripTest {
 protected:
  CarDocument() {
    auto loaded = kuStandalone::loadScene(KU_SAMPLES_DIR "/car/car.gltf");
    EXPECT_EQ(loaded.error, "");
    if (loaded.scene) kuStandalone::Scene::install(std::move(loaded.scene));
    QFile file(KU_SAMPLES_DIR "/car/car.variants.xml");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    read(file.readAll());
  }
};

TEST_F(CarDocument, ComesBackWhole) {
  const std::string before = managerDump();
  EXPECT_EQ(kuVariants::getVariantSets().size(), 10u);
  EXPECT_EQ(afterReload(), before);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(CarDocument, IsWrittenInTheSameBytesAgain) {
  const std::string first = reload().toStdString();
  EXPECT_EQ(written().toStdString(), first);
}

TEST_F(CarDocument, IsWrittenAsAValidDocument) { EXPECT_EQ(schemaFault(written()), ""); }

}  // namespace
