#pragma once

#include <QImage>
#include <QVector2D>
#include <QVector4D>
#include <memory>

#include "host/kuHostExport.h"

namespace kuStandalone {

class GltfSource;

/** A picture that is looked up by texture coordinates. */
class KUHOST_EXPORT Texture {
 public:
  enum class Wrap { Repeat, MirroredRepeat, ClampToEdge };
  /** How the numbers of the picture are meant. */
  enum class Encoding { Srgb, Linear };

  /** @param image not null. */
  Texture(QImage image, Encoding encoding, Wrap wrapU, Wrap wrapV, bool smooth);

  /** Linear colour and opacity from 0 to 1; the origin is the picture's top left. */
  QVector4D sample(const QVector2D& at) const;

 private:
  QVector4D texel(int x, int y) const;

  QImage _image;
  Encoding _encoding;
  Wrap _wrapU, _wrapV;
  bool _smooth;
};

/**
 * The picture of that index of the file's `images`, decoded; null where there is none or
 * decodePicture() makes nothing of it.
 */
KUHOST_EXPORT QImage readImage(const GltfSource& source, int index);

/** The texture of that index of the file's `textures`; null where its picture is. */
KUHOST_EXPORT std::shared_ptr<const Texture> readTexture(const GltfSource& source, int index,
                                                         Texture::Encoding encoding);

}  // namespace kuStandalone
