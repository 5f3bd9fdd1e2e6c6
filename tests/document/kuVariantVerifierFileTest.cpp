// The report as a file: where it cannot be written, what a second run leaves, and its bytes.

#include <QFileInfo>
#include <type_traits>

#include "VerifierTest.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/ScenePool.h"

using ::testing::ElementsAre;

namespace {

/** Thrown below; of no class that a handler could name. */
struct NoStates {};

/** A material that cannot tell its states. */
class BrokenMaterial final : public osg::Material {
 public:
  /** A new one in the pool of the scene. */
  static void create(const std::string& name) {
    const osg::MaterialPtr material(new BrokenMaterial);
    material->hostFields().name = name;
    kuStandalone::ScenePool::of(kuStandalone::Scene::the().pool).enter(material);
  }

  bool isMultiState() const override { return true; }
  void getStateNames(std::vector<std::string>&) const override { throw NoStates(); }
  bool setCurrentState(unsigned) override { return false; }
  bool getCurrentState(int&) const override { return false; }
  bool getCurrentStateName(std::string&) const override { return false; }
  bool hasSubMaterial(const osg::MaterialPtr&, bool) const override { return false; }

 private:
  BrokenMaterial() : osg::Material(osg::Material::_type) {}
};

class ReportFile : public VerifierTest {};

TEST_F(ReportFile, AnEmptyManagerGivesAnEmptyFileAndTrue) {
  EXPECT_TRUE(verifyTo(fileName));
  EXPECT_TRUE(QFileInfo::exists(fileName));
  EXPECT_EQ(written(), "");
  EXPECT_EQ(printed, "");
}

TEST_F(ReportFile, WithoutASceneEveryNodeAndMaterialIsMissing) {
  scene = SceneBuilder();
  nodeVariant("Roof", "", {});
  materialVariant("Paint", "", {});
  EXPECT_THAT(report(), ElementsAre("Error,NodeVariant,V,Roof,,switch-node not found",
                                    "Error,MaterialVariant,M,Paint,,switch-material not found"));
}

TEST_F(ReportFile, ErrorsInTheDataDoNotMakeTheAnswerFalse) {
  nodeVariant("Hood", "", {});
  EXPECT_TRUE(verifyTo(fileName));
}

TEST_F(ReportFile, WhereItCannotBeOpenedTheAnswerIsFalseAndThereIsNoLineAnywhere) {
  nodeVariant("Roof", "", {});
  const QString inNoFolder = folder.filePath("missing/report.csv");
  EXPECT_FALSE(verifyTo(inNoFolder));
  EXPECT_EQ(printed, "");
  EXPECT_FALSE(QFileInfo::exists(inNoFolder));
  EXPECT_FALSE(verifyTo(folder.path()));
  EXPECT_EQ(printed, "");
  EXPECT_FALSE(verifyTo(QString()));
  EXPECT_EQ(printed, "");
}

TEST_F(ReportFile, ACheckThatThrowsEndsTheReportWhichKeepsTheLinesBefore) {
  BrokenMaterial::create("Broken");
  variantSet();
  nodeVariant("Roof", "", {"Open"});
  materialVariant("Paint", "", {"Red"}, "M1");
  materialVariant("Broken", "", {"Red"}, "M2");
  materialVariant("Paint", "", {"Red"}, "M3");
  EXPECT_FALSE(verifyTo(fileName));
  EXPECT_THAT(linesOf(printed),
              ElementsAre("Info,VariantSet,S,,,valid", "Info,NodeVariant,V,Roof,,valid",
                          "Info,MaterialVariant,M1,Paint,,valid"));
  EXPECT_EQ(written(), printed);
}

TEST_F(ReportFile, AfterACheckThatThrewTheNextRunIsWhole) {
  BrokenMaterial::create("Broken");
  materialVariant("Broken", "", {});
  EXPECT_FALSE(verifyTo(fileName));
  kuVariants::clearMaterialVariants();
  materialVariant("Paint", "", {});
  EXPECT_THAT(report(), ElementsAre("Info,MaterialVariant,M,Paint,,valid"));
}

TEST_F(ReportFile, OnAFullDiskTheAnswerIsFalse) {
  variantSet();
  EXPECT_FALSE(verifyTo("/dev/full"));
  EXPECT_EQ(printed, "Info,VariantSet,S,,,valid\n");
}

TEST_F(ReportFile, OnAFullDiskTheAnswerOfALongReportIsFalse) {
  for (int i = 0; i < 3000; ++i)
    variantSet("Set " + QString::number(i));
  EXPECT_FALSE(verifyTo("/dev/full"));
}

TEST_F(ReportFile, AfterAFullDiskTheNextRunHasItsOwnLinesAlone) {
  variantSet("Full");
  EXPECT_FALSE(verifyTo("/dev/full"));
  kuVariants::clearVariantSets();
  variantSet("Good");
  EXPECT_THAT(report(), ElementsAre("Info,VariantSet,Good,,,valid"));
}

TEST_F(ReportFile, ASecondRunOfOneObjectLeavesItsOwnReportAlone) {
  variantSet("A set of a long name");
  EXPECT_THAT(report(), ElementsAre("Info,VariantSet,A set of a long name,,,valid"));
  kuVariants::clearVariantSets();
  variantSet("B");
  EXPECT_THAT(report(), ElementsAre("Info,VariantSet,B,,,valid"));
}

TEST_F(ReportFile, ASecondRunIntoAnotherFileLeavesTheFirst) {
  variantSet("A");
  report();
  EXPECT_TRUE(verifyTo(folder.filePath("second.csv")));
  EXPECT_EQ(written(), "Info,VariantSet,A,,,valid\n");
}

TEST_F(ReportFile, ALongReportIsWrittenWhole) {
  ReportLines expected;
  for (int i = 0; i < 3000; ++i) {
    variantSet("Set " + QString::number(i));
    expected.push_back("Info,VariantSet,Set " + std::to_string(i) + ",,,valid");
  }
  EXPECT_EQ(report(), expected);
}

TEST_F(ReportFile, ACommaInANameShiftsTheColumns) {
  nodeVariant("Roof", "", {"Up, Down"}, "Roof, front");
  EXPECT_THAT(report(), ElementsAre("Error,NodeVariant,Roof, front,Roof,Up, Down,"
                                    "node state not found in switch node"));
}

TEST_F(ReportFile, NothingIsQuotedOrEscaped) {
  variantSet("\"A\"\\\t%s%n;<&>'");
  EXPECT_THAT(report(), ElementsAre("Info,VariantSet,\"A\"\\\t%s%n;<&>',,,valid"));
}

TEST_F(ReportFile, NewlinesAreWrittenAsTheyStand) {
  variantSet("A\r\nB\n\rC");
  report();
  EXPECT_EQ(written(), "Info,VariantSet,A\r\nB\n\rC,,,valid\n");
}

TEST_F(ReportFile, ANameEndsAtAZeroInBothPlaces) {
  variantSet(QString::fromLatin1("A\0B", 3));
  EXPECT_THAT(report(), ElementsAre("Info,VariantSet,A,,,valid"));
}

TEST_F(ReportFile, ItsTypesAreTheFiveConstants) {
  EXPECT_EQ(kuVariantVerifier::VariantSetType, "VariantSet");
  EXPECT_EQ(kuVariantVerifier::NodeVariantType, "NodeVariant");
  EXPECT_EQ(kuVariantVerifier::KorvoNodeVariantType, "KorvoNodeVariant");
  EXPECT_EQ(kuVariantVerifier::MaterialVariantType, "MaterialVariant");
  EXPECT_EQ(kuVariantVerifier::KorvoMaterialVariantType, "KorvoMaterialVariant");
}

static_assert(!std::is_copy_constructible<kuVariantVerifier>::value, "no copy is offered");
static_assert(!std::is_copy_assignable<kuVariantVerifier>::value, "no copy is offered");

}  // namespace
