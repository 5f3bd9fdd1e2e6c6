#pragma once

#include <QBuffer>
#include <QImage>

#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/Scene.h"

/** Makes the scene of a file's text the present one. */
inline void installScene(const QByteArray& text) {
  kuStandalone::SceneLoadResult result = kuStandalone::loadSceneData(text, "scene");
  if (result.scene) kuStandalone::Scene::install(std::move(result.scene));
}

/** A scene whose pictures are known to the pixel: a sceneplate covers the whole frame. */
inline void installPlate(const QImage& picture) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  picture.save(&file, "PNG");
  installScene(R"({"asset":{"version":"2.0"},"scenes":[{"nodes":[0]}],"nodes":[)"
               R"({"name":"Plates","children":[1],"extras":{"sceneplates":true}},)"
               R"({"name":"Plate","extras":{"sceneplate":{"image":0}}}],)"
               R"("images":[{"uri":"data:image/png;base64,)" +
               file.data().toBase64() + "\"}]}");
}

/** A scene with one triangle, "Roof", whose edges look different with every number of samples. */
inline void installTriangle() {
  const float corners[] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
  const QByteArray bytes(reinterpret_cast<const char*>(corners), sizeof corners);
  installScene(R"({"asset":{"version":"2.0"},"scenes":[{"nodes":[0]}],)"
               R"("nodes":[{"name":"Roof","mesh":0}],)"
               R"("meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],)"
               R"("accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3",)"
               R"("min":[0,0,0],"max":[1,1,0]}],)"
               R"("bufferViews":[{"buffer":0,"byteLength":36}],"buffers":[{"byteLength":36,)"
               R"("uri":"data:application/octet-stream;base64,)" +
               bytes.toBase64() + "\"}]}");
}

/** A picture of which every pixel tells its place. */
inline QImage pictureOfPlaces(int width, int height) {
  QImage picture(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      picture.setPixel(x, y, qRgb(x & 255, y & 255, (x >> 8) << 4 | y >> 8));
  }
  return picture;
}
