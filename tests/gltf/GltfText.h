#pragma once

#include <QByteArray>
#include <cstring>
#include <initializer_list>
#include <vector>

#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/SceneNode.h"

/** A file of version 2.0 with these further members. */
inline QByteArray gltfText(const QByteArray& members) {
  return R"({"asset":{"version":"2.0"},)" + members + "}";
}

/** A file whose scene has these top-level nodes. */
inline QByteArray sceneText(const QByteArray& top, const QByteArray& nodes,
                            const QByteArray& more = {}) {
  return gltfText(R"("scenes":[{"nodes":[)" + top + R"(]}],"nodes":[)" + nodes + "]" + more);
}

inline kuStandalone::SceneLoadResult loadText(const QByteArray& text) {
  return kuStandalone::loadSceneData(text, "f");
}

template <typename Number>
QByteArray bytesOf(std::initializer_list<Number> numbers) {
  const std::vector<Number> list(numbers);
  return QByteArray(reinterpret_cast<const char*>(list.data()), int(list.size() * sizeof(Number)));
}

inline QByteArray dataUri(const QByteArray& bytes) {
  return "data:application/octet-stream;base64," + bytes.toBase64();
}

/** Members "buffers" and "bufferViews": one buffer, of it one view for each length in bytes. */
inline QByteArray bufferText(const QByteArray& bytes, std::initializer_list<int> lengths) {
  QByteArray views;
  int offset = 0;
  for (const int length : lengths) {
    views += QByteArray(views.isEmpty() ? "" : ",") + R"({"buffer":0,"byteOffset":)" +
             QByteArray::number(offset) + R"(,"byteLength":)" + QByteArray::number(length) + "}";
    offset += length;
  }
  return R"(,"buffers":[{"byteLength":)" + QByteArray::number(bytes.size()) + R"(,"uri":")" +
         dataUri(bytes) + R"("}],"bufferViews":[)" + views + "]";
}

/** The node at the end of a path of child indices below the scene's root. */
inline osg::NodePtr nodeAt(const kuStandalone::SceneLoadResult& result,
                           std::initializer_list<unsigned> path) {
  osg::NodePtr node = result.scene->nodes.root;
  for (const unsigned index : path)
    node = node->getChild(index);
  return node;
}

inline const std::string& nameOf(const osg::NodePtr& node) {
  return kuStandalone::SceneNode::of(node).name();
}
