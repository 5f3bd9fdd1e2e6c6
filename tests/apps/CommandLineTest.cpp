#include "CliTest.h"

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

struct WrongLine {
  const char* name;
  QStringList arguments;
  const char* error;
};

class WrongCommandLineTest : public CliTest, public ::testing::WithParamInterface<WrongLine> {};

TEST_P(WrongCommandLineTest, AnswersTwoWithOneLine) {
  const CliResult result = run(GetParam().arguments);
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err,
            std::string("kuvariants: wrong command line: ") + GetParam().error + " (see --help)\n");
}

const QStringList select = {"select", "car.gltf", "car.xml"};

INSTANTIATE_TEST_SUITE_P(
    Lines, WrongCommandLineTest,
    ::testing::Values(
        WrongLine{"NoCommand", {}, "command line: A subcommand is required"},
        WrongLine{"UnknownCommand", {"paint"}, "command line: there is no command or option paint"},
        WrongLine{"UnknownOption",
                  {"scene", "car.gltf", "--colour"},
                  "scene: The following argument was not expected: --colour"},
        WrongLine{"NoScene", {"scene"}, "scene: SCENE is required"},
        WrongLine{"NoDocument", {"list", "car.gltf"}, "list: DOCUMENT is required"},
        WrongLine{"OneTooMany",
                  {"scene", "car.gltf", "car.xml"},
                  "scene: The following argument was not expected: car.xml"},
        WrongLine{"NothingToSelect", select, "select: a SET or --variant is required"},
        WrongLine{"DefaultWithoutSet",
                  select + QStringList{"--default", "--variant", "node:Roof=Open"},
                  "select: --default: needs a SET"},
        WrongLine{"VariantWithoutKind", select + QStringList{"--variant", "Roof=Open"},
                  "select: --variant: not of the form KIND:NAME=STATE: Roof=Open"},
        WrongLine{"VariantWithoutState", select + QStringList{"--variant", "node:Roof"},
                  "select: --variant: not of the form KIND:NAME=STATE: node:Roof"},
        WrongLine{"VariantOfUnknownKind", select + QStringList{"--variant", "roof:Roof=Open"},
                  "select: --variant: KIND is node, material, transform, light or overlay: "
                  "roof:Roof=Open"},
        WrongLine{"CreateWithoutOutput", {"create", "car.gltf"}, "create: -o is required"},
        WrongLine{"CreateIntoNoName",
                  {"create", "car.gltf", "-o", ""},
                  "create: the name of a file is empty"},
        WrongLine{"CreateWithDocument",
                  {"create", "car.gltf", "car.xml", "-o", "new.xml"},
                  "create: The following argument was not expected: car.xml"},
        WrongLine{"OptimizeWithoutOutput",
                  {"optimize", "car.gltf", "car.xml"},
                  "optimize: -o or --dry-run is required"},
        WrongLine{"OptimizeWithoutDocument",
                  {"optimize", "car.gltf", "-o", "new.xml"},
                  "optimize: DOCUMENT is required"},
        WrongLine{"TraceWithoutFile",
                  {"scene", "car.gltf", "--trace"},
                  "scene: --trace: 1 required FILE missing"},
        WrongLine{"EmptySceneName", {"scene", ""}, "scene: the name of a file is empty"},
        WrongLine{
            "EmptyDocumentName", {"list", "car.gltf", ""}, "list: the name of a file is empty"},
        WrongLine{"EmptySaveName", select + QStringList{"Summer", "--save-scene", ""},
                  "select: the name of a file is empty"}),
    [](const auto& test) { return test.param.name; });

class CommandLineTest : public CliTest {};

TEST_F(CommandLineTest, HelpNamesTheCommandsAndTheExitCodes) {
  const CliResult result = run({"--help"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  for (const char* word : {"scene", "list", "select", "create", "optimize", "render", "--json",
                           "--trace", "--allow-scripts", "130 interrupted"}) {
    EXPECT_THAT(result.out, HasSubstr(word));
  }
}

TEST_F(CommandLineTest, HelpOfEachCommandHasAnExample) {
  for (const char* command : {"scene", "list", "select", "create", "optimize", "render"}) {
    const CliResult result = run({command, "--help"});
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.out, HasSubstr(std::string("\n  kuvariants ") + command + " car.gltf"));
  }
}

TEST_F(CommandLineTest, HelpFitsATerminalOf80Columns) {
  for (const QStringList& arguments :
       {QStringList{"--help"}, QStringList{"scene", "--help"}, QStringList{"list", "--help"},
        QStringList{"select", "-h"}, QStringList{"create", "-h"}, QStringList{"optimize", "-h"},
        QStringList{"render", "--help"}}) {
    for (const std::string& line : linesOf(run(arguments).out))
      EXPECT_LE(line.size(), 80u) << line;
  }
}

struct Clash {
  const char* name;
  QStringList arguments;
  const char* error;
};

class ClashTest : public CliTest, public ::testing::WithParamInterface<Clash> {};

TEST_P(ClashTest, OneFileForTwoThingsIsRefusedAndStays) {
  const std::string scene = read("car.gltf"), document = read("car.xml");
  const QStringList before = files();
  const CliResult result = run(GetParam().arguments);
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, std::string("kuvariants: wrong command line: ") + GetParam().error + "\n");
  EXPECT_EQ(files(), before);
  EXPECT_EQ(read("car.gltf"), scene);
  EXPECT_EQ(read("car.xml"), document);
}

const QStringList selectSummer = select + QStringList{"Summer"};

INSTANTIATE_TEST_SUITE_P(
    Files, ClashTest,
    ::testing::Values(
        Clash{"DocumentOverScene",
              {"create", "car.gltf", "-o", "car.gltf"},
              "car.gltf: is named for both SCENE and -o"},
        Clash{"DocumentOverSceneByAnotherPath",
              {"create", "car.gltf", "-o", "./car.gltf"},
              "./car.gltf: is named for both SCENE and -o"},
        Clash{"DocumentAndTrace",
              {"create", "car.gltf", "-o", "new.xml", "--trace", "./new.xml"},
              "./new.xml: is named for both -o and --trace"},
        Clash{"SceneOverDocument", selectSummer + QStringList{"--save-scene", "car.xml"},
              "car.xml: is named for both DOCUMENT and --save-scene"},
        Clash{"TraceOverDocument", selectSummer + QStringList{"--trace", "car.xml"},
              "car.xml: is named for both DOCUMENT and --trace"},
        Clash{"TraceAndSavedScene",
              selectSummer + QStringList{"--save-scene", "new.gltf", "--trace", "new.gltf"},
              "new.gltf: is named for both --save-scene and --trace"}),
    [](const auto& test) { return test.param.name; });

TEST_F(CommandLineTest, VersionIsThatOfTheProject) {
  const CliResult result = run({"--version"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "kuvariants " KUVARIANTS_VERSION "\n");
}

TEST_F(CommandLineTest, CommonOptionsStandBeforeOrBehindTheCommand) {
  const CliResult before = run({"--json", "scene", "car.gltf"});
  const CliResult behind = run({"scene", "car.gltf", "--json"});
  EXPECT_EQ(before.code, 0);
  EXPECT_THAT(before.out, StartsWith("{\n"));
  EXPECT_EQ(before.out, behind.out);
}

/** A name that the library of the command line would take for something else. */
class OddSetNameTest : public CliTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(OddSetNameTest, IsTakenAsItStands) {
  const QString name = GetParam();
  write("odd.xml", ("<Variants><VariantSet name=\"" + name + "\"/></Variants>").toUtf8());
  const CliResult result = run({"select", "car.gltf", "odd.xml", "--json", "--", name});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("\"selected\": [\"" + name.toStdString() + "\"]"));
}

INSTANTIATE_TEST_SUITE_P(Names, OddSetNameTest,
                         ::testing::Values("[A,B]", "[]", "[A", "list", "select", "-x", "--json",
                                           "a=b", "node:a=b", "--", " "));

TEST_F(CommandLineTest, SetInBracketsNeedsNoDashes) {
  write("odd.xml", "<Variants><VariantSet name=\"[A,B]\"/></Variants>");
  EXPECT_EQ(run({"select", "car.gltf", "odd.xml", "[A,B]"}).code, 0);
}

TEST_F(CommandLineTest, SetMayBearTheNameOfACommand) {
  write("odd.xml", "<Variants><VariantSet name=\"list\"/></Variants>");
  EXPECT_EQ(run({"select", "car.gltf", "odd.xml", "list"}).code, 0);
}

TEST_F(CommandLineTest, EmptySetNameIsUnknown) {
  const CliResult result = run({"select", "car.gltf", "car.xml", ""});
  EXPECT_EQ(result.code, 4);
  EXPECT_THAT(linesOf(result.err), SizeIs(1));
}

TEST_F(CommandLineTest, ErrorShowsControlCharactersEscaped) {
  const CliResult result = run({"paint\n\x1b[2J"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.err,
            "kuvariants: wrong command line: command line: there is no command or option "
            "paint\\n\\u001b[2J (see --help)\n");
}

}  // namespace
