#include "standalone/rendering/Surface.h"

#include <QJsonArray>
#include <QJsonObject>
#include <cmath>

#include "host/osg/SwitchMaterial.h"
#include "standalone/gltf/GltfSource.h"
#include "standalone/scene/MaterialFields.h"

namespace kuStandalone {

namespace {

/** A number of the file brought into a range; @p otherwise where there is none. */
float number(const QJsonValue& value, float otherwise, float least, float most) {
  const auto given = float(value.toDouble(double(otherwise)));
  return std::isfinite(given) ? std::min(std::max(given, least), most) : otherwise;
}

QVector3D color(const QJsonValue& value, const QVector3D& otherwise) {
  const QJsonArray list = value.toArray();
  if (list.size() < 3) return otherwise;
  return {number(list[0], 0, 0, 1), number(list[1], 0, 0, 1), number(list[2], 0, 0, 1)};
}

Surface::Alpha alphaOf(const QString& mode) {
  if (mode == QLatin1String("MASK")) return Surface::Alpha::Mask;
  return mode == QLatin1String("BLEND") ? Surface::Alpha::Blend : Surface::Alpha::Opaque;
}

QJsonObject extension(const QJsonObject& owner, const char* name) {
  return owner["extensions"].toObject()[QLatin1String(name)].toObject();
}

QVector2D pair(const QJsonValue& value, const QVector2D& otherwise) {
  const QJsonArray list = value.toArray();
  if (list.size() < 2) return otherwise;
  return {number(list[0], 0, -1e6f, 1e6f), number(list[1], 0, -1e6f, 1e6f)};
}

}  // namespace

Surfaces::Surfaces(std::shared_ptr<const GltfSource> source)
    : _source(std::move(source)), _default(std::make_shared<const Surface>()) {}

std::shared_ptr<const Surface> Surfaces::of(const osg::MaterialPtr& material) {
  if (!material) return _default;
  const osg::MaterialFields& fields = material->hostFields();
  if (osg::SwitchMaterialPtr::dcast(material)) {
    if (fields.choice >= fields.subMaterials.size()) return nullptr;
    return of(fields.subMaterials[fields.choice]);
  }
  if (!_source || fields.source < 0) return _default;
  std::shared_ptr<const Surface>& known = _surfaces[fields.source];
  if (!known) known = read(fields.source);
  return known;
}

std::shared_ptr<const Texture> Surfaces::texture(int index, Texture::Encoding encoding) {
  const auto known = _textures.find({index, encoding});
  if (known != _textures.end()) return known->second;
  return _textures[{index, encoding}] = readTexture(*_source, index, encoding);
}

std::shared_ptr<const Surface> Surfaces::read(int index) {
  const QJsonObject json = _source->root["materials"].toArray()[index].toObject();
  const QJsonObject pbr = json["pbrMetallicRoughness"].toObject();
  const auto use = [&](const QJsonValue& value, Texture::Encoding encoding) {
    TextureUse made;
    const QJsonObject info = value.toObject();
    if (!info.contains("index")) return made;
    made.texture = texture(info["index"].toInt(-1), encoding);
    const QJsonObject moved = extension(info, "KHR_texture_transform");
    made.set = moved["texCoord"].toInt(info["texCoord"].toInt(0)) == 1 ? 1 : 0;
    made.offset = pair(moved["offset"], {0, 0});
    made.scale = pair(moved["scale"], {1, 1});
    made.rotation = number(moved["rotation"], 0, -1e6f, 1e6f);
    return made;
  };

  auto surface = std::make_shared<Surface>();
  const QJsonArray base = pbr["baseColorFactor"].toArray();
  surface->baseColor = QVector4D(color(pbr["baseColorFactor"], {1, 1, 1}),
                                 base.size() > 3 ? number(base[3], 1, 0, 1) : 1);
  surface->metallic = number(pbr["metallicFactor"], 1, 0, 1);
  surface->roughness = number(pbr["roughnessFactor"], 1, 0, 1);
  const float strength =
      number(extension(json, "KHR_materials_emissive_strength")["emissiveStrength"], 1, 0, 1e6f);
  surface->emissive = color(json["emissiveFactor"], {0, 0, 0}) * strength;
  surface->baseColorTexture = use(pbr["baseColorTexture"], Texture::Encoding::Srgb);
  surface->metallicRoughnessTexture =
      use(pbr["metallicRoughnessTexture"], Texture::Encoding::Linear);
  surface->normalTexture = use(json["normalTexture"], Texture::Encoding::Linear);
  surface->occlusionTexture = use(json["occlusionTexture"], Texture::Encoding::Linear);
  surface->emissiveTexture = use(json["emissiveTexture"], Texture::Encoding::Srgb);
  surface->normalScale = number(json["normalTexture"].toObject()["scale"], 1, -100, 100);
  surface->occlusionStrength = number(json["occlusionTexture"].toObject()["strength"], 1, 0, 1);
  surface->alpha = alphaOf(json["alphaMode"].toString());
  surface->alphaCutoff = number(json["alphaCutoff"], 0.5f, 0, 1e6f);
  surface->doubleSided = json["doubleSided"].toBool(false);
  surface->unlit = json["extensions"].toObject().contains("KHR_materials_unlit");
  return surface;
}

}  // namespace kuStandalone
