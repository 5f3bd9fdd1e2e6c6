#include "CliTest.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

struct ErrorKind {
  const char* name;
  /** What the document holds beside a sound variant of a node and of a material. */
  const char* elements;
  /** The one error of the report. */
  const char* line;
  /** What the summary says about it, what it advises, and what it counts. */
  const char* finding;
  const char* advice;
  const char* counts;
};

constexpr const char* sound =
    R"(<NodeVariant name="Roof" base="Roof"><State name="Open"/></NodeVariant>
<MaterialVariant name="Paint" base="Paint"><State name="Red"/></MaterialVariant>)";

constexpr const char* fitNames = R"(  -> Correct the names in the scene or in the document;
     "kuvariants create" makes variants that fit the scene.
)";
constexpr const char* fitStates =
    R"(  -> Correct the states in the document, or add them to the variants;
     what the scene lacks too, "kuvariants optimize" removes from the sets.
)";
constexpr const char* fitDefault =
    "  -> Correct the default in the document, or add the state to the variant.\n";
constexpr const char* fitVariants =
    "  -> Correct the names in the document or remove the entries; a selection passes over them.\n";
constexpr const char* nameIt = "  -> Name the state in the document, or remove it.\n";

constexpr const char* fitBase =
    R"(  -> Correct the names in the scene or in the document, or remove the variants;
     "kuvariants optimize" removes their states from the sets.
)";
constexpr const char* fitKind =
    "  -> Correct the default in the document, or make the node a switch again.\n";
constexpr const char* fitMaterial =
    "  -> Make the materials switches in the scene, or remove the variants from the document.\n";

const ErrorKind errorKinds[] = {
    {"NodeVariantOfASet",
     R"(<VariantSet name="S"><NodeVariantRef ref="Rof" state="Open"/></VariantSet>)",
     "Error,VariantSet,S,Rof,,node variant not found",
     "Sets name node variants that do not exist:\n"
     "  S: Rof (did you mean Roof?)\n",
     fitVariants, "1 set, 1 node variant, 1 material variant"},
    {"NodeStateOfASet",
     R"(<VariantSet name="S"><NodeVariantRef ref="Roof" state="Opn"/></VariantSet>)",
     "Error,VariantSet,S,Roof,Opn,requested state not found in node variant",
     "Sets name states that their node variants do not have:\n"
     "  S: Roof = Opn (did you mean Open?)\n",
     fitStates, "1 set, 1 node variant, 1 material variant"},
    {"MaterialVariantOfASet",
     R"(<VariantSet name="S"><MaterialVariantRef ref="Pant" state="Red"/></VariantSet>)",
     "Error,VariantSet,S,Pant,,material variant not found",
     "Sets name material variants that do not exist:\n"
     "  S: Pant (did you mean Paint?)\n",
     fitVariants, "1 set, 1 node variant, 1 material variant"},
    {"MaterialStateOfASet",
     R"(<VariantSet name="S"><MaterialVariantRef ref="Paint" state="Rod"/></VariantSet>)",
     "Error,VariantSet,S,Paint,Rod,requested state not found in material variant",
     "Sets name states that their material variants do not have:\n"
     "  S: Paint = Rod (did you mean Red?)\n",
     fitStates, "1 set, 1 node variant, 1 material variant"},
    {"NodeOfAVariant", R"(<NodeVariant name="V" base="Dors"><State name="a"/></NodeVariant>)",
     "Error,NodeVariant,V,Dors,,switch-node not found",
     "Node variants stand for nodes that the scene does not have:\n"
     "  V, on Dors (did you mean Doors?)\n",
     fitBase, "0 sets, 2 node variants, 1 material variant"},
    {"DefaultOfASwitchThatIsNotListed",
     R"(<NodeVariant name="V" base="Roof"><Default ref="Opn"/><State name="Open"/></NodeVariant>)",
     "Error,NodeVariant,V,Roof,Opn,default node state not found in node variant",
     "Node variants have a default that is none of their states:\n"
     "  V, on Roof: Opn (did you mean Open?)\n",
     fitDefault, "0 sets, 2 node variants, 1 material variant"},
    {"DefaultThatIsNoChild",
     R"(<NodeVariant name="V" base="Roof"><Default ref="Opn"/><State name="Opn"/></NodeVariant>)",
     "Error,NodeVariant,V,Roof,Opn,default node state not found in switch node",
     "Node variants have a default that their switch in the scene does not have:\n"
     "  V, on Roof: Opn (did you mean Open?)\n",
     fitNames, "0 sets, 2 node variants, 1 material variant"},
    {"DefaultOfAnotherNode",
     R"(<NodeVariant name="V" base="Car"><Default ref="Enable"/><State name="!Enable"/></NodeVariant>)",
     "Error,NodeVariant,V,Car,,node is not a switch-node and has illegal default value",
     "Node variants have a default other than !Enable and !Disable, and their node is no switch:\n"
     "  V, on Car: Enable (did you mean !Enable?)\n",
     fitKind, "0 sets, 2 node variants, 1 material variant"},
    {"NodeStateWithoutAName", R"(<NodeVariant name="V" base="Roof"><State name=""/></NodeVariant>)",
     "Error,NodeVariant,V,Roof,,empty state in node variant",
     "Node variants have a state without a name:\n"
     "  V, on Roof\n",
     nameIt, "0 sets, 2 node variants, 1 material variant"},
    {"NodeState", R"(<NodeVariant name="V" base="Roof"><State name="Opn"/></NodeVariant>)",
     "Error,NodeVariant,V,Roof,Opn,node state not found in switch node",
     "Node variants have states that their node in the scene does not have:\n"
     "  V, on Roof: Opn (did you mean Open?)\n",
     fitNames, "0 sets, 2 node variants, 1 material variant"},
    {"MaterialWithoutStates",
     R"(<MaterialVariant name="V" base="Red"><State name="a"/></MaterialVariant>)",
     "Error,MaterialVariant,V,Red,,material is not a switch, substance or xrite-material",
     "Material variants stand for materials without states:\n"
     "  V, on Red\n",
     fitMaterial, "0 sets, 1 node variant, 2 material variants"},
    {"DefaultOfAMaterialThatIsNotListed",
     R"(<MaterialVariant name="V" base="Paint"><Default ref="Rod"/><State name="Red"/></MaterialVariant>)",
     "Error,MaterialVariant,V,Paint,Rod,default material state not found in material variant",
     "Material variants have a default that is none of their states:\n"
     "  V, on Paint: Rod (did you mean Red?)\n",
     fitDefault, "0 sets, 1 node variant, 2 material variants"},
    {"DefaultThatIsNoMaterialState",
     R"(<MaterialVariant name="V" base="Paint"><Default ref="Rod"/><State name="Rod"/></MaterialVariant>)",
     "Error,MaterialVariant,V,Paint,Rod,default material state not found in switch material",
     "Material variants have a default that their material in the scene does not have:\n"
     "  V, on Paint: Rod (did you mean Red?)\n",
     fitNames, "0 sets, 1 node variant, 2 material variants"},
    {"MaterialStateWithoutAName",
     R"(<MaterialVariant name="V" base="Paint"><State name=""/></MaterialVariant>)",
     "Error,MaterialVariant,V,Paint,,empty state in material variant",
     "Material variants have a state without a name:\n"
     "  V, on Paint\n",
     nameIt, "0 sets, 1 node variant, 2 material variants"},
    {"MaterialState",
     R"(<MaterialVariant name="V" base="Paint"><State name="Rod"/></MaterialVariant>)",
     "Error,MaterialVariant,V,Paint,Rod,material state not found in switch material",
     "Material variants have states that their material in the scene does not have:\n"
     "  V, on Paint: Rod (did you mean Red?)\n",
     fitNames, "0 sets, 1 node variant, 2 material variants"},
};

class VerifySummaryTest : public CliTest {
 protected:
  /** Verifies a document with these elements. */
  CliResult verify(const QByteArray& elements) {
    write("doc.xml", "<Variants>" + elements + "</Variants>");
    return run({"verify", "car.gltf", "doc.xml"});
  }
};

class VerifyErrorTest : public VerifySummaryTest,
                        public ::testing::WithParamInterface<ErrorKind> {};

std::vector<std::string> errorsOf(const std::string& report) {
  std::vector<std::string> errors;
  for (const std::string& line : linesOf(report)) {
    if (line.rfind("Error,", 0) == 0) errors.push_back(line);
  }
  return errors;
}

TEST_P(VerifyErrorTest, IsReportedAndExplained) {
  const ErrorKind& kind = GetParam();
  const CliResult result = verify(QByteArray(kind.elements) + sound);
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(errorsOf(result.out), ElementsAre(kind.line));
  EXPECT_EQ(result.err, std::string("\n") + kind.finding + kind.advice +
                            "\n1 error; checked: " + kind.counts + "\n");
}

INSTANTIATE_TEST_SUITE_P(Verify, VerifyErrorTest, ::testing::ValuesIn(errorKinds),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(VerifySummaryTest, GroupsErrorsByKindInTheOrderOfTheReport) {
  const CliResult result = verify(R"(
    <VariantSet name="A"><NodeVariantRef ref="Wheels" state="x"/></VariantSet>
    <VariantSet name="B"><NodeVariantRef ref="V" state="y"/>
      <NodeVariantRef ref="Rims" state="x"/></VariantSet>
    <NodeVariant name="V" base="Roof"><State name="Zzzzzz"/></NodeVariant>)");
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.err, std::string(R"(
Sets name node variants that do not exist:
  A: Wheels
  B: Rims
)") + fitVariants + R"(
Sets name states that their node variants do not have:
  B: V = y
)" + fitStates + R"(
Node variants have states that their node in the scene does not have:
  V, on Roof: Zzzzzz
)" + fitNames + R"(
4 errors; checked: 2 sets, 1 node variant, 0 material variants
)");
}

TEST_F(VerifySummaryTest, NamesFiveAndCountsTheOthers) {
  QByteArray states;
  for (int i = 1; i <= 17; ++i)
    states += "<State name=\"Unknown" + QByteArray::number(i) + "\"/>";
  const CliResult result =
      verify("<NodeVariant name=\"Roof\" base=\"Roof\">" + states + "</NodeVariant>");
  EXPECT_EQ(result.err, std::string(R"(
Node variants have states that their node in the scene does not have:
  Roof: Unknown1
  Roof: Unknown2
  Roof: Unknown3
  Roof: Unknown4
  Roof: Unknown5
  and 12 more
)") + fitNames + "\n17 errors; checked: 0 sets, 1 node variant, 0 material variants\n");
}

TEST_F(VerifySummaryTest, NamesAllFiveOfFive) {
  const CliResult result = verify(
      R"(<NodeVariant name="Roof" base="Roof"><State name="Unknown1"/><State name="Unknown2"/>
        <State name="Unknown3"/><State name="Unknown4"/><State name="Unknown5"/></NodeVariant>)");
  EXPECT_THAT(result.err, HasSubstr(std::string("  Roof: Unknown5\n") + fitNames));
}

TEST_F(VerifySummaryTest, StatesThatTheSceneObeysComeLastAndAskForNothing) {
  const CliResult result = verify(R"(
    <VariantSet name="Steps"><NodeVariantRef ref="Roof" state="!Next"/>
      <NodeVariantRef ref="Doors" state="Transform 1"/>
      <MaterialVariantRef ref="Paint" state="!Next"/></VariantSet>
    <NodeVariant name="Roof" base="Roof"><State name="!Toggle"/></NodeVariant>
    <NodeVariant name="Doors" base="Doors"><Default ref="Transform 0"/>
      <State name="Transform 0"/></NodeVariant>
    <NodeVariant name="Leaves" base="Doors"><State name="Transform 2"/></NodeVariant>
    <MaterialVariant name="Paint" base="Paint"><State name="Red"/></MaterialVariant>)");
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.err, std::string(R"(
Node variants have states that their node in the scene does not have:
  Leaves, on Doors: Transform 2
)") + fitNames + R"(
These states count as errors, but the scene obeys them:
  Steps: Roof = !Next
  Steps: Doors = Transform 1
  Steps: Paint = !Next
  Roof: !Toggle
  Doors: Transform 0
  -> Nothing needs to be done.

6 errors; checked: 1 set, 3 node variants, 1 material variant
)");
}

TEST_F(VerifySummaryTest, EscapesNamesThatTheReportHoldsAsTheyAre) {
  const CliResult result = verify(
      "<VariantSet name=\"A,B\"><NodeVariantRef ref=\"Dächer&#27;[2J\" state=\"x\"/>"
      "<NodeVariantRef ref=\"\" state=\"x\"/></VariantSet>");
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(linesOf(result.out),
              ElementsAre("Error,VariantSet,A,B,Dächer\x1b[2J,,node variant not found",
                          "Error,VariantSet,A,B,,,node variant not found"));
  EXPECT_EQ(result.err, std::string(R"(
Sets name node variants that do not exist:
  A,B: Dächer\u001b[2J
  A,B: (unnamed)
)") + fitVariants + "\n2 errors; checked: 1 set, 0 node variants, 0 material variants\n");
}

}  // namespace
