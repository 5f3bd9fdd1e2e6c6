#include "CaptureTest.h"
#include "Terminal.h"

using ::testing::EndsWith;
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

TEST_F(CaptureTerminalTest, WhatIsToldMidwayStandsOnALineOfItsOwnAndTheProgressComesAgain) {
  capture({"red.gltf", "--set", "Red", "-o", "red.xml"});
  const TerminalResult result = runOnTerminal(
      folder.path(), {"capture", "blue.gltf", "red.xml", "--set", "Blue", "-o", "both.xml"}, "");
  EXPECT_EQ(result.code, 0);
  const std::string progress = "\rCapturing Variant Set ...\x1b[K";
  const std::string cleared = "\r\x1b[K";
  EXPECT_THAT(result.screen,
              StartsWith(progress + cleared + "kuvariants: Created new material 'Switch'.\n" +
                         progress + cleared + "Captured Blue in group New Group 1\n"));
}

TEST_F(CaptureTerminalTest, ACaptureThatIsInterruptedMidwayWritesNothingAndTakesItsLineAway) {
  QByteArray nodes, children;
  for (int number = 7; number < 20007; ++number) {
    nodes += ",{\"name\": \"Part" + QByteArray::number(number) + "\"}";
    children += ", " + QByteArray::number(number);
  }
  write("long.gltf", scene(0)
                         .replace("\"camera\": 0}", "\"camera\": 0}" + nodes)
                         .replace("[0, 5, 6]", "[0, 5, 6" + children + ']'));
  const TerminalResult result =
      runOnTerminal(folder.path(), {"capture", "long.gltf", "--set", "Long", "-o", "long.xml"},
                    {{"Capturing Variant Set ...", "\x03"}});
  EXPECT_EQ(result.code, 130);
  EXPECT_THAT(result.screen, StartsWith("\rCapturing Variant Set ...\x1b[K"));
  EXPECT_THAT(result.screen, EndsWith("\r\x1b[K"));
  EXPECT_FALSE(exists("long.xml"));
}

TEST_F(CaptureTerminalTest, WithoutATerminalThereIsNoProgressLine) {
  EXPECT_EQ(capture({"red.gltf", "--set", "Red", "-o", "red.xml"}).err, "");
}

}  // namespace
