#include "standalone/rendering/Texture.h"

#include <QJsonArray>
#include <array>
#include <cmath>

#include "standalone/gltf/GltfSource.h"
#include "standalone/rendering/PictureFile.h"

namespace kuStandalone {

namespace {

/** The 256 values of sRGB as linear ones (IEC 61966-2-1). */
const std::array<float, 256>& linearOfSrgb() {
  static const std::array<float, 256> table = [] {
    std::array<float, 256> made{};
    for (std::size_t i = 0; i < made.size(); ++i) {
      const float c = float(i) / 255;
      made[i] = c <= 0.04045f ? c / 12.92f : std::pow((c + 0.055f) / 1.055f, 2.4f);
    }
    return made;
  }();
  return table;
}

int wrapped(int at, int size, Texture::Wrap wrap) {
  if (wrap == Texture::Wrap::ClampToEdge) return std::min(std::max(at, 0), size - 1);
  const int period = wrap == Texture::Wrap::MirroredRepeat ? 2 * size : size;
  at %= period;
  if (at < 0) at += period;
  return at < size ? at : period - 1 - at;
}

/** A coordinate brought near 0, so that what is far away still lies on a pixel. */
float reduced(float at, Texture::Wrap wrap) {
  if (!std::isfinite(at)) return 0;
  return wrap == Texture::Wrap::ClampToEdge ? std::min(std::max(at, -1.0f), 2.0f)
                                            : std::fmod(at, 2.0f);
}

Texture::Wrap wrapOf(const QJsonValue& mode) {
  switch (mode.toInt(10497)) {
    case 33071:
      return Texture::Wrap::ClampToEdge;
    case 33648:
      return Texture::Wrap::MirroredRepeat;
    default:
      return Texture::Wrap::Repeat;
  }
}

QByteArray bytesOf(const GltfSource& source, int index) {
  const QJsonObject image = source.root["images"].toArray()[index].toObject();
  if (!image.contains("bufferView")) return source.images[std::size_t(index)];
  const QJsonObject view =
      source.root["bufferViews"].toArray()[image["bufferView"].toInt()].toObject();
  const QByteArray& buffer = source.buffers[std::size_t(view["buffer"].toInt())];
  return buffer.mid(view["byteOffset"].toInt(0), view["byteLength"].toInt());
}

}  // namespace

Texture::Texture(QImage image, Encoding encoding, Wrap wrapU, Wrap wrapV, bool smooth)
    : _image(std::move(image).convertToFormat(QImage::Format_RGBA8888)),
      _encoding(encoding),
      _wrapU(wrapU),
      _wrapV(wrapV),
      _smooth(smooth) {}

QVector4D Texture::texel(int x, int y) const {
  x = wrapped(x, _image.width(), _wrapU);
  y = wrapped(y, _image.height(), _wrapV);
  const uchar* pixel = _image.constScanLine(y) + 4 * x;
  const float alpha = float(pixel[3]) / 255;
  if (_encoding == Encoding::Linear)
    return {float(pixel[0]) / 255, float(pixel[1]) / 255, float(pixel[2]) / 255, alpha};
  const std::array<float, 256>& linear = linearOfSrgb();
  return {linear[pixel[0]], linear[pixel[1]], linear[pixel[2]], alpha};
}

QVector4D Texture::sample(const QVector2D& at) const {
  const float x = reduced(at.x(), _wrapU) * float(_image.width());
  const float y = reduced(at.y(), _wrapV) * float(_image.height());
  if (!_smooth) return texel(int(std::floor(x)), int(std::floor(y)));
  const float left = std::floor(x - 0.5f), top = std::floor(y - 0.5f);
  const float u = x - 0.5f - left, v = y - 0.5f - top;
  const int x0 = int(left), y0 = int(top);
  const QVector4D upper = texel(x0, y0) * (1 - u) + texel(x0 + 1, y0) * u;
  const QVector4D lower = texel(x0, y0 + 1) * (1 - u) + texel(x0 + 1, y0 + 1) * u;
  return upper * (1 - v) + lower * v;
}

QImage readImage(const GltfSource& source, int index) {
  if (index < 0 || index >= source.root["images"].toArray().size()) return QImage();
  return decodePicture(bytesOf(source, index));
}

std::shared_ptr<const Texture> readTexture(const GltfSource& source, int index,
                                           Texture::Encoding encoding) {
  const QJsonArray textures = source.root["textures"].toArray();
  if (index < 0 || index >= textures.size()) return nullptr;
  const QJsonObject json = textures[index].toObject();
  const QImage image = readImage(source, json["source"].toInt(-1));
  if (image.isNull()) return nullptr;
  const QJsonObject sampler =
      source.root["samplers"].toArray().at(json["sampler"].toInt(-1)).toObject();
  const bool smooth = sampler["magFilter"].toInt(9729) != 9728;
  return std::make_shared<const Texture>(image, encoding, wrapOf(sampler["wrapS"]),
                                         wrapOf(sampler["wrapT"]), smooth);
}

}  // namespace kuStandalone
