#pragma once

#include <QVector2D>
#include <QVector3D>
#include <QVector4D>
#include <map>
#include <memory>
#include <vector>

#include "host/osg/Material.h"
#include "standalone/rendering/Texture.h"

namespace kuStandalone {

/** A texture with the set of texture coordinates that leads to it. */
struct TextureUse {
  std::shared_ptr<const Texture> texture;
  /** 0 or 1: the set of the mesh's texture coordinates. */
  int set = 0;
  /** What is done to the coordinates first (KHR_texture_transform). */
  QVector2D offset{0, 0}, scale{1, 1};
  float rotation = 0;

  explicit operator bool() const { return texture != nullptr; }
};

/** How light meets a surface: glTF's metallic-roughness material. Colours are linear. */
struct Surface {
  enum class Alpha { Opaque, Mask, Blend };

  QVector4D baseColor{1, 1, 1, 1};
  float metallic = 1, roughness = 1;
  QVector3D emissive{0, 0, 0};
  TextureUse baseColorTexture, metallicRoughnessTexture, normalTexture, occlusionTexture,
      emissiveTexture;
  float normalScale = 1, occlusionStrength = 1;
  Alpha alpha = Alpha::Opaque;
  float alphaCutoff = 0.5f;
  bool doubleSided = false;
  /** Whether it shows its base colour alone, whatever the light (KHR_materials_unlit). */
  bool unlit = false;
};

/** The surfaces of a file's materials; each is read once, and so is each texture. */
class KUHOST_EXPORT Surfaces {
 public:
  /** @param source null for a scene made by a program: all its surfaces are the default one. */
  explicit Surfaces(std::shared_ptr<const GltfSource> source);

  /**
   * What a material looks like now: a switch looks like its present choice. Null for a switch that
   * shows none of its materials; the default surface for a null material and for one that is not in
   * the file.
   */
  std::shared_ptr<const Surface> of(const osg::MaterialPtr& material);

 private:
  using TextureKey = std::pair<int, Texture::Encoding>;

  std::shared_ptr<const Surface> read(int index);
  std::shared_ptr<const Texture> texture(int index, Texture::Encoding encoding);

  std::shared_ptr<const GltfSource> _source;
  std::shared_ptr<const Surface> _default;
  std::map<int, std::shared_ptr<const Surface>> _surfaces;
  std::map<TextureKey, std::shared_ptr<const Texture>> _textures;
};

}  // namespace kuStandalone
