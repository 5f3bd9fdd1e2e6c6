#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "CliTest.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

class TraceTest : public CliTest {
 protected:
  std::vector<std::string> traceOf(const QStringList& arguments) {
    const CliResult result = run(arguments + QStringList{"--trace", "trace.jsonl"});
    EXPECT_EQ(result.code, 0) << result.err;
    return linesOf(read("trace.jsonl"));
  }
  std::vector<std::string> traceOfDocument(const QByteArray& content) {
    write("small.xml", content);
    return traceOf({"list", "car.gltf", "small.xml"});
  }
};

/** What the end of reading a document sends. */
const std::vector<std::string> afterReading = {
    R"({"message": "lightVariantChanged", "mode": 1, "attributes": {}})",
    R"({"message": "nodeVariantChanged", "mode": 1, "attributes": {}})",
    R"({"message": "materialVariantChanged", "mode": 1, "attributes": {}})",
    R"({"message": "overlayVariantChanged", "mode": 1, "attributes": {}})",
    R"({"message": "transformVariantChanged", "mode": 1, "attributes": {}})",
    R"({"message": "variantSetChanged", "mode": 1, "attributes": {}})",
    R"({"message": "variantGroupChanged", "mode": 1, "attributes": {}})"};

std::vector<std::string> withReading(const std::vector<std::string>& before,
                                     const std::vector<std::string>& behind) {
  std::vector<std::string> lines = before;
  lines.insert(lines.end(), afterReading.begin(), afterReading.end());
  lines.insert(lines.end(), behind.begin(), behind.end());
  return lines;
}

TEST_F(TraceTest, SelectionIsWrittenLineByLine) {
  EXPECT_THAT(
      traceOf({"select", "car.gltf", "car.xml", "Summer", "--variant", "material:Paint=Blue"}),
      ElementsAreArray(withReading(
          {},
          {R"({"message": "variantsSetSelected", "mode": 1, "attributes": {"variantSetName": "Summer"}})",
           R"({"message": "variantsNodesChanged", "mode": 1, "attributes": {"variantName": "Roof", "visible": ["Open"], "invisible": ["Closed"], "parent": "Roof", "path": "Car|Roof|"}})",
           R"({"message": "nodeVariantSelected", "mode": 1, "attributes": {"variant": "Roof"}})",
           R"({"message": "variantsLightsChanged", "mode": 1, "attributes": {"variantName": "Sun", "enabled": [], "disabled": ["Sun"], "parent": "", "path": ""}})",
           R"({"message": "lightVariantSelected", "mode": 1, "attributes": {"variant": "Sun"}})",
           R"({"message": "overlayVariantSelected", "mode": 1, "attributes": {"variant": "Title"}})",
           R"({"message": "animationStart", "mode": 1, "attributes": {"animation-name": "Wave", "instantaneous": false}})",
           R"({"message": "variantsSetSelected", "mode": 1, "attributes": {"variantSetName": ""}})",
           R"({"message": "variantSetSelected", "mode": 1, "attributes": {}})",
           R"({"message": "variantsMaterialChanged", "mode": 1, "attributes": {"variantName": "Paint", "materialName": "Blue", "materialBaseName": "Paint"}})",
           R"({"message": "materialVariantSelected", "mode": 1, "attributes": {"variant": "Paint"}})"})));
}

TEST_F(TraceTest, DefaultNamesTheSet) {
  EXPECT_THAT(
      traceOf({"select", "car.gltf", "car.xml", "Winter", "--default"}).back(),
      R"({"message": "variantSetSelected", "mode": 1, "attributes": {"variantSet": "Winter"}})");
}

TEST_F(TraceTest, ReplacedSetsAndGroupsAreNamed) {
  EXPECT_THAT(
      traceOfDocument("<Variants><VariantGroup name=\"G\"/><VariantSet name=\"S\"/>"
                      "<VariantGroup name=\"G\"/><VariantSet name=\"S\"/></Variants>"),
      ElementsAreArray(withReading(
          {R"({"message": "variantGroupRemoved", "mode": 1, "attributes": {"variant": "G"}})",
           R"({"message": "variantSetRemoved", "mode": 1, "attributes": {"variant": "S"}})"},
          {})));
}

TEST_F(TraceTest, AddedVariantsAreNamed) {
  EXPECT_THAT(
      traceOfDocument("<Variants><VariantSet name=\"S\"><OverlayRef ref=\"Deutsch\"/>"
                      "</VariantSet></Variants>"),
      Contains(
          R"({"message": "overlayVariantAdded", "mode": 1, "attributes": {"variant": "Deutsch"}})"));
}

TEST_F(TraceTest, NumberedMessageIsANumber) {
  EXPECT_THAT(
      traceOfDocument("<Variants><MaterialVariant name=\"M\" base=\"M Switch\"/></Variants>"),
      ElementsAreArray(withReading({R"({"number": 65536})"}, {})));
}

TEST_F(TraceTest, HostileNamesStayOnTheirLine) {
  write("odd.xml", "<Variants><VariantSet name=\"a&#10;&quot;\"/></Variants>");
  EXPECT_THAT(
      traceOf({"select", "car.gltf", "odd.xml", "a\n\""}),
      Contains(
          R"({"message": "variantsSetSelected", "mode": 1, "attributes": {"variantSetName": "a\n\""}})"));
}

TEST_F(TraceTest, SceneAloneSendsNothing) {
  EXPECT_THAT(traceOf({"scene", "car.gltf"}), IsEmpty());
}

TEST_F(TraceTest, FormerTraceIsReplaced) {
  write("trace.jsonl", "former\n");
  EXPECT_THAT(traceOfDocument("<Variants/>"), ElementsAreArray(afterReading));
}

TEST_F(TraceTest, PipeIsWrittenToAndStaysAPipe) {
  const QByteArray pipe = folder.filePath("pipe").toUtf8();
  ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
  const int reader = open(pipe.constData(), O_RDONLY | O_NONBLOCK);
  write("small.xml", "<Variants/>");
  EXPECT_EQ(run({"list", "car.gltf", "small.xml", "--trace", "pipe"}).code, 0);
  std::string text(4096, '\0');
  const ssize_t size = ::read(reader, text.data(), text.size());
  close(reader);
  ASSERT_GT(size, 0);
  EXPECT_THAT(linesOf(text.substr(0, static_cast<std::size_t>(size))),
              ElementsAreArray(afterReading));
  struct stat status {};
  ASSERT_EQ(stat(pipe.constData(), &status), 0);
  EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

}  // namespace
