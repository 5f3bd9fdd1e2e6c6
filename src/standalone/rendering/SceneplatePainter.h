#pragma once

#include <QImage>
#include <map>
#include <memory>

#include "standalone/scene/Scene.h"

namespace kuStandalone {

/** Lays the sceneplates that show over a picture. Their own pictures are decoded once. */
class KUHOST_EXPORT SceneplatePainter {
 public:
  /** The plates in the order of their tree, so that a later one covers an earlier one. */
  void paint(const Scene& scene, QImage& picture);

 private:
  void paintBelow(const osg::NodePtr& node, QImage& picture);
  const QImage& imageOf(int index);

  std::shared_ptr<SceneSource> _source;
  std::map<int, QImage> _images;
};

}  // namespace kuStandalone
