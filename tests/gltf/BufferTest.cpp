#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "GltfText.h"
#include "standalone/gltf/GltfSource.h"

using namespace kuStandalone;

namespace {

const GltfSource& sourceOf(const SceneLoadResult& result) {
  return dynamic_cast<const GltfSource&>(*result.scene->source);
}

void write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray withBuffer(const QByteArray& uri, const QByteArray& length = "4") {
  return sceneText("", "",
                   R"(,"buffers":[{"byteLength":)" + length + R"(,"uri":")" + uri + R"("}])");
}

/** A folder "scene" with data.bin beside a file that is none of its business. */
class NamedFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(QDir(_folder.path()).mkpath("scene/below"));
    write(_folder.filePath("outside.bin"), "none");
    write(_folder.filePath("scene/data file.bin"), "data");
    write(_folder.filePath("scene/below/more.bin"), "more!");
  }

  SceneLoadResult load(const QByteArray& text, const SceneLimits& limits = {}) const {
    write(path(), text);
    SceneLoadResult result = loadScene(path().toStdString(), limits);
    const std::string prefix = path().toStdString() + ": ";
    if (result.error.compare(0, prefix.size(), prefix) == 0) result.error.erase(0, prefix.size());
    return result;
  }

  QString path() const { return _folder.filePath("scene/a.gltf"); }

  QTemporaryDir _folder;
};

TEST_F(NamedFiles, LieInTheScenesFolderOrBelowIt) {
  const auto result = load(withBuffer("data%20file.bin"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(sourceOf(result).buffers, std::vector<QByteArray>{"data"});
  EXPECT_EQ(sourceOf(load(withBuffer("below/more.bin"))).buffers, std::vector<QByteArray>{"more"});
  const auto image = load(sceneText("", "", R"(,"images":[{"uri":"below/more.bin"}])"));
  EXPECT_EQ(sourceOf(image).images, std::vector<QByteArray>{"more!"});
}

TEST_F(NamedFiles, ThatLeadOutOfTheFolderAreRefused) {
  ASSERT_TRUE(QFile::link(_folder.filePath("outside.bin"), _folder.filePath("scene/link.bin")));
  ASSERT_TRUE(QFile::link(_folder.path(), _folder.filePath("scene/folder")));
  const QByteArray absolute = _folder.filePath("scene/below/more.bin").toUtf8();
  for (const QByteArray& uri : {QByteArray("../outside.bin"), QByteArray("%2e%2e/outside.bin"),
                                QByteArray("below/../../outside.bin"), QByteArray("link.bin"),
                                QByteArray("folder/outside.bin"), absolute, QByteArray("a%00b")}) {
    const auto result = load(withBuffer(uri));
    EXPECT_EQ(result.status, SceneLoadResult::Status::Invalid) << uri.toStdString();
    EXPECT_EQ(result.error, "buffers[0].uri: leads out of the scene's folder") << uri.toStdString();
  }
  for (const char* uri : {"http://example.org/a.bin", "file:///etc/passwd"})
    EXPECT_EQ(load(withBuffer(uri)).error, "buffers[0].uri: is no relative path") << uri;
}

TEST_F(NamedFiles, ThatAreNotThereCannotBeRead) {
  for (const char* uri : {"none.bin", "below"}) {
    const auto result = load(withBuffer(uri));
    EXPECT_EQ(result.status, SceneLoadResult::Status::CannotRead) << uri;
    EXPECT_EQ(result.error, "buffers[0].uri: there is no file '" + std::string(uri) + "'");
  }
}

TEST_F(NamedFiles, CountForTheLimitTogether) {
  const QByteArray text =
      sceneText("", "", R"(,"images":[{"uri":"below/more.bin"},{"uri":"below/more.bin"}])");
  SceneLimits limits;
  limits.fileBytes = std::size_t(text.size()) + 11;
  EXPECT_EQ(load(text, limits).error, "");
  limits.fileBytes -= 1;
  EXPECT_EQ(load(text, limits).error, "images[1].uri: is too large");
}

TEST(Buffers, DataInTheFileIsDecodedAndCutToItsLength) {
  const auto result = loadText(withBuffer(dataUri("abcdef"), "5"));
  ASSERT_EQ(result.error, "");
  EXPECT_EQ(sourceOf(result).buffers, std::vector<QByteArray>{"abcde"});
}

TEST(Buffers, WrongBuffersAndImagesAreRefused) {
  const QByteArray buffer = bufferText("abcdefgh", {8});
  const std::vector<std::pair<QByteArray, std::string>> cases = {
      {withBuffer("a.bin"), "buffers[0].uri: names a file where only data is read"},
      {withBuffer("data:;base64,####"), "buffers[0].uri: is no base64 data"},
      {withBuffer("data:text/plain,abcd"), "buffers[0].uri: is no base64 data"},
      {withBuffer(dataUri("abc")), "buffers[0].byteLength: there are only 3 bytes"},
      {withBuffer(dataUri("abc"), "-1"), "buffers[0].byteLength: is no whole number in range"},
      {sceneText("", "", R"(,"buffers":[{"byteLength":4}])"), "buffers[0].uri: is missing"},
      {sceneText("", "", R"(,"buffers":[{"uri":")" + dataUri("abc") + R"("}])"),
       "buffers[0].byteLength: is missing"},
      {sceneText("", "", R"(,"bufferViews":[{"byteLength":4}])"),
       "bufferViews[0].buffer: is no index"},
      {sceneText("", "", bufferText("abcd", {5})), "bufferViews[0]: reaches beyond its buffer"},
      {sceneText("", "", bufferText("abcd", {3, 2})), "bufferViews[1]: reaches beyond its buffer"},
      {sceneText("", "", R"(,"images":[{}])"), "images[0]: has not one of 'uri' and 'bufferView'"},
      {sceneText("", "", R"(,"images":[{"bufferView":1}])" + buffer),
       "images[0].bufferView: there are 1 and no such one"},
  };
  for (const auto& one : cases)
    EXPECT_EQ(loadText(one.first).error, "f: " + one.second) << one.first.toStdString();
}

TEST(Buffers, WrongPrimitivesAreRefused) {
  struct Row {
    const char* primitive;
    const char* expected;
  };
  // Accessors: 0 three points, 1 two points, 2 indices 0 1 2, 3 indices 0 1 3, 4 floats.
  const Row rows[] = {
      {R"("attributes":{"POSITION":0},"indices":2)", ""},
      {R"("attributes":{"POSITION":0,"_OWN":4})", ""},
      {R"("attributes":{"POSITION":9})", ".attributes.POSITION: there are 5 and no such one"},
      {R"("attributes":{"POSITION":4})", ".attributes.POSITION: the accessor is of the wrong type"},
      {R"("attributes":{"POSITION":0,"NORMAL":1})",
       ".attributes.POSITION: has another count than the other attributes"},
      {R"("attributes":{"POSITION":0},"indices":3)", ".indices: names vertex 3 of 3"},
      {R"("attributes":{"POSITION":0},"indices":4)", ".indices: the accessor is of the wrong type"},
      {R"("attributes":[])", ".attributes: is no object"},
      {R"("mode":7)", ".mode: is no whole number in range"},
      {R"("material":0)", ".material: there are 0 and no such one"},
  };
  const QByteArray bytes =
      bytesOf<float>({0, 0, 0, 1, 0, 0, 0, 1, 0}) + bytesOf<quint8>({0, 1, 2, 0, 0, 1, 3, 0});
  for (const Row& row : rows) {
    const auto result = loadText(sceneText(
        "0", R"({"mesh":0})",
        R"(,"meshes":[{"primitives":[{)" + QByteArray(row.primitive) +
            R"(}]}],"accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"},)"
            R"({"bufferView":0,"componentType":5126,"count":2,"type":"VEC3"},)"
            R"({"bufferView":1,"componentType":5121,"count":3,"type":"SCALAR"},)"
            R"({"bufferView":2,"componentType":5121,"count":3,"type":"SCALAR"},)"
            R"({"bufferView":0,"componentType":5126,"count":3,"type":"SCALAR"}])" +
            bufferText(bytes, {36, 4, 4})));
    const std::string place = *row.expected ? "f: meshes[0].primitives[0]" : "";
    EXPECT_EQ(result.error, place + row.expected) << row.primitive;
  }
}

}  // namespace
