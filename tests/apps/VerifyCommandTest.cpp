#include "CliTest.h"
#include "FaultyDocument.h"

using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

constexpr const char* cleanDocument = R"(<Variants>
  <VariantSet name="Open"><NodeVariantRef ref="Roof" state="Open"/></VariantSet>
  <NodeVariant name="Roof" base="Roof"><State name="Open"/></NodeVariant>
  <MaterialVariant name="Paint" base="Paint"><State name="Red"/></MaterialVariant>
</Variants>)";

constexpr const char* cleanReport =
    "Info,VariantSet,Open,,,valid\n"
    "Info,NodeVariant,Roof,Roof,,valid\n"
    "Info,MaterialVariant,Paint,Paint,,valid\n";

constexpr const char* cleanSummary =
    "no errors; checked: 1 set, 1 node variant, 1 material variant\n";

class VerifyCommandTest : public CliTest {
 protected:
  VerifyCommandTest() {
    write("clean.xml", cleanDocument);
    write("faulty.xml", faultyDocument);
  }

  /** Verifies a document with these elements. */
  CliResult verify(const QByteArray& elements) {
    write("doc.xml", "<Variants>" + elements + "</Variants>");
    return run({"verify", "car.gltf", "doc.xml"});
  }
};

TEST_F(VerifyCommandTest, WithoutErrorsAnswersZeroAndOneLine) {
  const CliResult result = run({"verify", "car.gltf", "clean.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, cleanReport);
  EXPECT_EQ(result.err, cleanSummary);
}

TEST_F(VerifyCommandTest, OfNothingReportsNothing) {
  const CliResult result = verify("");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "no errors; checked: 0 sets, 0 node variants, 0 material variants\n");
}

TEST_F(VerifyCommandTest, AnErrorAnswersOneAndSaysWhatToDo) {
  const CliResult result = run({"verify", "car.gltf", "faulty.xml"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, faultyReport);
  EXPECT_EQ(result.err, R"(
Sets name node variants that do not exist:
  S: Roff (did you mean Roof?)
  -> Correct the names in the document or remove the entries; a selection passes over them.

1 error; checked: 1 set, 1 node variant, 0 material variants
)");
}

TEST_F(VerifyCommandTest, ReportStandsBeforeTheSummary) {
  const CliResult result = runInShell("exec 2>&1", {"verify", "car.gltf", "clean.xml"}, "");
  EXPECT_EQ(result.out, std::string(cleanReport) + cleanSummary);
}

TEST_F(VerifyCommandTest, JsonHoldsAllFindings) {
  const CliResult result = run({"verify", "car.gltf", "faulty.xml", "--json"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(normalised(result.out), normalised(R"({
    "findings": [
      {"severity": "Error", "type": "VariantSet", "name": "S", "context": "Roff", "state": "",
       "message": "node variant not found"},
      {"severity": "Info", "type": "NodeVariant", "name": "Roof", "context": "Roof", "state": "",
       "message": "valid"}
    ],
    "counts": {"errors": 1, "infos": 1}
  })"));
}

TEST_F(VerifyCommandTest, BesideJsonTheReportAndTheSummaryGoToStandardError) {
  const CliResult result = run({"verify", "car.gltf", "clean.xml", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, std::string(cleanReport) + cleanSummary);
}

TEST_F(VerifyCommandTest, JsonKeepsNamesOfAnyKind) {
  write("names.xml",
        "<Variants><VariantSet name=\"A,&quot;B&quot;\">"
        "<NodeVariantRef ref=\"Dächer&#10;&#27;\" state=\"x\"/></VariantSet></Variants>");
  const CliResult result = run({"verify", "car.gltf", "names.xml", "--json"});
  EXPECT_EQ(normalised(result.out), normalised(R"({"findings": [{"severity": "Error",
    "type": "VariantSet", "name": "A,\"B\"", "context": "Dächer\n\u001b", "state": "",
    "message": "node variant not found"}], "counts": {"errors": 1, "infos": 0}})"));
}

TEST_F(VerifyCommandTest, AMaterialThatReadingMakesCountsAsThere) {
  write("made.xml", R"(<Variants><MaterialVariant name="Trim" base="Trim"><State name="Red"/>
    </MaterialVariant></Variants>)");
  const CliResult result = run({"verify", "car.gltf", "made.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "Info,MaterialVariant,Trim,Trim,,valid\n");
}

TEST_F(VerifyCommandTest, RunsNoScript) {
  write("script.xml", R"(<Variants><VariantSet name="S"><Script>open("ran", "w")</Script>
    </VariantSet></Variants>)");
  const CliResult result = run({"verify", "car.gltf", "script.xml", "--allow-scripts"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "Info,VariantSet,S,,,valid\n");
  EXPECT_FALSE(exists("ran"));
}

TEST_F(VerifyCommandTest, TraceHasNoMessageButThoseOfReading) {
  EXPECT_EQ(run({"verify", "car.gltf", "car.xml", "--trace", "verify.jsonl"}).code, 1);
  EXPECT_EQ(run({"list", "car.gltf", "car.xml", "--trace", "list.jsonl"}).code, 0);
  EXPECT_EQ(read("verify.jsonl"), read("list.jsonl"));
  EXPECT_THAT(read("verify.jsonl"), StartsWith("{\"message\""));
}

TEST_F(VerifyCommandTest, NeedsADocument) {
  const CliResult result = run({"verify", "car.gltf"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("wrong command line: verify: DOCUMENT is required"));
}

}  // namespace
