#include "PictureTest.h"

#include <QBuffer>
#include <cmath>

#include "standalone/gltf/SceneFile.h"
#include "standalone/rendering/Environment.h"
#include "standalone/rendering/ToneMapping.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/ClippingSettings.h"

using namespace kuStandalone;

namespace {

int append(std::vector<QByteArray>& list, const QByteArray& members) {
  list.push_back("{" + members + "}");
  return int(list.size()) - 1;
}

QByteArray joined(const std::vector<QByteArray>& list) {
  QByteArray text;
  for (const QByteArray& one : list)
    text += (text.isEmpty() ? "" : ",") + one;
  return "[" + text + "]";
}

/** A member with a list, nothing for an empty one. */
QByteArray member(const char* name, const std::vector<QByteArray>& list) {
  return list.empty() ? QByteArray() : QByteArray(",\"") + name + "\":" + joined(list);
}

QByteArray numbers(std::initializer_list<float> list) {
  QByteArray text;
  for (const float number : list)
    text += (text.isEmpty() ? "" : ",") + QByteArray::number(double(number));
  return "[" + text + "]";
}

template <class Value>
QByteArray bytesOf(const std::vector<Value>& list) {
  return QByteArray(reinterpret_cast<const char*>(list.data()), int(list.size() * sizeof(Value)));
}

}  // namespace

PictureTest::PictureTest() { ClippingSettings::the() = ClippingSettings(); }

PictureTest::~PictureTest() { ClippingSettings::the() = ClippingSettings(); }

Shape PictureTest::quad(float left, float bottom, float right, float top, float z) {
  Shape shape;
  shape.positions = {{left, bottom, z}, {right, bottom, z}, {right, top, z}, {left, top, z}};
  shape.texcoords = {{0, 1}, {1, 1}, {1, 0}, {0, 0}};
  shape.indices = {0, 1, 2, 0, 2, 3};
  return shape;
}

int PictureTest::view(const QByteArray& bytes) {
  const int offset = _bytes.size();
  _bytes += bytes;
  while (_bytes.size() % 4 != 0)
    _bytes += '\0';
  return append(_views, R"("buffer":0,"byteOffset":)" + QByteArray::number(offset) +
                            R"(,"byteLength":)" + QByteArray::number(bytes.size()));
}

int PictureTest::accessor(const QByteArray& bytes, int count, int type, const char* kind) {
  return append(_accessors, R"("bufferView":)" + QByteArray::number(view(bytes)) +
                                R"(,"componentType":)" + QByteArray::number(type) + R"(,"count":)" +
                                QByteArray::number(count) + R"(,"type":")" + kind + "\"");
}

int PictureTest::mesh(const Shape& shape, int material) {
  QByteArray attributes;
  const auto add = [&](const char* name, const auto& list, const char* kind) {
    if (list.empty()) return;
    attributes += QByteArray(attributes.isEmpty() ? "\"" : ",\"") + name +
                  "\":" + QByteArray::number(accessor(bytesOf(list), int(list.size()), 5126, kind));
  };
  add("POSITION", shape.positions, "VEC3");
  add("NORMAL", shape.normals, "VEC3");
  add("TANGENT", shape.tangents, "VEC4");
  add("TEXCOORD_0", shape.texcoords, "VEC2");
  add("TEXCOORD_1", shape.secondTexcoords, "VEC2");
  add("COLOR_0", shape.colors, "VEC4");
  QByteArray json =
      R"({"attributes":{)" + attributes + R"(},"mode":)" + QByteArray::number(shape.mode);
  if (!shape.indices.empty())
    json +=
        R"(,"indices":)" + QByteArray::number(accessor(bytesOf(shape.indices),
                                                       int(shape.indices.size()), 5125, "SCALAR"));
  if (material >= 0) json += R"(,"material":)" + QByteArray::number(material);
  return append(_meshes, R"("primitives":[)" + json + "}]");
}

int PictureTest::material(const QByteArray& members) { return append(_materials, members); }

int PictureTest::unlit(const QVector4D& color, const QByteArray& more) {
  return material(R"("extensions":{"KHR_materials_unlit":{}},"pbrMetallicRoughness":)"
                  R"({"baseColorFactor":)" +
                  numbers({color.x(), color.y(), color.z(), color.w()}) + "}" +
                  (more.isEmpty() ? "" : ",") + more);
}

int PictureTest::image(const QByteArray& bytes, const char* type) {
  return append(_images, R"("bufferView":)" + QByteArray::number(view(bytes)) + R"(,"mimeType":")" +
                             type + "\"");
}

int PictureTest::textureOf(int image, const QByteArray& sampler) {
  const int with = append(_samplers, sampler.isEmpty() ? R"("magFilter":9728)" : sampler);
  return append(_textures, R"("source":)" + QByteArray::number(image) + R"(,"sampler":)" +
                               QByteArray::number(with));
}

int PictureTest::texture(const QImage& picture, const QByteArray& sampler) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  EXPECT_TRUE(picture.save(&file, "PNG"));
  return textureOf(image(file.data()), sampler);
}

int PictureTest::light(const QByteArray& members) { return append(_lights, members); }

int PictureTest::camera(const QByteArray& members) { return append(_cameras, members); }

int PictureTest::node(const QByteArray& members, const std::vector<int>& children) {
  QByteArray list;
  for (const int child : children) {
    list += (list.isEmpty() ? "" : ",") + QByteArray::number(child);
    _isChild[std::size_t(child)] = true;
  }
  if (!list.isEmpty()) list = R"("children":[)" + list + "]";
  _isChild.push_back(false);
  return append(_nodes, members + (members.isEmpty() || list.isEmpty() ? "" : ",") + list);
}

int PictureTest::shown(const char* name, int mesh, const QByteArray& more) {
  return node(QByteArray(R"("name":")") + name + R"(","mesh":)" + QByteArray::number(mesh) +
              (more.isEmpty() ? "" : ",") + more);
}

void PictureTest::lookStraight() {
  const int lens =
      camera(R"("type":"orthographic","orthographic":{"xmag":1,"ymag":1,"znear":0.01,"zfar":100})");
  node(R"("name":"Camera","translation":[0,0,5],"camera":)" + QByteArray::number(lens));
}

void PictureTest::load() {
  std::vector<QByteArray> top;
  for (std::size_t at = 0; at < _nodes.size(); ++at) {
    if (!_isChild[at]) top.push_back(QByteArray::number(int(at)));
  }
  QByteArray json = R"({"asset":{"version":"2.0"},"scenes":[{"nodes":)" + joined(top) + "}]";
  json += member("nodes", _nodes) + member("meshes", _meshes) + member("materials", _materials) +
          member("images", _images) + member("textures", _textures) +
          member("samplers", _samplers) + member("cameras", _cameras) +
          member("accessors", _accessors) + member("bufferViews", _views);
  if (!_lights.empty())
    json += R"(,"extensions":{"KHR_lights_punctual":{"lights":)" + joined(_lights) + "}}";
  if (!_bytes.isEmpty())
    json += R"(,"buffers":[{"byteLength":)" + QByteArray::number(_bytes.size()) +
            R"(,"uri":"data:application/octet-stream;base64,)" + _bytes.toBase64() + R"("}])";
  SceneLoadResult result = loadSceneData(json + "}", "scene");
  ASSERT_EQ(result.error, "");
  Scene::install(std::move(result.scene));
}

osg::NodePtr PictureTest::find(const char* name) {
  std::vector<osg::NodePtr> open{Scene::the().nodes.root};
  if (Scene::the().sceneplates.root) open.push_back(Scene::the().sceneplates.root);
  while (!open.empty()) {
    const osg::NodePtr node = open.back();
    open.pop_back();
    const SceneNode& at = SceneNode::of(node);
    if (at.name() == name) return node;
    open.insert(open.end(), at.children().begin(), at.children().end());
  }
  return {};
}

QImage PictureTest::picture(int width, int height, int samples) {
  PictureSettings settings;
  settings.width = width;
  settings.height = height;
  settings.samples = samples;
  settings.threads = 1;
  return renderer.render(Scene::the(), settings);
}

std::string PictureTest::text(const QImage& picture, const std::map<char, QVector3D>& letters) {
  std::string text;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      char found = isBackdrop(picture, x, y) ? '.' : '?';
      for (const auto& letter : letters) {
        if (isNear(picture.pixel(x, y), asShown(letter.second))) found = letter.first;
      }
      text += found;
    }
    text += '\n';
  }
  return text;
}

QRgb PictureTest::asShown(const QVector3D& linear) {
  const QVector3D color = toneMapped(linear);
  return qRgb(srgbByte(color.x()), srgbByte(color.y()), srgbByte(color.z()));
}

double PictureTest::level(QRgb pixel) {
  const double encoded = qGreen(pixel) / 255.0;
  const double shown =
      encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
  return shown + 0.04;
}

bool PictureTest::isBackdrop(const QImage& picture, int x, int y) {
  const QVector3D top = Environment::backdrop(float(y) / float(picture.height()));
  const QVector3D bottom = Environment::backdrop(float(y + 1) / float(picture.height()));
  const QRgb pixel = picture.pixel(x, y);
  const auto between = [](int value, float a, float b) {
    return value <= srgbByte(a) + 1 && value >= srgbByte(b) - 1;
  };
  return between(qRed(pixel), top.x(), bottom.x()) && between(qGreen(pixel), top.y(), bottom.y()) &&
         between(qBlue(pixel), top.z(), bottom.z());
}

bool PictureTest::isNear(QRgb a, QRgb b, int tolerance) {
  return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
         std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}
