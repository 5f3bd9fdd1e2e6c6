#include <QDir>
#include <QFile>
#include <QImage>

#include "CaptureTest.h"

using ::testing::HasSubstr;

namespace {

/** The sets Red and Blue, captured one after the other, and what selecting them makes of scenes. */
class CapturedSetsTest : public CaptureTest {
 protected:
  CapturedSetsTest() { capturePaints(); }

  /** The body of a scene after a selection. */
  std::string bodyAfter(const QString& sceneFile, const QStringList& arguments,
                        const QString& document = "paints.xml") {
    const CliResult result = run(QStringList{"select", sceneFile, document} + arguments +
                                 QStringList{"--save-scene", "out.gltf"});
    EXPECT_EQ(result.code, 0) << result.err;
    err = result.err;
    return bodyOf("out.gltf");
  }

  void writeDocumentWithTemp() {
    QByteArray text = QByteArray::fromStdString(read("paints.xml"));
    write("temp.xml", text.replace("</Variants>", "<VariantSet name=\"Temp\"/></Variants>"));
  }

  std::string err;
};

TEST_F(CapturedSetsTest, SelectPutsTheSwitchMaterialBackAndSelects) {
  EXPECT_EQ(bodyAfter("red.gltf", {"Blue"}), "Switch = Blue");
  EXPECT_EQ(bodyAfter("red.gltf", {"Blue", "Red"}), "Switch = Red");
  EXPECT_EQ(bodyAfter("blue.gltf", {"Red"}), "Switch = Red");
  EXPECT_EQ(err, "");
}

TEST_F(CapturedSetsTest, NodesThatGotTheirMaterialsBackAreTold) {
  const QStringList select{"select", "red.gltf", "paints.xml", "Blue"};
  EXPECT_THAT(run(select).out, HasSubstr("\nChanged\n  material of Car/Body: Red -> Switch\n"));
  EXPECT_THAT(normalised(run(select + QStringList{"--json"}).out),
              HasSubstr(R"("materials":[["Car/Body","Red","Switch"]])"));
  EXPECT_THAT(run(select + QStringList{"--no-restore"}).out, HasSubstr("Changed\n  nothing\n"));
}

TEST_F(CapturedSetsTest, NoRestoreSelectsAlone) {
  EXPECT_EQ(bodyAfter("red.gltf", {"Blue", "--no-restore"}), "Red");
}

TEST_F(CapturedSetsTest, DefaultsPutNothingBack) {
  EXPECT_EQ(bodyAfter("red.gltf", {"Blue", "--default"}), "Red");
}

TEST_F(CapturedSetsTest, ASetThatRemembersNoMaterialsPutsNothingBack) {
  QByteArray text = QByteArray::fromStdString(read("paints.xml"));
  write("plain.xml", text.replace("</Variants>", R"(<VariantSet name="Plain">
    <MaterialVariantRef ref="Switch" state="Blue"/></VariantSet></Variants>)"));
  EXPECT_EQ(bodyAfter("red.gltf", {"Plain"}, "plain.xml"), "Red");
}

TEST_F(CapturedSetsTest, ASavedSceneHasTheSwitchMaterialOnItsNode) {
  const CliResult result = capture({"blue.gltf", "paints.xml", "--after", "Red", "--set", "Again",
                                    "-o", "again.xml", "--save-scene", "saved.glb"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(bodyOf("saved.glb"), "Switch = Red");
  EXPECT_EQ(bodyAfter("saved.glb", {"Blue", "--no-restore"}, "again.xml"), "Switch = Blue");
}

TEST_F(CapturedSetsTest, NamesThatNoScriptCouldCarryAreRestoredToo) {
  const CliResult result =
      capture({"red.gltf", "paints.xml", "--set", "It's \"red\"\\", "-o", "odd.xml"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(bodyAfter("blue.gltf", {"It's \"red\"\\"}, "odd.xml"), "Switch = Red");
}

TEST_F(CapturedSetsTest, ASetNamedTempKeepsMaterialsFromTheirNodesAndThatIsTold) {
  writeDocumentWithTemp();
  EXPECT_EQ(bodyAfter("red.gltf", {"Temp", "Blue", "Red"}, "temp.xml"), "Red");
  EXPECT_EQ(err,
            "kuvariants: warning: materials are not put back to the nodes for \"Blue\", \"Red\": "
            "the document has a set named \"Temp\", and the name is needed for that; give that set "
            "another\n");
}

TEST_F(CapturedSetsTest, ASetNamedTempIsNotToldOfWhereNothingIsToBePutBack) {
  writeDocumentWithTemp();
  for (const QStringList& arguments : {QStringList{"Temp"}, QStringList{"Blue", "--no-restore"},
                                       QStringList{"Blue", "--default"}}) {
    bodyAfter("red.gltf", arguments, "temp.xml");
    EXPECT_EQ(err, "");
  }
}

// Pictures.

constexpr const char* radioDocument = R"(<Variants>
  <VariantSet name="Red">
    <MaterialVariantRef ref="Switch" state="Red"/>
    <MaterialSnapshot nodePath="Radio/Body" materialName="Switch"/>
  </VariantSet>
  <VariantSet name="Blue">
    <MaterialVariantRef ref="Switch" state="Blue"/>
    <MaterialSnapshot nodePath="Radio/Body" materialName="Switch"/>
  </VariantSet>
  <MaterialVariant name="Switch" base="Switch">
    <Default ref="Blue"/><State name="Blue"/><State name="Red"/>
  </MaterialVariant>
</Variants>)";

/** The red radio, whose sets remember a switch material that the scene does not have. */
class RenderedPaintsTest : public CaptureTest {
 protected:
  RenderedPaintsTest() {
    QFile::remove(folder.filePath("red.gltf"));
    EXPECT_TRUE(QFile::copy(KUVARIANTS_SAMPLES "/radio/red.gltf", folder.filePath("red.gltf")));
    write("paints.xml", radioDocument);
  }

  CliResult render(const QStringList& more, const QString& document = "paints.xml") {
    return run(QStringList{"render", "red.gltf", document, "-o", "out", "--size", "60x40",
                           "--samples", "4"} +
               more);
  }

  /** "red" or "blue", after the part of the picture where the top of the body is. */
  std::string paintIn(const char* set) const {
    const QImage image(folder.filePath(QString("out/%1.png").arg(set)));
    EXPECT_EQ(image.size(), QSize(60, 40));
    const QColor color = image.pixelColor(41, 24);
    return color.red() > color.blue() ? "red" : "blue";
  }
};

TEST_F(RenderedPaintsTest, EachPictureHasThePaintOfItsSet) {
  const CliResult result = render({});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(paintIn("Red"), "red");
  EXPECT_EQ(paintIn("Blue"), "blue");
}

TEST_F(RenderedPaintsTest, NoRestoreLeavesThePaintOfTheScene) {
  const CliResult result = render({"--no-restore"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(paintIn("Blue"), "red");
}

TEST_F(RenderedPaintsTest, ASetNamedTempIsToldOfOnce) {
  QByteArray text = QByteArray::fromStdString(read("paints.xml"));
  write("temp.xml", text.replace("</Variants>", "<VariantSet name=\"Temp\"/></Variants>"));
  const CliResult result = render({}, "temp.xml");
  EXPECT_EQ(result.err,
            "kuvariants: warning: materials are not put back to the nodes for \"Red\", \"Blue\": "
            "the document has a set named \"Temp\", and the name is needed for that; give that set "
            "another\n");
  EXPECT_EQ(paintIn("Blue"), "red");
}

}  // namespace
