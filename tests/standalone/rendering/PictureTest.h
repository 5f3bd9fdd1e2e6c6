#pragma once

#include <QImage>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>
#include <map>
#include <vector>

#include "standalone/rendering/Renderer.h"
#include "support/SceneTest.h"

/** What a primitive of a test's scene consists of; lists that are empty are left out. */
struct Shape {
  std::vector<QVector3D> positions, normals;
  std::vector<QVector4D> tangents, colors;
  std::vector<QVector2D> texcoords, secondTexcoords;
  std::vector<std::uint32_t> indices;
  int mode = 4;
};

/**
 * Fixture of tests that look at pictures. The scene is put together as the text of a glTF file,
 * piece by piece; each piece answers its index. Clipping is off at first.
 */
class PictureTest : public SceneTest {
 protected:
  PictureTest();
  ~PictureTest() override;

  /** A rectangle that faces +z, its texture coordinates (0, 0) at the top left. */
  static Shape quad(float left, float bottom, float right, float top, float z = 0);

  int mesh(const Shape& shape, int material = -1);
  /** @param members of the JSON object, as in all that follows. */
  int material(const QByteArray& members);
  /** Shows that linear colour whatever the light; @p more further members. */
  int unlit(const QVector4D& color, const QByteArray& more = {});
  int unlit(float r, float g, float b) { return unlit({r, g, b, 1}); }
  /** A texture of that picture. @param sampler its members; nearest pixel if empty. */
  int texture(const QImage& image, const QByteArray& sampler = {});
  /** An image of those bytes, in a buffer view. */
  int image(const QByteArray& bytes, const char* type = "image/png");
  int textureOf(int image, const QByteArray& sampler = {});
  int light(const QByteArray& members);
  int camera(const QByteArray& members);
  int node(const QByteArray& members, const std::vector<int>& children = {});
  /** A node of that name with a mesh. */
  int shown(const char* name, int mesh, const QByteArray& more = {});
  /** A camera at (0, 0, 5) that sees -1 to 1 in both directions without perspective. */
  void lookStraight();

  /** Makes the pieces the present scene; a file that is refused fails the test. */
  void load();
  static osg::NodePtr find(const char* name);

  /** A picture of the present scene. */
  QImage picture(int width, int height, int samples = 1);
  QImage picture(int side) { return picture(side, side); }

  /**
   * A picture as text, a line for each row: the letter of each pixel's colour, '.' for the
   * backdrop, '?' for what is neither.
   */
  static std::string text(const QImage& picture, const std::map<char, QVector3D>& letters);
  /** A linear colour as a picture shows it. */
  static QRgb asShown(const QVector3D& linear);
  /** The linear level of a grey pixel before the tone mapping; right from 0.08 to 0.75. */
  static double level(QRgb pixel);
  static bool isBackdrop(const QImage& picture, int x, int y);
  static bool isNear(QRgb a, QRgb b, int tolerance = 1);

  kuStandalone::Renderer renderer;

 private:
  int accessor(const QByteArray& bytes, int count, int type, const char* kind);
  int view(const QByteArray& bytes);

  QByteArray _bytes;
  std::vector<QByteArray> _views, _accessors, _meshes, _materials, _images, _textures, _samplers,
      _lights, _cameras, _nodes;
  std::vector<bool> _isChild;
};
