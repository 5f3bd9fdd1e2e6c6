// Makes what is rendered now the references, and tells which of them changed by how much.

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdio>

#include "CarPictures.h"
#include "PictureComparison.h"
#include "standalone/StandaloneHost.h"

namespace {

/** Whole, or not at all. */
bool save(const QImage& picture, const QString& path) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit()) return true;
  std::fprintf(stderr, "accept-pictures: cannot write %s: %s\n", qUtf8Printable(path),
               qUtf8Printable(file.errorString()));
  return false;
}

std::string changeOf(const QImage& actual, const QImage& former) {
  if (former.isNull()) return "new";
  const PictureDifference difference = compare(actual, former);
  if (difference.sameSize && difference.mean == 0) return "the same";
  return difference.text() + (difference.isAlike() ? ", alike" : ", changed");
}

bool accept(CarPictures& car, const QString& set) {
  car.select(set);
  const QImage actual = car.picture();
  const QString path = CarPictures::referenceFile(set);
  const std::string change = changeOf(actual, QImage(path));
  std::printf("%-20s %s\n", qUtf8Printable(QFileInfo(path).fileName()), change.c_str());
  return change == "the same" || save(actual, path);
}

/** Takes away the references of sets that are no more. */
void removeOthers(const std::vector<QString>& sets) {
  QDir folder(KU_REFERENCES_DIR);
  QStringList left = folder.entryList({"*.png"}, QDir::Files, QDir::Name);
  for (const QString& set : sets)
    left.removeAll(QFileInfo(CarPictures::referenceFile(set)).fileName());
  for (const QString& file : left) {
    folder.remove(file);
    std::printf("%-20s removed\n", qUtf8Printable(file));
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;
  CarPictures car;
  if (!car.error().empty()) {
    std::fprintf(stderr, "accept-pictures: %s\n", car.error().c_str());
    return 1;
  }
  const std::vector<QString> sets = CarPictures::sets();
  for (const QString& set : sets) {
    if (!accept(car, set)) return 1;
  }
  removeOthers(sets);
  return 0;
}
