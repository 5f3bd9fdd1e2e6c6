#pragma once

#include <QImage>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "standalone/rendering/Renderer.h"
#include "standalone/scene/SceneSnapshot.h"

/** The sample scene and its sets, and the pictures that references are kept of. */
class CarPictures {
 public:
  /** Makes the sample the present scene and reads its document. */
  CarPictures();
  ~CarPictures();
  CarPictures(const CarPictures&) = delete;
  CarPictures& operator=(const CarPictures&) = delete;

  /** What went wrong with the sample, empty if nothing did. */
  const std::string& error() const { return _error; }
  /** Names of the sets, in the order of the document. */
  static std::vector<QString> sets();
  /** Puts the scene back to its start and selects the set. */
  void select(const QString& set);
  /** A picture of the scene as it is now. */
  QImage picture();

  /** Where the reference of a set lies. */
  static QString referenceFile(const QString& set);
  /** The reference of a set; null if there is none. */
  static QImage reference(const QString& set) { return QImage(referenceFile(set)); }

 private:
  std::string _error;
  std::unique_ptr<kuStandalone::SceneSnapshot> _start;
  kuStandalone::Renderer _renderer;
};
