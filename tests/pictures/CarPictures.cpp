#include "CarPictures.h"

#include <QFile>

#include "document/kuVariantReader.h"
#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "standalone/gltf/SceneFile.h"

using namespace kuStandalone;

CarPictures::CarPictures() {
  SceneLoadResult loaded = loadScene(KU_SAMPLES_DIR "/car/car.gltf");
  _error = loaded.error;
  if (!loaded.scene) return;
  Scene::install(std::move(loaded.scene));
  QFile file(KU_SAMPLES_DIR "/car/car.variants.xml");
  if (!file.open(QIODevice::ReadOnly)) _error = file.errorString().toStdString();
  kuVariantReader().read(file.readAll().constData());
  _start = std::make_unique<SceneSnapshot>(Scene::the());
}

CarPictures::~CarPictures() { kuController::call("clearAllVariants", 1); }

std::vector<QString> CarPictures::sets() {
  std::vector<QString> names;
  for (const kuVariantSet* set : kuVariants::getVariantSets())
    names.push_back(set->getName());
  return names;
}

void CarPictures::select(const QString& set) {
  if (_start) _start->restore(Scene::the());
  kuVariants::selectVariantSet(set.toUtf8().constData(), false);
}

QImage CarPictures::picture() {
  PictureSettings settings;
  settings.width = 160;
  settings.height = 120;
  settings.samples = 8;
  return _renderer.render(Scene::the(), settings);
}

QString CarPictures::referenceFile(const QString& set) {
  return QStringLiteral(KU_REFERENCES_DIR "/") + set.toLower().replace(' ', '-') + ".png";
}
