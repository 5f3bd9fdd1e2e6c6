#include "CaptureTest.h"
#include "Terminal.h"

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

const std::string question = R"(Ambiguous node names detected

Some nodes have the same name and/or node path. In order to continue, the names of those nodes will be changed.

Rename? [y/N] )";

class CaptureTerminalTest : public CaptureTest {
 protected:
  TerminalResult captureTwins(const std::string& typed, const QStringList& more = {}) {
    return runOnTerminal(folder.path(),
                         QStringList{"capture", "twins.gltf", "--set", "A", "-o", "a.xml"} + more,
                         typed);
  }
};

TEST_F(CaptureTerminalTest, AskShowsTheDialogueAndYesRenames) {
  for (const char* yes : {"yes\n", "y\n", "Y\n", " YES \n"}) {
    const TerminalResult result = captureTwins(yes);
    EXPECT_EQ(result.code, 0) << result.screen;
    EXPECT_THAT(result.screen, StartsWith(question + yes));
    EXPECT_THAT(result.screen, HasSubstr("  Renamed Car/Roof/Closed -> Closed1\n"));
  }
  EXPECT_TRUE(exists("a.xml"));
}

TEST_F(CaptureTerminalTest, EveryOtherAnswerRefuses) {
  for (const char* no : {"no\n", "n\n", "\n", "yolo\n", "nay\n"}) {
    const TerminalResult result = captureTwins(no);
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.screen,
              question + no +
                  "kuvariants: not captured: A: nodes share a name: \"Closed\" (2 nodes); "
                  "--rename-duplicates yes renames all but the first of each\n");
  }
  EXPECT_FALSE(exists("a.xml"));
}

TEST_F(CaptureTerminalTest, TheEndOfInputRefusesAndEndsTheLine) {
  const TerminalResult result = captureTwins("\x04");
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.screen, HasSubstr("[y/N] \nkuvariants: not captured: A: "));
  EXPECT_FALSE(exists("a.xml"));
}

TEST_F(CaptureTerminalTest, AnInterruptedQuestionWritesNothing) {
  const TerminalResult result = captureTwins("\x03");
  EXPECT_EQ(result.code, 130);
  EXPECT_FALSE(exists("a.xml"));
}

TEST_F(CaptureTerminalTest, TheWarningOfTheDialogueIsPartOfTheQuestion) {
  capture({"red.gltf", "--set", "Red", "-o", "red.xml"});
  const TerminalResult result = runOnTerminal(
      folder.path(), {"capture", "twins.gltf", "red.xml", "--set", "A", "-o", "a.xml"}, "n\n");
  EXPECT_THAT(result.screen, HasSubstr("will be changed.\n \n"
                                       "Warning: Renaming might break existing variant sets!\n\n"
                                       "Rename? [y/N] n\n"));
}

TEST_F(CaptureTerminalTest, AnAnswerOnTheCommandLineIsNotAskedFor) {
  const TerminalResult no = captureTwins("", {"--rename-duplicates", "no"});
  EXPECT_EQ(no.code, 1);
  EXPECT_THAT(no.screen, StartsWith("kuvariants: not captured: A: "));
  const TerminalResult yes = captureTwins("", {"--rename-duplicates", "yes"});
  EXPECT_EQ(yes.code, 0);
  EXPECT_THAT(yes.screen, Not(HasSubstr("[y/N]")));
}

TEST_F(CaptureTerminalTest, TheProgressDialogueIsALineThatGoesAgain) {
  const TerminalResult result =
      runOnTerminal(folder.path(), {"capture", "red.gltf", "--set", "Red", "-o", "red.xml"}, "");
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, StartsWith("\rCapturing Variant Set ...\x1b[K\r\x1b[K"));
  EXPECT_THAT(result.screen, HasSubstr("Captured Red in group New Group 1\n"));
}

TEST_F(CaptureTerminalTest, WithoutATerminalThereIsNoProgressLine) {
  EXPECT_EQ(capture({"red.gltf", "--set", "Red", "-o", "red.xml"}).err, "");
}

}  // namespace
