#include "RenderTest.h"

#include <QDir>

namespace {

constexpr const char* room = R"({
  "asset": {"version": "2.0"},
  "scene": 0,
  "scenes": [{"nodes": [0, 1, 2, 3], "extras": {"activeCamera": "Front"}}],
  "nodes": [
    {"name": "Door", "extras": {"transform": 0, "transforms": [
      {"name": "Shut"}, {"name": "Wide", "translation": [4, 0, 0]}]}, "children": [4]},
    {"name": "Wall", "mesh": 1, "translation": [0, 0, -1], "scale": [2, 2, 1]},
    {"name": "Front", "camera": 0, "translation": [0, 0, 4]},
    {"name": "Rear", "camera": 0, "translation": [0, 0, -4], "rotation": [0, 1, 0, 0]},
    {"name": "Leaf", "mesh": 0}
  ],
  "meshes": [{"primitives": [{"attributes": {"POSITION": 0}, "material": 2}]},
    {"primitives": [{"attributes": {"POSITION": 0}, "material": 3}]}],
  "materials": [
    {"name": "Red", "pbrMetallicRoughness": {"baseColorFactor": [0.8, 0, 0, 1]}},
    {"name": "Blue", "pbrMetallicRoughness": {"baseColorFactor": [0, 0, 0.8, 1]}},
    {"name": "Paint", "extras": {"switch": {"materials": [0, 1], "choice": 0}}},
    {"name": "Grey"}
  ],
  "cameras": [{"type": "perspective", "perspective": {"yfov": 0.8, "znear": 0.01}}],
  "buffers": [{"byteLength": 72, "uri": "data:application/octet-stream;base64,AACAvwAAgL8AAAAAAACAPwAAgL8AAAAAAACAPwAAgD8AAAAAAACAvwAAgL8AAAAAAACAPwAAgD8AAAAAAACAvwAAgD8AAAAA"}],
  "bufferViews": [{"buffer": 0, "byteLength": 72}],
  "accessors": [{"bufferView": 0, "componentType": 5126, "count": 6, "type": "VEC3",
    "min": [-1, -1, 0], "max": [1, 1, 0]}]
})";

}  // namespace

const char* const roomDocument = R"(<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE variants>
<Variants>
  <VariantSet name="Scripted"><Script>print("printed by a script")</Script></VariantSet>
  <VariantGroup name="Looks &lt;b&gt;" comment="How it looks">
    <VariantSet name="Open" comment="Come in &amp; look"><Hotkey>Ctrl+1</Hotkey>
      <TransformRef ref="Door" state="Wide"/><ViewpointRef ref="Rear"/>
      <Analyzer clipState="1" clipPlanePositionX="9"/></VariantSet>
    <VariantSet name="Blue"><MaterialVariantRef ref="Paint" state="Blue"/></VariantSet>
  </VariantGroup>
  <VariantGroup name="Others"><VariantSet name="As it is"/></VariantGroup>
  <MaterialVariant name="Paint" base="Paint"><State name="Red"/><State name="Blue"/></MaterialVariant>
  <TransformVariant name="Door" base="Door"><State name="Shut"/><State name="Wide"/></TransformVariant>
</Variants>
)";

RenderTest::RenderTest() {
  write("room.gltf", room);
  write("room.xml", roomDocument);
}

CliResult RenderTest::render(const QStringList& more, const QString& document) {
  return run(QStringList{"render", "room.gltf", document, "-o", "out", "--size", "24x16",
                         "--samples", "2"} +
             more);
}

QImage RenderTest::picture(const QString& name) {
  QImage image;
  EXPECT_TRUE(image.load(folder.filePath(name))) << name.toStdString();
  return image.convertToFormat(QImage::Format_RGB32);
}

QStringList RenderTest::outFiles() const {
  return QDir(folder.filePath("out")).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}
