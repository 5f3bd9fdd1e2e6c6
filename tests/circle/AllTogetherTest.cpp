#include "circle/CircleTest.h"
#include "standalone/scene/RenderLayer.h"

// One scene with everything that a capture takes in, over four captures.

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AllTogether : public CircleTest, public ::testing::WithParamInterface<Capturing> {
 protected:
  void build() {
    const osg::NodePtr car = scene.group("Car");
    buildBody(car);
    buildSurroundings();
    scene.transforms("Door", {"Shut", "Ajar", "Wide"}, 0, 0, car);
    scene.light("Sun", true);
    scene.light("Lamp", false, car);
    scene.camera("Front");
    move("Front", 1);
    scene.camera("Rear");
  }

  void buildBody(const osg::NodePtr& car) {
    for (const char* name : {"Red", "Blue", "Green"})
      scene.material(name);
    scene.presetMaterial("Lacquer", {"Matt", "Gloss"}, 0);
    const osg::MaterialPtr paint =
        scene.switchMaterial("Paint", {material("Red"), material("Blue")}, 0);
    const osg::NodePtr body = scene.switchNode("Body", 0, {"Sedan", "Estate"}, car);
    const osg::NodePtr roof = scene.switchNode("Roof", 1, {"Closed", "Open"}, body->getChild(0));
    scene.geometry("Hood", material("Red"), body->getChild(0));
    scene.geometry("Hatch", paint, body->getChild(1));
    scene.geometry("Hatch trim", paint, body->getChild(1));
    scene.clone(scene.geometry("Wheel", material("Lacquer"), car), "Spare", roof->getChild(0));
    scene.geometry("Belt", material("Green"), scene.materialGroup("Seats", material("Red"), car));
  }

  void buildSurroundings() {
    const osg::MaterialPtr day = scene.environmentMaterial("Day");
    const osg::MaterialPtr night = scene.environmentMaterial("Night");
    const osg::NodePtr domes = scene.environmentSwitch("Domes", 0, {"Hall", "Street"});
    scene.geometry("Hall dome", day, domes->getChild(0));
    scene.geometry("Street dome", scene.environmentSwitchMaterial("Sky", {day, night}, 0),
                   domes->getChild(1));
  }

  void arrangeSecond() {
    setChoice(node("Roof"), 0);
    setChoice(node("Domes"), 1);
    bear("Hood", "Blue");
    bear("Seats", "Green");
    bear("Hall dome", "Night");
    setLight("Lamp", true);
    setState("Door", 2);
    showInSwitch("Paint", 1);
  }

  void arrangeThird() {
    setChoice(node("Body"), -1);
    setChoice(node("Roof"), 1);
    bear("Hood", "Lacquer");
    showInSwitch("Sky", 1);
    material("Lacquer")->setCurrentState(1);
    setIgnored("Seats", true);
    setActive(node("Door"), false);
    setLight("Sun", false);
  }

  void arrangeFourth() {
    setChoice(node("Body"), 1);
    bear("Hood", "Red");
    bear("Hatch trim", "Green");
    setIgnored("Seats", false);
    setActive(node("Door"), true);
    setState("Door", 1);
  }

  void captureAll() {
    build();
    begin(GetParam());
    EXPECT_THAT(capture("First"), IsEmpty());
    arrangeSecond();
    EXPECT_THAT(capture("Second"), IsEmpty());
    arrangeThird();
    EXPECT_THAT(capture("Third"), IsEmpty());
    arrangeFourth();
    EXPECT_THAT(capture("Fourth"), IsEmpty());
  }
};

TEST_P(AllTogether, FourSetsComeBackOverTheSceneOfBefore) {
  captureAll();
  for (const char* set : {"First", "Second", "Third", "Fourth"})
    EXPECT_THAT(fromTheOriginal(set), IsEmpty()) << set;
}

TEST_P(AllTogether, FourSetsComeBackOverTheSceneOfAfter) {
  captureAll();
  for (const char* set : {"First", "Second", "Third", "Fourth"})
    EXPECT_THAT(fromTheCaptured(set), IsEmpty()) << set;
}

INSTANTIATE_TEST_SUITE_P(Captured, AllTogether,
                         ::testing::Values(Capturing::Here, Capturing::ByCommand),
                         [](const auto& row) {
                           return row.param == Capturing::Here ? "Here" : "ByCommand";
                         });

}  // namespace
