#include "standalone/rendering/SceneplatePainter.h"

#include <QPainter>
#include <cmath>

#include "host/osg/Sceneplate.h"
#include "standalone/gltf/GltfSource.h"
#include "standalone/rendering/Texture.h"
#include "standalone/rendering/VisibleScene.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

namespace {

/** The place of a plate in pixels; empty where it has none. */
QRectF placeOf(const SceneplateCore& core, const QImage& picture) {
  for (const double number : core.rect) {
    if (!std::isfinite(number) || std::fabs(number) > 1e4) return QRectF();
  }
  return QRectF(core.rect[0] * picture.width(), core.rect[1] * picture.height(),
                core.rect[2] * picture.width(), core.rect[3] * picture.height());
}

void draw(const QImage& image, const QRectF& place, QImage& picture) {
  // The part that shows alone, since a plate may be far larger than the picture.
  const QRectF part = place & QRectF(picture.rect());
  if (part.isEmpty()) return;
  const double across = image.width() / place.width(), down = image.height() / place.height();
  const QRectF source((part.x() - place.x()) * across, (part.y() - place.y()) * down,
                      part.width() * across, part.height() * down);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(part, image, source);
}

}  // namespace

void SceneplatePainter::paint(const Scene& scene, QImage& picture) {
  if (scene.source != _source) {
    _images.clear();
    _source = scene.source;
  }
  if (scene.sceneplates.root) paintBelow(scene.sceneplates.root, picture);
}

void SceneplatePainter::paintBelow(const osg::NodePtr& handle, QImage& picture) {
  const SceneNode& node = SceneNode::of(handle);
  if (!node.active()) return;
  if (osg::SceneplatePtr::dcast(node.core())) {
    const auto& core = SceneplateCore::of(node.core());
    const QImage& image = imageOf(core.image);
    const QRectF place = placeOf(core, picture);
    if (!image.isNull() && place.isValid()) draw(image, place, picture);
  }
  for (const osg::NodePtr& child : ShownChildren(node))
    paintBelow(child, picture);
}

const QImage& SceneplatePainter::imageOf(int index) {
  const auto known = _images.find(index);
  if (known != _images.end()) return known->second;
  const auto* source = dynamic_cast<const GltfSource*>(_source.get());
  return _images[index] = source ? readImage(*source, index) : QImage();
}

}  // namespace kuStandalone
