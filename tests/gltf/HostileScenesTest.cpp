#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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

/** A triangle: node, mesh, one primitive with these members. */
QByteArray primitive(const QByteArray& members, const QByteArray& more = {}) {
  return node(R"("mesh":0)", R"(,"meshes":[{"primitives":[{)" + members + "}]}]" + more);
}

constexpr const char* triangleBuffer =
    R"({"byteLength":36,"uri":"data:application/octet-stream;base64,)"
    R"(AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAA"})";

/** A triangle of which one accessor, one buffer view and the buffers are given. */
QByteArray triangle(const QByteArray& accessor,
                    const QByteArray& view = R"({"buffer":0,"byteLength":36})",
                    const QByteArray& buffer = triangleBuffer) {
  return primitive(R"("attributes":{"POSITION":0})", R"(,"accessors":[)" + accessor +
                                                         R"(],"bufferViews":[)" + view +
                                                         R"(],"buffers":[)" + buffer + "]");
}

constexpr const char* triangleAccessor =
    R"({"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"})";

QByteArray buffer(const QByteArray& text) {
  return triangle(triangleAccessor, R"({"buffer":0,"byteLength":36})", text);
}

QByteArray animation(const QByteArray& members) {
  return node(R"("name":"A")",
              R"(,"animations":[{)" + members +
                  R"(}],"accessors":[)"
                  R"({"bufferView":0,"componentType":5126,"count":2,"type":"SCALAR"},)"
                  R"({"bufferView":0,"componentType":5126,"count":2,"type":"VEC3"})"
                  R"(],"bufferViews":[{"buffer":0,"byteLength":36}],"buffers":[)" +
                  triangleBuffer + "]");
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

TEST(HostileScenes, TopLevelMembersOfWrongTypeAreRefused) {
  expectRefused({
      {"asset", R"({"asset":7})", "asset.version: is not \"2.0\""},
      {"version as number", R"({"asset":{"version":2.0}})", "asset.version: is not \"2.0\""},
      {"scene as text", gltf(R"("scene":"0","scenes":[{}])"), "scene: is no index"},
      {"scene below 0", gltf(R"("scene":-1,"scenes":[{}])"), "scene: there are 1 and no such one"},
      {"scenes", gltf(R"("scenes":{})"), "scenes: is no array"},
      {"nodes", gltf(R"("nodes":{})"), "nodes: is no array"},
      {"meshes", gltf(R"("meshes":"")"), "meshes: is no array"},
      {"materials", gltf(R"("materials":true)"), "materials: is no array"},
      {"cameras", gltf(R"("cameras":null)"), "cameras: is no array"},
      {"buffers", gltf(R"("buffers":1)"), "buffers: is no array"},
      {"accessors", gltf(R"("accessors":{})"), "accessors: is no array"},
      {"bufferViews", gltf(R"("bufferViews":{})"), "bufferViews: is no array"},
      {"animations", gltf(R"("animations":{})"), "animations: is no array"},
      {"images", gltf(R"("images":{})"), "images: is no array"},
      {"textures", gltf(R"("textures":{})"), "textures: is no array"},
      {"samplers", gltf(R"("samplers":7)"), "samplers: is no array"},
      {"extensions", gltf(R"("extensions":[])"), "extensions: is no object"},
      {"extensionsRequired", gltf(R"("extensionsRequired":{})"), "extensionsRequired: is no array"},
      {"required extension as number", gltf(R"("extensionsRequired":[7])"),
       "extensionsRequired: '' is not supported"},
      {"scene in scenes", gltf(R"("scenes":[[]])"), "scenes[0]: is no object"},
      {"nodes of a scene", gltf(R"("scenes":[{"nodes":0}])"), "scenes[0].nodes: is no array"},
      {"material in materials", gltf(R"("materials":[{},"Red"])"), "materials[1]: is no object"},
      {"accessor in accessors", gltf(R"("accessors":[null])"), "accessors[0]: is no object"},
  });
}

TEST(HostileScenes, IndicesThatLeadNowhereAreRefused) {
  expectRefused({
      {"child below 0", node(R"("children":[-1])"),
       "nodes[0].children[0]: there are 1 and no such one"},
      {"child as text", node(R"("children":["0"])"), "nodes[0].children[0]: is no index"},
      {"child far beyond", node(R"("children":[4294967296])"),
       "nodes[0].children[0]: there are 1 and no such one"},
      {"child in fractions", node(R"("children":[0.25])"), "nodes[0].children[0]: is no index"},
      {"node named twice", gltf(R"("scenes":[{"nodes":[0,0]}],"nodes":[{}])"),
       "scenes[0].nodes[1]: the node is named twice"},
      {"child at the top", gltf(R"("scenes":[{"nodes":[1]}],"nodes":[{"children":[1]},{}])"),
       "scenes[0].nodes[0]: the node lies below another"},
      {"mesh beyond 32 bits", node(R"("mesh":4e9)"), "nodes[0].mesh: there are 0 and no such one"},
      {"camera below 0", node(R"("camera":-1)", R"(,"cameras":[{}])"),
       "nodes[0].camera: there are 1 and no such one"},
      {"material of a primitive", primitive(R"("attributes":{},"material":1)"),
       "meshes[0].primitives[0].material: there are 0 and no such one"},
      {"indices of a primitive", primitive(R"("attributes":{},"indices":0)"),
       "meshes[0].primitives[0].indices: there are 0 and no such one"},
      {"attribute of a primitive", primitive(R"("attributes":{"POSITION":2})"),
       "meshes[0].primitives[0].attributes.POSITION: there are 0 and no such one"},
      {"buffer of a view", gltf(R"("bufferViews":[{"buffer":0,"byteLength":1}])"),
       "bufferViews[0].buffer: there are 0 and no such one"},
      {"view of an accessor", gltf(R"("accessors":[{"bufferView":3}])"),
       "accessors[0].bufferView: there are 0 and no such one"},
      {"view of an image", gltf(R"("images":[{"bufferView":3,"mimeType":"image/png"}])"),
       "images[0].bufferView: there are 0 and no such one"},
      {"source of a texture", gltf(R"("textures":[{"source":3}])"),
       "textures[0].source: there are 0 and no such one"},
      {"light", node(R"("extensions":{"KHR_lights_punctual":{"light":0}})"),
       "nodes[0].extensions.KHR_lights_punctual.light: there are 0 and no such one"},
      {"image of a sceneplate", node(R"("extras":{"sceneplate":{"image":0}})"),
       "nodes[0].extras.sceneplate.image: there are 0 and no such one"},
      {"material of a mapping",
       primitive(R"("attributes":{},"extensions":{"KHR_materials_variants":{"mappings":[)"
                 R"({"material":7,"variants":[0]}]}})"),
       "meshes[0].primitives[0].extensions.KHR_materials_variants.mappings[0].material: there are "
       "0 and no such one"},
      {"sampler of a channel",
       animation(R"("samplers":[],"channels":[{"sampler":0,"target":{"node":0,"path":"scale"}}])"),
       "animations[0].channels[0].sampler: there are 0 and no such one"},
      {"node of a channel",
       animation(R"("samplers":[{"input":0,"output":1}],)"
                 R"("channels":[{"sampler":0,"target":{"node":9,"path":"scale"}}])"),
       "animations[0].channels[0].target.node: there are 1 and no such one"},
      {"input of a sampler",
       animation(R"("samplers":[{"input":5,"output":1}],)"
                 R"("channels":[{"sampler":0,"target":{"node":0,"path":"scale"}}])"),
       "animations[0].samplers[0].input: there are 2 and no such one"},
  });
}

TEST(HostileScenes, DataBeyondItsBufferIsRefused) {
  expectRefused({
      {"view too long", triangle(triangleAccessor, R"({"buffer":0,"byteLength":37})"),
       "bufferViews[0]: reaches beyond its buffer"},
      {"view far away",
       triangle(triangleAccessor, R"({"buffer":0,"byteOffset":4e9,"byteLength":36})"),
       "bufferViews[0]: reaches beyond its buffer"},
      {"view of absurd length", triangle(triangleAccessor, R"({"buffer":0,"byteLength":4e9})"),
       "bufferViews[0]: reaches beyond its buffer"},
      {"offset below 0",
       triangle(triangleAccessor, R"({"buffer":0,"byteOffset":-1,"byteLength":36})"),
       "bufferViews[0].byteOffset: is no whole number in range"},
      {"accessor too long",
       triangle(R"({"bufferView":0,"componentType":5126,"count":4,"type":"VEC3"})"),
       "accessors[0]: reaches beyond its buffer view"},
      {"accessor of absurd count",
       triangle(R"({"bufferView":0,"componentType":5126,"count":4e9,"type":"VEC3"})"),
       "accessors[0]: reaches beyond its buffer view"},
      {"accessor of absurd count without data",
       triangle(R"({"componentType":5126,"count":4e9,"type":"VEC3"})"),
       "accessors[0].bufferView: is missing"},
      {"accessor far away",
       triangle(
           R"({"bufferView":0,"byteOffset":1e18,"componentType":5126,"count":1,"type":"VEC3"})"),
       "accessors[0].byteOffset: is no whole number in range"},
      {"component type",
       triangle(R"({"bufferView":0,"componentType":5124,"count":3,"type":"VEC3"})"),
       "accessors[0].componentType: is no component type"},
      {"type", triangle(R"({"bufferView":0,"componentType":5126,"count":3,"type":"VEC9"})"),
       "accessors[0].type: is not supported here"},
      {"buffer longer than its data",
       buffer(R"({"byteLength":400,"uri":"data:application/octet-stream;base64,AAAA"})"),
       "buffers[0].byteLength: there are only 3 bytes"},
      {"no data", buffer(R"({"byteLength":36})"), "buffers[0].uri: is missing"},
  });
}

TEST(HostileScenes, BrokenDataUrisAreRefused) {
  expectRefused({
      {"no comma", buffer(R"({"byteLength":3,"uri":"data:application/octet-stream;base64"})"),
       "buffers[0].uri: is no base64 data"},
      {"not base64",
       buffer(R"({"byteLength":3,"uri":"data:application/octet-stream;base64,A*=!"})"),
       "buffers[0].uri: is no base64 data"},
  });
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
      {"clone of itself", node(R"("name":"A","extras":{"cloneOf":"A"})"),
       "nodes[0].extras.cloneOf: there is no node 'A' to clone"},
      {"clone of its parent",
       gltf(R"("scenes":[{"nodes":[0]}],"nodes":[{"name":"A","children":[1]},)"
            R"({"extras":{"cloneOf":0}}])"),
       "nodes[1].extras.cloneOf: the clone lies below its own original"},
      {"clone of nobody", node(R"("extras":{"cloneOf":"B"})"),
       "nodes[0].extras.cloneOf: there is no node 'B' to clone"},
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
      {"material group below 0", node(R"("extras":{"materialGroup":{"material":-1}})"),
       "nodes[0].extras.materialGroup.material: there are 0 and no such one"},
      {"light flag as number",
       node(R"("extensions":{"KHR_lights_punctual":{"light":0}},"extras":{"on":1})",
            R"(,"extensions":{"KHR_lights_punctual":{"lights":[{}]}})"),
       "nodes[0].extras.on: is neither true nor false"},
      {"visibility as number", node(R"("extensions":{"KHR_node_visibility":{"visible":0}})"),
       "nodes[0].extensions.KHR_node_visibility.visible: is neither true nor false"},
      {"rectangle of three numbers", node(R"("extras":{"sceneplate":{"rect":[0,0,1]}})"),
       "nodes[0].extras.sceneplate.rect: is not 4 numbers"},
      {"two roles", node(R"("extras":{"switch":0,"transforms":[]})"),
       "nodes[0].extras: has both 'switch' and 'transforms'"},
      {"blocks", gltf(R"("scenes":[{"extras":{"animationBlocks":[]}}])"),
       "scene.extras.animationBlocks: is no object"},
      {"viewpoints", gltf(R"("scenes":[{"extras":{"viewpoints":{}}}])"),
       "scene.extras.viewpoints: is no array"},
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

TEST(HostileScenes, GlbWithDataCutAtAnyLengthIsRefused) {
  const QByteArray text =
      padded(triangle(triangleAccessor, R"({"buffer":0,"byteLength":36})", R"({"byteLength":36})"));
  const QByteArray whole = glb(chunk("JSON", text) + chunk("BIN\0", QByteArray(36, '\0')));
  ASSERT_EQ(loadSceneData(whole, "f").error, "");
  for (int length = 0; length < whole.size(); ++length) {
    const SceneLoadResult result = loadSceneData(whole.left(length), "f");
    EXPECT_EQ(result.status, SceneLoadResult::Status::Invalid) << length;
    EXPECT_NE(result.error, "") << length;
  }
}

/** A scene's folder inside another that has a file which is none of the scene's business. */
class HostileUris : public ::testing::Test {
 protected:
  HostileUris() {
    QDir(_outside.path()).mkdir("scene");
    write("secret.bin", QByteArray(36, '\0'));
    write("scene/inside.bin", QByteArray(36, '\0'));
    QFile::link(_outside.filePath("secret.bin"), _outside.filePath("scene/link.bin"));
  }

  /** The answer for a scene with a buffer of that name; the folder is cut from the error. */
  SceneLoadResult load(const QByteArray& uri) {
    write("scene/f", buffer(R"({"byteLength":36,"uri":")" + uri + "\"}"));
    SceneLoadResult result = loadScene(_outside.filePath("scene/f").toStdString());
    const std::string folder = _outside.filePath("scene/").toStdString();
    const std::size_t at = result.error.find(folder);
    if (at != std::string::npos) result.error.erase(at, folder.size());
    return result;
  }

  QTemporaryDir _outside;

 private:
  void write(const QString& name, const QByteArray& bytes) {
    QFile file(_outside.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
};

TEST_F(HostileUris, FileInTheFolderIsRead) {
  EXPECT_EQ(load("inside.bin").error, "");
  EXPECT_EQ(load("./%69nside.bin").error, "");
}

TEST_F(HostileUris, UrisThatNameNoFileOfTheFolderAreRefused) {
  const QByteArray absolute = _outside.filePath("secret.bin").toUtf8();
  const char* leadsOut = "leads out of the scene's folder";
  const std::vector<std::pair<QByteArray, std::string>> rows = {
      {"../secret.bin", leadsOut},
      {"%2e%2e/secret.bin", leadsOut},
      {"..%2fsecret.bin", leadsOut},
      {"./x/../../secret.bin", leadsOut},
      {absolute, leadsOut},
      {absolute.mid(0, 1) + absolute, leadsOut},
      {"link.bin", leadsOut},
      {"file://" + absolute, "is no relative path"},
      {"http://localhost/secret.bin", "is no relative path"},
      {"", leadsOut},
      {"inside.bin%00", leadsOut},
      {"missing.bin", "there is no file 'missing.bin'"},
      {".", "there is no file '.'"},
  };
  for (const auto& [uri, reason] : rows) {
    const SceneLoadResult result = load(uri);
    EXPECT_NE(result.status, SceneLoadResult::Status::Loaded) << uri.toStdString();
    EXPECT_EQ(result.error, "f: buffers[0].uri: " + reason) << uri.toStdString();
    EXPECT_EQ(result.scene, nullptr) << uri.toStdString();
  }
}

TEST_F(HostileUris, FilesNamedByBytesAloneAreRefused) {
  const QByteArray bytes = buffer(R"({"byteLength":36,"uri":"inside.bin"})");
  EXPECT_EQ(loadSceneData(bytes, "f").error,
            "f: buffers[0].uri: names a file where only data is read");
}

}  // namespace
