#include "circle/CircleTest.h"

// What comes back whole, from either scene, whichever way it was captured.

namespace {

using Texts = std::vector<std::string>;
using ::testing::IsEmpty;

class EveryKind : public CircleTest {
 protected:
  /** Each set looks as when it was captured, in the scene of before and in that of after. */
  void expectToComeBack(const QStringList& sets) {
    for (const QString& set : sets) {
      EXPECT_THAT(fromTheOriginal(set), IsEmpty()) << set.toStdString();
      EXPECT_THAT(fromTheCaptured(set), IsEmpty()) << set.toStdString();
    }
  }
};

TEST_F(EveryKind, ChoicesOfSwitchesComeBack) {
  const osg::NodePtr outer = scene.switchNode("Body", 0, {"Sedan", "Estate"});
  scene.switchNode("Roof", 0, {"Closed", "Open", "None"}, outer->getChild(0));
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  setChoice(node("Roof"), 2);
  EXPECT_THAT(capture("B"), IsEmpty());
  setChoice(node("Body"), 1);
  setChoice(node("Roof"), -1);
  EXPECT_THAT(capture("C"), IsEmpty());
  expectToComeBack({"A", "B", "C"});
}

TEST_F(EveryKind, StatesOfTransformsComeBack) {
  scene.transforms("Door", {"Shut", "Ajar", "Wide"}, 0, 0);
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  setState("Door", 2);
  EXPECT_THAT(capture("B"), IsEmpty());
  expectToComeBack({"A", "B"});
}

TEST_F(EveryKind, LightsComeBack) {
  scene.light("Sun", true);
  scene.light("Lamp", false);
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  setLight("Sun", false);
  setLight("Lamp", true);
  EXPECT_THAT(capture("B"), IsEmpty());
  expectToComeBack({"A", "B"});
}

TEST_F(EveryKind, FlagsOfNodesComeBack) {
  scene.group("Wheel");
  scene.geometry("Hood");
  scene.materialGroup("Seats", {});
  scene.switchNode("Roof", 1, {"Closed", "Open"});
  SceneBuilder::setActive(node("Wheel"), false);
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  for (const char* name : {"Wheel", "Hood", "Seats", "Roof"})
    setActive(node(name), !node(name)->getActive());
  EXPECT_THAT(capture("B"), IsEmpty());
  expectToComeBack({"A", "B"});
}

TEST_F(EveryKind, AnInactiveNodeWithAnActiveNamesakeComesBack) {
  scene.geometry("Wheel", {}, scene.group("Left"));
  const osg::NodePtr right = scene.geometry("Wheel", {}, scene.group("Right \xC3\xB6"));
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  setActive(right, false);
  EXPECT_THAT(capture("B"), IsEmpty());
  expectToComeBack({"A", "B"});
}

TEST_F(EveryKind, MaterialsOfNodesComeBack) {
  for (const char* name : {"Red", "Blue", "Green"})
    scene.material(name);
  scene.geometry("Hood", material("Red"));
  scene.materialGroup("Seats", material("Green"));
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  bear("Hood", "Blue");
  EXPECT_THAT(capture("B"), IsEmpty());
  bear("Hood", "Green");
  bear("Seats", "Red");
  EXPECT_THAT(capture("C"), IsEmpty());
  expectToComeBack({"A", "B", "C"});
}

TEST_F(EveryKind, MaterialsComeBackWithTheFirstOneOnceMore) {
  scene.material("Red");
  scene.material("Blue");
  scene.geometry("Hood", material("Red"));
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  bear("Hood", "Blue");
  EXPECT_THAT(capture("B"), IsEmpty());
  bear("Hood", "Red");
  EXPECT_THAT(capture("C"), IsEmpty());
  showInSwitch(switchAt("Hood").substr(0, 6), 0);
  EXPECT_THAT(capture("D"), IsEmpty());
  expectToComeBack({"A", "B", "C", "D"});
}

TEST_F(EveryKind, ChoicesOfSwitchMaterialsComeBack) {
  const osg::MaterialPtr red = scene.material("Red"), blue = scene.material("Blue");
  const osg::MaterialPtr paint = scene.switchMaterial("Paint", {red, blue}, 0);
  scene.geometry("Hood", paint);
  scene.geometry("Trunk", paint);
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  showInSwitch("Paint", 1);
  EXPECT_THAT(capture("B"), IsEmpty());
  expectToComeBack({"A", "B"});
}

TEST_F(EveryKind, PresetsOfMaterialsComeBack) {
  scene.geometry("Hood", scene.presetMaterial("Lacquer", {"Matt", "Gloss"}, 0));
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  material("Lacquer")->setCurrentState(1);
  EXPECT_THAT(capture("B"), IsEmpty());
  expectToComeBack({"A", "B"});
}

TEST_F(EveryKind, IgnoredMaterialGroupsComeBack) {
  scene.materialGroup("Seats", scene.material("Red"), scene.group("Car"));
  begin();
  EXPECT_THAT(capture("A"), IsEmpty());
  setIgnored("Seats", true);
  EXPECT_THAT(capture("B"), IsEmpty());
  expectToComeBack({"A", "B"});
}

TEST_F(EveryKind, SceneplatesComeBack) {
  scene.sceneplate("Title");
  scene.sceneplate("Logo");
  scene.sceneplateSwitch("Legend", 0, {"English", "Deutsch"});
  begin(Capturing::ByCommand);
  EXPECT_THAT(capture("A"), IsEmpty());
  setActive(plate("Title"), false);
  setChoice(plate("Legend"), 1);
  EXPECT_THAT(capture("B"), IsEmpty());
  setChoice(plate("Legend"), -2);
  EXPECT_THAT(capture("C"), IsEmpty());
  setChoice(plate("Legend"), -1);
  setActive(plate("Logo"), false);
  EXPECT_THAT(capture("D"), IsEmpty());
  expectToComeBack({"A", "B", "C", "D"});
}

TEST_F(EveryKind, NamesOfAnyLettersComeBack) {
  const osg::NodePtr roof = scene.switchNode("Dach \xC3\xB6", 0, {"zu", "\xE5\xBC\x80"});
  scene.material("Rot");
  scene.material("Gr\xC3\xBCn");
  scene.geometry("T\xC3\xBCr <&> 'links'", material("Rot"), roof->getChild(1));
  scene.group(
      "R\xC3\xA4"
      "der");
  begin();
  EXPECT_THAT(capture("Vor\xC3\xBC"
                      "ber"),
              IsEmpty());
  bear("T\xC3\xBCr <&> 'links'", "Gr\xC3\xBCn");
  setChoice(node("Dach \xC3\xB6"), 1);
  setActive(node("R\xC3\xA4"
                 "der"),
            false);
  EXPECT_THAT(capture("It's \xE2\x82\xAC 5"), IsEmpty());
  expectToComeBack(
      {"Vor\xC3\xBC"
       "ber",
       "It's \xE2\x82\xAC 5"});
}

}  // namespace
