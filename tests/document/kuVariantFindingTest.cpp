// The checks without a report: the findings are what the lines say.

#include "document/kuVariantFinding.h"

#include <algorithm>

#include "VerifierTest.h"

using ::testing::ElementsAre;

namespace {

/** A finding in the form of a line, but with its fields apart. */
std::string textOf(const kuVariantFinding& finding) {
  const bool error = finding.severity == kuVariantFinding::Severity::Error;
  std::string text = error ? "Error" : "Info";
  for (const QString& field : {finding.type, finding.name, finding.context, finding.state})
    text += "|" + field.toStdString();
  return text + "|" + finding.message;
}

ReportLines findings(void (*check)(const kuFindingReceiver&)) {
  ReportLines texts;
  check([&](const kuVariantFinding& finding) { texts.push_back(textOf(finding)); });
  return texts;
}

class Findings : public VerifierTest {
 protected:
  Findings() {
    nodeVariant("Roof", "Open", {"Open", "Up, Down"});
    nodeVariant("Car", "!Enable", {"!Enable"}, "C");
    materialVariant("Paint", "Green", {"Green"});
    variantSet().addNodeVariant("V", "Closed");
    variantSet("Empty");
  }
};

TEST_F(Findings, AboutSetsAreAnErrorForEachStateAtFault) {
  EXPECT_THAT(findings(kuCheckVariantSets),
              ElementsAre("Error|VariantSet|S|V|Closed|requested state not found in node variant",
                          "Info|VariantSet|Empty|||valid"));
}

TEST_F(Findings, AboutNodeVariantsKeepACommaInItsField) {
  EXPECT_THAT(findings(kuCheckNodeVariants),
              ElementsAre("Error|NodeVariant|V|Roof|Up, Down|node state not found in switch node",
                          "Info|NodeVariant|C|Car||valid"));
}

TEST_F(Findings, AboutMaterialVariantsNameTheDefaultAtFault) {
  EXPECT_THAT(findings(kuCheckMaterialVariants),
              ElementsAre("Error|MaterialVariant|M|Paint|Green|"
                          "default material state not found in switch material"));
}

TEST_F(Findings, AreTheLinesOfTheReport) {
  ReportLines lines;
  for (const auto check : {kuCheckVariantSets, kuCheckNodeVariants, kuCheckMaterialVariants}) {
    for (std::string text : findings(check)) {
      std::replace(text.begin(), text.end(), '|', ',');
      lines.push_back(text);
    }
  }
  EXPECT_EQ(report(), lines);
}

TEST_F(Findings, WriteNothing) {
  ::testing::internal::CaptureStdout();
  findings(kuCheckVariantSets);
  findings(kuCheckNodeVariants);
  findings(kuCheckMaterialVariants);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

TEST_F(Findings, AnExceptionOfTheReceiverReachesTheCaller) {
  EXPECT_THROW(kuCheckVariantSets([](const kuVariantFinding&) { throw 1; }), int);
}

}  // namespace
