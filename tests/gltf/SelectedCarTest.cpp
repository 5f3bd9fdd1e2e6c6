// The sample scene after each of the sample's selections, saved and loaded again.

#include <QFile>
#include <QTemporaryDir>
#include <set>

#include "document/kuVariantReader.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "standalone/gltf/SceneFile.h"
#include "support/SceneDump.h"
#include "support/VariantsTest.h"

using namespace kuStandalone;

namespace {

class SelectedCar : public VariantsTest {
 protected:
  SelectedCar() {
    SceneLoadResult loaded = loadScene(KU_SAMPLES_DIR "/car/car.gltf");
    EXPECT_EQ(loaded.error, "");
    if (loaded.scene) Scene::install(std::move(loaded.scene));
    QFile file(KU_SAMPLES_DIR "/car/car.variants.xml");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    kuVariantReader().read(file.readAll().constData());
  }

  /** The present scene as text after it was saved under that name and loaded again. */
  std::string savedAndLoaded(const char* name) const {
    const std::string path = _folder.filePath(name).toStdString();
    EXPECT_EQ(saveScene(Scene::the(), path).error, "");
    const SceneLoadResult loaded = loadScene(path);
    EXPECT_EQ(loaded.error, "");
    return loaded.scene ? dumpScene(*loaded.scene) : std::string();
  }

  /** The names of the sets, in the order of the document. */
  static std::vector<std::string> sets() {
    std::vector<std::string> names;
    for (const kuVariantSet* set : kuVariants::getVariantSets())
      names.push_back(set->getName().toStdString());
    return names;
  }

  QTemporaryDir _folder;
};

TEST_F(SelectedCar, ComesBackAfterEachSelection) {
  std::set<std::string> states;
  for (const std::string& set : sets()) {
    kuVariants::selectVariantSet(set.c_str(), false);
    const std::string selected = dumpScene(Scene::the());
    EXPECT_EQ(savedAndLoaded("car.gltf"), selected) << set;
    EXPECT_EQ(savedAndLoaded("car.glb"), selected) << set;
    states.insert(selected);
  }
  EXPECT_EQ(states.size(), 10u) << "each selection leads to a state of its own";
}

}  // namespace
