#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <csignal>
#include <cstdlib>

#include "RenderTest.h"

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

class RenderOutputTest : public RenderTest {};

struct WrongValue {
  const char* name;
  QStringList arguments;
  const char* error;
};

class WrongPictureTest : public RenderTest, public ::testing::WithParamInterface<WrongValue> {};

TEST_P(WrongPictureTest, AnswersTwoAndWritesNothing) {
  for (const QStringList& command :
       {QStringList{"render", "room.gltf", "room.xml", "-o", "out"},
        QStringList{"select", "room.gltf", "room.xml", "Blue", "--picture", "out"}}) {
    const CliResult result = run(command + GetParam().arguments);
    EXPECT_EQ(result.code, 2);
    EXPECT_THAT(result.err, HasSubstr(GetParam().error));
    EXPECT_FALSE(exists("out"));
  }
}

const char* const sizeError = "--size: not of the form WxH, from 1x1 to 16384x16384: ";
const char* const samplesError = "--samples: not a number from 1 to 65536: ";

INSTANTIATE_TEST_SUITE_P(
    Of, WrongPictureTest,
    ::testing::Values(WrongValue{"NoWidth", {"--size", "0x16"}, sizeError},
                      WrongValue{"NoHeight", {"--size", "16x0"}, sizeError},
                      WrongValue{"NegativeWidth", {"--size=-16x16"}, sizeError},
                      WrongValue{"NegativeHeight", {"--size", "16x-16"}, sizeError},
                      WrongValue{"TooWide", {"--size", "16385x16"}, sizeError},
                      WrongValue{"TooHigh", {"--size", "16x16385"}, sizeError},
                      WrongValue{"Absurd", {"--size", "99999999999x16"}, sizeError},
                      WrongValue{"OneNumber", {"--size", "16"}, sizeError},
                      WrongValue{"ThreeNumbers", {"--size", "16x16x16"}, sizeError},
                      WrongValue{"Capital", {"--size", "16X16"}, sizeError},
                      WrongValue{"Words", {"--size", "wide"}, sizeError},
                      WrongValue{"Blanks", {"--size", "16 x 16"}, sizeError},
                      WrongValue{"Empty", {"--size", ""}, sizeError},
                      WrongValue{"NoSamples", {"--samples", "0"}, samplesError},
                      WrongValue{"NegativeSamples", {"--samples=-1"}, samplesError},
                      WrongValue{"TooManySamples", {"--samples", "65537"}, samplesError},
                      WrongValue{"HalfASample", {"--samples", "1.5"}, samplesError}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(RenderOutputTest, SizeOfASelectionNeedsAPicture) {
  const CliResult result = run({"select", "room.gltf", "room.xml", "Blue", "--size", "8x8"});
  EXPECT_EQ(result.code, 2);
  EXPECT_THAT(result.err, HasSubstr("--size requires --picture"));
}

TEST_F(RenderOutputTest, FolderIsRequired) {
  EXPECT_EQ(run({"render", "room.gltf", "room.xml"}).code, 2);
}

TEST_F(RenderOutputTest, LimitsAreSizesAndSamples) {
  const QStringList command{"render", "room.gltf", "room.xml", "--set", "Blue", "-o", "out"};
  EXPECT_EQ(run(command + QStringList{"--size", "16384x1", "--samples", "1"}).code, 0);
  EXPECT_EQ(picture("out/Blue.png").size(), QSize(16384, 1));
  EXPECT_EQ(run(command + QStringList{"--size", "1x1", "--samples", "65536"}).code, 0);
  EXPECT_EQ(picture("out/Blue.png").size(), QSize(1, 1));
}

TEST_F(RenderOutputTest, MakesFoldersThatAreMissing) {
  EXPECT_EQ(run({"render", "room.gltf", "room.xml", "--set", "Blue", "--size", "8x8", "-o",
                 "new/and/deep"})
                .code,
            0);
  EXPECT_TRUE(exists("new/and/deep/index.html"));
}

struct Unwritable {
  const char* name;
  QStringList arguments;
  const char* error;
};

class UnwritableTest : public RenderTest, public ::testing::WithParamInterface<Unwritable> {};

TEST_P(UnwritableTest, AnswersFiveBeforeAnyPictureIsMade) {
  const QStringList before = files();
  const CliResult result =
      run(QStringList{"render", "room.gltf", "room.xml"} + GetParam().arguments);
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(linesOf(result.err), SizeIs(1));
  EXPECT_THAT(result.err, StartsWith(std::string("kuvariants: cannot write: ") + GetParam().error));
  EXPECT_EQ(files(), before);
  EXPECT_EQ(outFiles(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Of, UnwritableTest,
    ::testing::Values(
        Unwritable{"FolderThatIsAFile", {"-o", "car.xml"}, "car.xml: "},
        Unwritable{"FolderBelowAFile", {"-o", "car.xml/out"}, "car.xml/out: Not a directory"},
        Unwritable{"SheetInAMissingFolder",
                   {"-o", "out", "--sheet", "none/all.png"},
                   "none/all.png: No such file or directory"},
        Unwritable{"PreviewsInAMissingFolder",
                   {"-o", "out", "--previews", "none/room.xml"},
                   "none/room.xml: No such file or directory"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(RenderOutputTest, PictureOfASelectionInAMissingFolder) {
  const QStringList before = files();
  const CliResult result = run({"select", "room.gltf", "room.xml", "Blue", "--picture",
                                "none/blue.png", "--trace", "trace.jsonl"});
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.err, "kuvariants: cannot write: none/blue.png: No such file or directory\n");
  EXPECT_EQ(files(), before);
}

TEST_F(RenderOutputTest, PictureThatDoesNotFitLeavesTheFormerOne) {
  ASSERT_EQ(render({"--set", "Blue"}).code, 0);
  const QImage former = picture("out/Blue.png");
  const CliResult result = runInShell("ulimit -f 1",
                                      {"render", "room.gltf", "room.xml", "--set", "Blue", "-o",
                                       "out", "--size", "200x200", "--samples", "1"},
                                      "");
  EXPECT_EQ(result.code, 5);
  EXPECT_THAT(result.err, EndsWith("out/Blue.png: File too large\n"));
  EXPECT_EQ(picture("out/Blue.png"), former);
  EXPECT_EQ(outFiles(), (QStringList{"Blue.png", "index.html"}));
}

TEST_F(RenderOutputTest, OneFileForTwoThingsIsRefused) {
  EXPECT_EQ(render({"--sheet", "room.gltf"}).code, 2);
  EXPECT_EQ(render({"--sheet", "all.png", "--trace", "all.png"}).code, 2);
  EXPECT_THAT(render({"--previews", "room.gltf"}).err,
              HasSubstr("is named for both SCENE and --previews"));
  EXPECT_EQ(run({"select", "room.gltf", "room.xml", "Blue", "--picture", "room.gltf"}).code, 2);
}

struct Replacement {
  const char* name;
  QStringList arguments;
  const char* error;
};

class ReplacementTest : public RenderTest, public ::testing::WithParamInterface<Replacement> {};

TEST_P(ReplacementTest, IsRefusedBeforeAnythingIsWritten) {
  const CliResult result = run(QStringList{"render"} + GetParam().arguments +
                               QStringList{"-o", "out", "--set", "Blue", "--size", "8x8"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.err, std::string("kuvariants: wrong command line: ") + GetParam().error + "\n");
  EXPECT_FALSE(exists("out"));
}

INSTANTIATE_TEST_SUITE_P(
    Of, ReplacementTest,
    ::testing::Values(Replacement{"PageBySheet",
                                  {"room.gltf", "room.xml", "--sheet", "out/index.html"},
                                  "out/index.html: is named for --sheet, and would be replaced"},
                      Replacement{"PictureByPreviews",
                                  {"room.gltf", "room.xml", "--previews", "out/Blue.png"},
                                  "out/Blue.png: is named for --previews, and would be replaced"},
                      Replacement{"PictureByTrace",
                                  {"room.gltf", "room.xml", "--trace", "./out/Blue.png"},
                                  "out/Blue.png: is named for --trace, and would be replaced"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(RenderOutputTest, PictureInThePlaceOfTheDocumentIsRefused) {
  write("Blue.png", roomDocument);
  const CliResult result =
      run({"render", "room.gltf", "Blue.png", "-o", ".", "--size", "8x8", "--samples", "1"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.err,
            "kuvariants: wrong command line: ./Blue.png: is named for DOCUMENT, and "
            "would be replaced\n");
  EXPECT_EQ(read("Blue.png"), roomDocument);
}

TEST_F(RenderOutputTest, PictureInThePlaceOfATextureOfTheSceneIsRefused) {
  write("Blue.png", "a texture");
  write("textured.gltf",
        R"({"asset": {"version": "2.0"}, "scenes": [{}], "images": [{"uri": "Blue.png"}]})");
  const CliResult result =
      run({"render", "textured.gltf", "room.xml", "-o", ".", "--size", "8x8", "--samples", "1"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.err,
            "kuvariants: wrong command line: ./Blue.png: belongs to the scene, and "
            "would be replaced\n");
  EXPECT_EQ(read("Blue.png"), "a texture");
  EXPECT_FALSE(exists("Open.png"));
}

TEST_F(RenderOutputTest, FolderInThePlaceOfAPictureIsToldBeforeAnyPictureIsMade) {
  ASSERT_TRUE(QDir(folder.path()).mkpath("out/Blue.png"));
  const CliResult result = render();
  EXPECT_EQ(result.code, 5);
  EXPECT_EQ(result.err, "kuvariants: cannot write: out/Blue.png: Filename refers to a directory\n");
  EXPECT_EQ(outFiles(), QStringList());
}

TEST_F(RenderOutputTest, InterruptedLeavesWholeFilesOnly) {
  QProcess process;
  write("two.xml", R"(<Variants><VariantSet name="A"/><VariantSet name="B"/></Variants>)");
  start(process, {"render", "room.gltf", "two.xml", "-o", "out", "--size", "600x400", "--samples",
                  "1", "--previews", "shown.xml", "--sheet", "all.png"});
  QElapsedTimer waiting;
  waiting.start();
  while (!exists("out/A.png") && process.state() == QProcess::Running && waiting.elapsed() < 60000)
    process.waitForFinished(1);
  kill(static_cast<pid_t>(process.processId()), SIGINT);
  EXPECT_EQ(finish(process).code, 130);
  EXPECT_EQ(picture("out/A.png").size(), QSize(600, 400));
  EXPECT_EQ(outFiles(), QStringList{"A.png"});
  EXPECT_FALSE(exists("shown.xml") || exists("all.png"));
}

/** Runs with a terminal as standard error, and answers what shows there. */
class ProgressTest : public RenderTest {
 protected:
  std::string onTerminal(const QStringList& arguments) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    EXPECT_TRUE(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    const std::string name = ptsname(terminal);
    const int keptOpen = open(name.c_str(), O_RDWR | O_NOCTTY);
    const CliResult result = runInShell("", arguments, "2>" + QString::fromStdString(name));
    EXPECT_EQ(result.code, 0);
    char bytes[4096];
    const ssize_t count = ::read(terminal, bytes, sizeof bytes);
    close(keptOpen);
    close(terminal);
    return std::string(bytes, count > 0 ? static_cast<std::size_t>(count) : 0);
  }
};

TEST_F(ProgressTest, ShowsOnATerminalAndIsGoneAtTheEnd) {
  const QStringList small{"--size", "8x8", "--samples", "1"};
  const std::string bar = "[                        ]   0 %  ";
  const std::string rendered = onTerminal(
      QStringList{"render", "room.gltf", "room.xml", "-o", "out", "--set", "Blue"} + small);
  EXPECT_THAT(rendered, StartsWith("\r" + bar + "Blue\x1b[K"));
  EXPECT_THAT(rendered, EndsWith("\r\x1b[K"));
  EXPECT_THAT(
      onTerminal(QStringList{"select", "room.gltf", "room.xml", "Blue", "--picture", "blue.png"} +
                 small),
      StartsWith("\r" + bar));
}

TEST_F(ProgressTest, IsNotThereInAPipe) { EXPECT_EQ(render({"--set", "Blue"}).err, ""); }

}  // namespace
