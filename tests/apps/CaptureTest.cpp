#include "CaptureTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr const char* sceneText = R"({
  "asset": {"version": "2.0"},
  "extensionsUsed": ["KHR_node_visibility"],
  "scenes": [{"nodes": [0, 5, 6], "extras": {"activeCamera": "Front"}}],
  "nodes": [
    {"name": "Car", "children": [1, 2]},
    {"name": "Body", "extras": {"geometry": {"material": %1}}},
    {"name": "Roof", "children": [3, 4], "extras": {"switch": 0}},
    {"name": "Closed"},
    {"name": "Open"},
    {"name": "Jack", "extensions": {"KHR_node_visibility": {"visible": false}}},
    {"name": "Front", "camera": 0}
  ],
  "cameras": [{"type": "perspective", "perspective": {"yfov": 0.8, "znear": 0.01}}],
  "materials": [{"name": "Red"}, {"name": "Blue"}, {"name": "Green"},
    {"name": "Paint", "extras": {"switch": {"materials": [0, 1], "choice": 0}}}]
})";

QJsonObject findBody(const QJsonObject& node) {
  if (node["name"].toString() == "Body") return node;
  for (const QJsonValue& child : node["children"].toArray()) {
    const QJsonObject found = findBody(child.toObject());
    if (!found.isEmpty()) return found;
  }
  return {};
}

QString stateOf(const QJsonArray& materials, const QString& name) {
  for (const QJsonValue& material : materials) {
    if (material["name"].toString() == name) return material["state"].toString();
  }
  return {};
}

}  // namespace

CaptureTest::CaptureTest() {
  write("red.gltf", scene(0));
  write("blue.gltf", scene(1));
  write("twins.gltf", scene(0).replace("Open", "Closed"));
}

QByteArray CaptureTest::scene(int material) { return QString(sceneText).arg(material).toUtf8(); }

void CaptureTest::capturePaints() {
  const CliResult red = capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  ASSERT_EQ(red.code, 0) << red.err;
  const CliResult blue = capture({"blue.gltf", "paints.xml", "--set", "Blue", "-o", "paints.xml"});
  ASSERT_EQ(blue.code, 0) << blue.err;
}

std::string CaptureTest::bodyOf(const QString& sceneFile) {
  const CliResult result = run({"scene", sceneFile, "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out)).object();
  const QString material = findBody(json["scene"].toObject())["material"].toString();
  const QString state = stateOf(json["materials"].toArray(), material);
  return (state.isEmpty() ? material : material + " = " + state).toStdString();
}
