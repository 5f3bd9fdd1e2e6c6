#include "RunTest.h"
#include "Terminal.h"

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class RunPromptTest : public RunTest {
 protected:
  TerminalResult prompt(const std::vector<Typing>& typings, const QStringList& options = {}) {
    return runOnTerminal(folder.path(), options + QStringList{"run", "car.gltf", "car.xml"},
                         typings);
  }
};

const std::string endOfInput = "\x04";
const std::string ctrlC = "\x03";

TEST_F(RunPromptTest, OpensOnATerminalAndEndsWithTheInput) {
  const TerminalResult result = prompt({{">>> ", "variants.sets()\n"}, {">>> ", endOfInput}});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, AllOf(HasSubstr("kuvariants " KUVARIANTS_VERSION ", Python 3."),
                                   HasSubstr("help(variants) tells what there is"),
                                   HasSubstr("['Summer', 'Winter', 'Scripted']\n")));
}

TEST_F(RunPromptTest, CompletesNamesByTheTabulator) {
  const TerminalResult result = prompt({{">>> ", "print(variants.create_g\t'New'))\n"},
                                        {">>> ", "variants.groups()['New']\n"},
                                        {">>> ", endOfInput}});
  EXPECT_THAT(result.screen, AllOf(HasSubstr(">>> print(variants.create_group('New'))\nNone\n"),
                                   HasSubstr("\n[]\n")));
}

TEST_F(RunPromptTest, GoesOnBehindAnException) {
  const TerminalResult result = prompt(
      {{">>> ", "variants.remove_set('Sumer')\n"}, {">>> ", "6 * 7\n"}, {">>> ", endOfInput}});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, AllOf(HasSubstr("did you mean \"Summer\"?"), HasSubstr("\n42\n")));
}

TEST_F(RunPromptTest, GoesOnBehindAnInterrupt) {
  const TerminalResult result = prompt({{">>> ", "half a line"},
                                        {"half a line", ctrlC, 300},
                                        {">>> ", "while print('round') is None: pass\n\n"},
                                        {"round\r\nround", ctrlC},
                                        {">>> ", "6 * 7\n"},
                                        {">>> ", endOfInput}});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, AllOf(HasSubstr("KeyboardInterrupt"), HasSubstr("\n42\n")));
}

TEST_F(RunPromptTest, GoesOnWhereAnInterruptEndsTheScriptOfASet) {
  write("car.xml",
        "<Variants><VariantSet name=\"S\"><Script>print('round' * 2)\nwhile True: pass"
        "</Script></VariantSet></Variants>");
  const TerminalResult result = prompt({{">>> ", "selectVariantSet('S')\n"},
                                        {"roundround", ctrlC},
                                        {">>> ", "6 * 7\n"},
                                        {">>> ", endOfInput}},
                                       {"--allow-scripts"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, AllOf(HasSubstr("script of set \"S\" failed"), HasSubstr("\n42\n")));
}

TEST_F(RunPromptTest, GoesOnWhereAnInterruptEndsTheCommandsOfASet) {
  write("car.xml", "<Variants><VariantSet name=\"T\"/><VariantSet name=\"S\"><Script>" +
                       QByteArray("selectVariantSet('T')\n").repeated(99999) +
                       "</Script></VariantSet></Variants>");
  const TerminalResult result = prompt({{">>> ", "print('round' * 2); selectVariantSet('S')\n"},
                                        {"roundround", ctrlC, 300},
                                        {">>> ", "6 * 7\n"},
                                        {">>> ", endOfInput}});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, AllOf(HasSubstr("script of set \"S\" failed: KeyboardInterrupt"),
                                   HasSubstr("\n42\n")));
}

TEST_F(RunPromptTest, EndsWithTheCodeOfExit) {
  EXPECT_EQ(prompt({{">>> ", "import sys; sys.exit(5)\n"}}).code, 5);
  const TerminalResult text = prompt({{">>> ", "exit('good' + 'bye')\n"}});
  EXPECT_EQ(text.code, 1);
  EXPECT_THAT(text.screen, HasSubstr("\ngoodbye\n"));
}

TEST_F(RunPromptTest, OfAScriptOnATerminalIsItsOwn) {
  write("script.py", "print('Hello ' + input('Name? '))");
  const TerminalResult result =
      runOnTerminal(folder.path(), {"run", "car.gltf", "car.xml", "script.py"},
                    {Typing{"Name? ", "J\xc3\xbcrgen\n"}});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, HasSubstr("\nHello J\xc3\xbcrgen\n"));
}

}  // namespace
