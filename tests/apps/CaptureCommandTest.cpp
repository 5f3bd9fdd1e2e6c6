#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "CaptureTest.h"

using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

/** "SET: ROOF" for each capture that the JSON tells. */
std::vector<std::string> roofs(const CliResult& result) {
  std::vector<std::string> lines;
  const QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out));
  for (const QJsonValue& one : json["captures"].toArray())
    lines.push_back((one["set"].toString() + ": " +
                     one["states"]["node"].toArray().first().toArray().at(1).toString())
                        .toStdString());
  return lines;
}

std::vector<std::string> groups(const CliResult& result) {
  std::vector<std::string> names;
  const QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out));
  for (const QJsonValue& one : json["captures"].toArray())
    names.push_back(one["group"].toString().toStdString());
  return names;
}

using Lines = std::vector<std::string>;

// Several captures in one call.

TEST_F(CaptureTest, EachSetComesBehindItsOwnSelections) {
  const CliResult result =
      capture({"car.gltf", "car.xml", "--variant", "node:Roof=Open", "--set", "Up", "--variant",
               "node:Roof=Closed", "--set", "Down", "--set", "Same", "-o", "out.xml", "--json"});
  EXPECT_EQ(roofs(result), (Lines{"Up: Open", "Down: Closed", "Same: Closed"})) << result.err;
}

TEST_F(CaptureTest, AVariantThatTheFirstCaptureMadeServesTheNext) {
  const CliResult result = capture({"red.gltf", "--set", "Down", "--variant", "node:Roof=Open",
                                    "--set", "Up", "-o", "out.xml", "--json"});
  EXPECT_EQ(roofs(result), (Lines{"Down: Closed", "Up: Open"})) << result.err;
}

TEST_F(CaptureTest, SetsAreSelectedBeforeTheSingleVariants) {
  const CliResult result =
      capture({"car.gltf", "car.xml", "--variant", "node:Roof=!Next", "--after", "Summer", "Winter",
               "--set", "Both", "-o", "out.xml", "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(roofs(result), (Lines{"Both: Open"}));
  EXPECT_THAT(result.out, HasSubstr("\"after\": [\"Summer\", \"Winter\"]"));
}

TEST_F(CaptureTest, ASetOfTheSameCallMayBeSelected) {
  const CliResult result =
      capture({"red.gltf", "--set", "Down", "--variant", "node:Roof=Open", "--set", "Up", "--after",
               "Down", "--set", "Again", "-o", "out.xml", "--json"});
  EXPECT_EQ(roofs(result), (Lines{"Down: Closed", "Up: Open", "Again: Closed"})) << result.err;
}

TEST_F(CaptureTest, SelectionsBehindTheOnlySetBelongToIt) {
  const CliResult result = capture({"car.gltf", "car.xml", "--set", "Up", "--variant",
                                    "node:Roof=Open", "-o", "out.xml", "--json"});
  EXPECT_EQ(roofs(result), (Lines{"Up: Open"})) << result.err;
}

TEST_F(CaptureTest, AfterSelectsWithoutTheViewpointWhereThatIsAsked) {
  const auto viewpointAfter = [&](const QStringList& more) {
    const CliResult captured =
        capture(QStringList{"car.gltf", "car.xml", "--after", "Summer", "--set", "A", "-o", "a.xml",
                            "--save-scene", "a.gltf"} +
                more);
    EXPECT_EQ(captured.code, 0) << captured.err;
    const CliResult selected =
        run({"select", "a.gltf", "a.xml", "--variant", "node:Roof=Open", "--json"});
    return QJsonDocument::fromJson(QByteArray::fromStdString(selected.out))["viewpoint"].toString();
  };
  EXPECT_EQ(viewpointAfter({}), "Rear");
  EXPECT_EQ(viewpointAfter({"--skip-viewpoint"}), "Front");
}

// Groups and names.

TEST_F(CaptureTest, OneGroupIsForAllSetsAndSeveralAreForOneEach) {
  const QStringList two{"red.gltf", "--set", "A", "--set", "B", "-o", "out.xml", "--json"};
  EXPECT_EQ(groups(capture(two)), (Lines{"New Group 1", "New Group 1"}));
  EXPECT_EQ(groups(capture(two + QStringList{"--group", ""})),
            (Lines{"New Group 1", "New Group 1"}));
  EXPECT_EQ(groups(capture(two + QStringList{"--group", "Paints"})), (Lines{"Paints", "Paints"}));
  EXPECT_EQ(groups(capture(two + QStringList{"--group", "X", "--group", "Y"})), (Lines{"X", "Y"}));
}

TEST_F(CaptureTest, ANameInUseGetsANumberAndThatIsTold) {
  capture({"red.gltf", "--set", "Red", "-o", "paints.xml"});
  const CliResult result = capture({"red.gltf", "paints.xml", "--set", "Red", "-o", "out.xml"});
  EXPECT_THAT(result.out, StartsWith("Captured Red1 in group New Group 1, since Red is in use\n"));
}

TEST_F(CaptureTest, OddNamesAreCapturedAndFoundAgain) {
  for (const char* name : {"a'b", "a\"b", "a\\b", "[Red]", "a, b", "a=b:c", " ", "a\nb", "Größe",
                           "-x", "%1", "</VariantSet>"}) {
    const QString set = QString("--set=") + name;
    const CliResult captured = capture({"red.gltf", set, "-o", "out.xml"});
    ASSERT_EQ(captured.code, 0) << name << captured.err;
    const CliResult selected = run({"select", "red.gltf", "out.xml", "--", name});
    EXPECT_EQ(selected.code, 0) << name << selected.err;
  }
}

TEST_F(CaptureTest, ASetNamedAsTheLibrarysOwnIsWarnedOf) {
  const CliResult result = capture({"red.gltf", "--set", "Temp", "-o", "out.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err,
            "kuvariants: warning: while a set is named \"Temp\", materials that sets remember are "
            "not put back when they are selected\n");
}

TEST_F(CaptureTest, HelpShowsThatASetIsOneName) {
  const std::string help = capture({"--help"}).out;
  EXPECT_THAT(help, HasSubstr("  --set NAME              Capture into a new set"));
  EXPECT_THAT(help, HasSubstr("  --group NAME            Put the set"));
  EXPECT_THAT(help, HasSubstr("  --after NAME ...        Select these sets"));
}

// What goes wrong.

TEST_F(CaptureTest, AWrongCommandLineWritesNothing) {
  const struct {
    const char* rule;
    QStringList arguments;
    const char* reason;
  } rules[] = {
      {"no set", {"-o", "x.xml"}, "--set is required"},
      {"no document to write", {"--set", "A"}, "-o is required"},
      {"empty set", {"--set", "", "-o", "x.xml"}, "--set: the name of a set is empty"},
      {"empty file", {"--set", "A", "-o", ""}, "the name of a file is empty"},
      {"no answer", {"--set", "A", "-o", "x.xml", "--rename-duplicates", "perhaps"}, "perhaps"},
      {"groups and sets differ in number",
       {"--set", "A", "--group", "X", "--group", "Y", "-o", "x.xml"},
       "--group: is given once, or once for each --set"},
      {"selection behind the last of several",
       {"--set", "A", "--set", "B", "--after", "A", "-o", "x.xml"},
       "--after and --variant stand in front of the --set that they are for"},
      {"no state", {"--variant", "node:Roof", "--set", "A", "-o", "x.xml"}, "KIND:NAME=STATE"},
      {"no kind", {"--variant", "door:Roof=Open", "--set", "A", "-o", "x.xml"}, "KIND is node"},
      {"the scene replaced by a document", {"--set", "A", "-o", "red.gltf"}, "red.gltf"},
  };
  const QStringList before = files();
  for (const auto& rule : rules) {
    const CliResult result = capture(QStringList{"red.gltf"} + rule.arguments);
    EXPECT_EQ(result.code, 2) << rule.rule;
    EXPECT_THAT(result.err, HasSubstr(rule.reason)) << rule.rule;
    EXPECT_EQ(result.out, "") << rule.rule;
  }
  EXPECT_EQ(files(), before);
}

TEST_F(CaptureTest, AnUnknownNameWritesNothingAlsoBehindACaptureThatWasDone) {
  const struct {
    QStringList selection;
    const char* line;
  } rules[] = {
      {{"--after", "Sumer"}, "unknown set: Sumer: there is none of that name; did you mean"},
      {{"--after", ""}, "unknown set: : there is none of that name"},
      {{"--variant", "node:Rof=Open"}, "unknown variant: node:Rof: "},
      {{"--variant", "node:Roof=Opn"}, "unknown state: node:Roof=Opn: "},
  };
  const QStringList before = files();
  for (const auto& rule : rules) {
    const CliResult result = capture(
        QStringList{"car.gltf", "car.xml", "--set", "First"} + rule.selection +
        QStringList{"--set", "Second", "-o", "out.xml", "--save-scene", "out.glb", "--trace", "t"});
    EXPECT_EQ(result.code, 4) << rule.line;
    EXPECT_THAT(result.err, HasSubstr(rule.line));
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(files(), before);
}

TEST_F(CaptureTest, ADocumentThatIsNotThereWritesNothing) {
  const CliResult result =
      capture({"red.gltf", "missing.xml", "--set", "Red", "-o", "missing.xml"});
  EXPECT_EQ(result.code, 3);
  EXPECT_THAT(result.err, HasSubstr("cannot read document: missing.xml"));
  EXPECT_FALSE(exists("missing.xml"));
}

TEST_F(CaptureTest, ADocumentThatCannotBeWrittenLeavesTheSceneUnwritten) {
  const CliResult result = capture(
      {"red.gltf", "--set", "Red", "-o", "missing/paints.xml", "--save-scene", "paints.glb"});
  EXPECT_EQ(result.code, 5);
  EXPECT_FALSE(exists("paints.glb"));
}

TEST_F(CaptureTest, WithoutATerminalARenamingIsRefusedAndTheWayOutIsTold) {
  const QByteArray former = "as it was";
  for (const char* file : {"out.xml", "out.glb", "trace"})
    write(file, former);
  for (const QStringList& answer : {QStringList{}, QStringList{"--rename-duplicates", "ask"},
                                    QStringList{"--rename-duplicates", "no"}}) {
    const CliResult result = capture(QStringList{"twins.gltf", "--set", "A", "-o", "out.xml",
                                                 "--save-scene", "out.glb", "--trace", "trace"} +
                                     answer);
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "kuvariants: not captured: A: nodes share a name: \"Closed\" (2 nodes); "
              "--rename-duplicates yes renames all but the first of each\n");
  }
  for (const char* file : {"out.xml", "out.glb", "trace"})
    EXPECT_EQ(read(file), former.toStdString());
}

}  // namespace
