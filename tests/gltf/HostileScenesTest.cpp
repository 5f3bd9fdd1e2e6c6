#include <gtest/gtest.h>

#include "standalone/gltf/SceneFile.h"

using namespace kuStandalone;

namespace {

struct Row {
  const char* name;
  QByteArray bytes;
  const char* expected;
};

QByteArray gltf(const QByteArray& members) {
  return R"({"asset":{"version":"2.0"},)" + members + "}";
}

/** A file whose scene is node 0, with further members. */
QByteArray node(const QByteArray& members, const QByteArray& more = {}) {
  return gltf(R"("scenes":[{"nodes":[0]}],"nodes":[{)" + members + "}]" + more);
}

QByteArray chunk(const char* type, const QByteArray& data) {
  const auto length = quint32(data.size());
  return QByteArray(reinterpret_cast<const char*>(&length), 4) + QByteArray(type, 4) + data;
}

QByteArray glb(const QByteArray& chunks) {
  const quint32 numbers[] = {2, quint32(chunks.size() + 12)};
  return "glTF" + QByteArray(reinterpret_cast<const char*>(numbers), 8) + chunks;
}

QByteArray padded(QByteArray text) {
  while (text.size() % 4)
    text += ' ';
  return text;
}

void expectRefused(const Row& row, const SceneLoadResult& result) {
  EXPECT_EQ(result.status, SceneLoadResult::Status::Invalid) << row.name;
  EXPECT_EQ(result.error, "f: " + std::string(row.expected)) << row.name;
  EXPECT_EQ(result.scene, nullptr) << row.name;
}

void expectRefused(const std::vector<Row>& rows) {
  for (const Row& row : rows)
    expectRefused(row, loadSceneData(row.bytes, "f"));
}

TEST(HostileScenes, NestedAndCyclicFilesAreRefused) {
  const QByteArray brackets = gltf(R"("extras":)" + QByteArray(100'000, '['));
  QByteArray chain;
  for (int i = 1; i <= 102; ++i)
    chain += R"({"extras":{"switch":{"materials":[)" + QByteArray::number(i) + "]}}},";
  expectRefused({
      {"brackets", brackets, "byte 1035: is nested too deeply"},
      {"two materials in a circle",
       gltf(R"("materials":[{"extras":{"switch":{"materials":[1]}}},)"
            R"({"extras":{"switch":{"materials":[0]}}}])"),
       "materials[1]: contains itself or lies too deep"},
      {"materials too deep", gltf(R"("materials":[)" + chain + "{}]"),
       "materials[101]: contains itself or lies too deep"},
  });
}

TEST(HostileScenes, MembersThatAreThereTwiceAreRefused) {
  expectRefused({
      {"at the top", gltf(R"("nodes":[{}],"nodes":[])"),
       "byte 47: the member \"nodes\" is there twice"},
      {"far below", node(R"("extras":{"a":[{"b":{},"c":1,"b":2}]})"),
       "byte 94: the member \"b\" is there twice"},
      {"in another spelling", gltf(R"("nodes":[],"n\u006fdes":[])"),
       "byte 50: the member \"nodes\" is there twice"},
      {"in an object that is cut short", R"({"a":{},"a":)",
       "byte 11: the member \"a\" is there twice"},
  });
  EXPECT_EQ(
      loadSceneData(node(R"("extras":{"a":{"a":"a"},"b":["a","a",{"a":1},{"a":1}]})"), "f").error,
      "");
}

TEST(HostileScenes, WrongExtrasAreRefused) {
  expectRefused({
      {"switch as text", node(R"("extras":{"switch":"1"})"),
       "nodes[0].extras.switch: is no whole number in range"},
      {"switch in fractions", node(R"("extras":{"switch":0.5})"),
       "nodes[0].extras.switch: is no whole number in range"},
      {"transforms", node(R"("extras":{"transforms":{}})"),
       "nodes[0].extras.transforms: is no array"},
      {"transform below 0", node(R"("extras":{"transforms":[],"transform":-1})"),
       "nodes[0].extras.transform: is no whole number in range"},
      {"supposed below -1", node(R"("extras":{"transforms":[],"supposed":-2})"),
       "nodes[0].extras.supposed: is no whole number in range"},
      {"second root of sceneplates",
       gltf(R"("scenes":[{"nodes":[0,1]}],"nodes":[{"extras":{"sceneplates":true}},)"
            R"({"extras":{"sceneplates":true}}])"),
       "nodes[1].extras.sceneplates: is the second one"},
      {"switch material without materials", gltf(R"("materials":[{"extras":{"switch":{}}}])"),
       "materials[0].extras.switch.materials: is no array"},
      {"choice below 0",
       gltf(R"("materials":[{"extras":{"switch":{"materials":[],"choice":-1}}}])"),
       "materials[0].extras.switch.choice: is no whole number in range"},
      {"states as text", gltf(R"("materials":[{"extras":{"states":"Matte"}}])"),
       "materials[0].extras.states: is no array"},
      {"state below -1", gltf(R"("materials":[{"extras":{"states":[],"state":-2}}])"),
       "materials[0].extras.state: is no whole number in range"},
  });
}

TEST(HostileScenes, BrokenContainersAreRefused) {
  const QByteArray text = padded(gltf(R"("nodes":[])"));
  QByteArray version = glb(chunk("JSON", text));
  version[4] = 1;
  expectRefused({
      {"version", version, "header: is not of version 2"},
      {"magic alone", "glTF", "header: is cut short"},
      {"no chunk", glb({}), "chunk 0: is cut short"},
      {"binary first", glb(chunk("BIN\0", text)), "chunk 0: is of the wrong type"},
      {"length", glb(chunk("JSON", text)) + "    ", "header: the length is not that of the file"},
      {"second JSON", glb(chunk("JSON", text) + chunk("JSON", text)),
       "chunk 1: is of the wrong type"},
      {"absurd chunk length", glb(QByteArray("\xF0\xFF\xFF\xFFJSON", 8) + text),
       "chunk 0: is cut short"},
  });
}

}  // namespace
