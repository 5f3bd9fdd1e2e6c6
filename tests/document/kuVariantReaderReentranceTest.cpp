#include <functional>
#include <memory>

#include "ReaderTest.h"
#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuOverlayVariant.h"
#include "standalone/kernel/LogSink.h"
#include "standalone/kernel/MessageWatch.h"

using ::testing::ElementsAre;

namespace {

/** Does something once, on the first message of that name; the empty name is a numbered message's.
 */
class OnMessage {
 public:
  OnMessage(std::string name, std::function<void()> act)
      : _name(std::move(name)),
        _act(std::move(act)),
        _watch([this](const kuStandalone::PassedMessage& message) { passed(message); }) {}

 private:
  void passed(const kuStandalone::PassedMessage& message) {
    if (_done || message.name != _name) return;
    _done = true;
    _act();
  }

  std::string _name;
  std::function<void()> _act;
  bool _done = false;
  kuStandalone::MessageWatch _watch;
};

TEST_F(ReaderTest, GroupRemovedWhileItIsReadIsAnsweredAsNull) {
  kuVariants::createVariantSet("A", false, nullptr);
  const OnMessage removed("variantSetRemoved", [] { kuVariants::removeVariantGroup("G"); });
  ParsedElement parsed(
      "<VariantGroup name='G'><VariantSet name='A'/><VariantSet name='B'/>"
      "</VariantGroup>");
  EXPECT_EQ(kuVariantReader::readVariantGroup(parsed.element), nullptr);
  EXPECT_EQ(managerDump(), "set A\nset B\n");
}

TEST_F(ReaderTest, ManagerClearedInTheMidstHoldsWhatCameAfterwards) {
  kuVariants::createVariantSet("B", false, nullptr);
  const OnMessage removed("variantSetRemoved", [] { kuController::call("clearAllVariants", 1); });
  EXPECT_EQ(after("<VariantSet name='A'/><VariantSet name='B'/><VariantSet name='C'/>"),
            "set B\nset C\n");
}

TEST_F(ReaderTest, ReadingWithTheSameReaderInTheMidst) {
  kuVariants::createVariantSet("A", false, nullptr);
  const OnMessage removed("variantSetRemoved",
                          [this] { reader.read("<x><VariantSet name='Inner'/></x>"); });
  EXPECT_EQ(after("<VariantSet name='A'/><VariantSet name='B'/>"), "set Inner\nset A\nset B\n");
}

TEST_F(ReaderTest, ReaderThatIsDestroyedInTheMidstReadsToTheEnd) {
  kuVariants::createVariantSet("A", false, nullptr);
  auto mortal = std::make_unique<kuVariantReader>();
  const OnMessage removed("variantSetRemoved", [&] { mortal.reset(); });
  mortal->read("<x><VariantSet name='A'/><VariantSet name='B'/></x>");
  EXPECT_FALSE(mortal);
  EXPECT_EQ(managerDump(), "set A\nset B\n");
}

TEST_F(ReaderTest, ReaderThatIsDestroyedByTheLogReadsNothing) {
  auto mortal = std::make_unique<kuVariantReader>();
  const kuStandalone::LogSink sink(
      [&](kuStandalone::LogLevel, const std::string&) { mortal.reset(); });
  mortal->read("<x>");
  EXPECT_FALSE(mortal);
  EXPECT_EQ(managerDump(), "");
}

TEST_F(ReaderTest, GroupThatIsRenamedWhileItIsReadTakesItsSets) {
  kuVariants::createVariantSet("A", false, nullptr);
  const OnMessage removed("variantSetRemoved",
                          [] { kuVariants::findVariantGroup("G")->setName("H"); });
  EXPECT_EQ(after("<VariantGroup name='G'><VariantSet name='A'/><VariantSet name='B'/>"
                  "</VariantGroup>"),
            "group H\n  set A\n  set B\nset A group=H\nset B group=H\n");
}

TEST_F(ReaderTest, GroupThatIsReplacedWhileItIsReadTakesNoSets) {
  kuVariants::createVariantSet("A", false, nullptr);
  const OnMessage removed("variantSetRemoved", [] {
    kuVariants::removeVariantGroup("G");
    kuVariants::createVariantGroup("G", false, true);
  });
  ParsedElement parsed("<VariantGroup name='G'><VariantSet name='A'/></VariantGroup>");
  EXPECT_EQ(kuVariantReader::readVariantGroup(parsed.element), nullptr);
  EXPECT_EQ(managerDump(), "group G\nset A\n");
}

TEST_F(ReaderTest, SetThatAReceiverOfItsRemovalMakesStays) {
  kuVariants::createVariantSet("A", false, nullptr);
  const OnMessage removed("variantSetRemoved", [] {
    kuVariants::createVariantSet("A", false, nullptr)->setComment("receiver's");
  });
  EXPECT_EQ(after("<VariantSet name='A' comment='document'/>"), "set A comment=receiver's\n");
  EXPECT_THAT(log, ElementsAre("warning: A variant set with that name already exists."));
}

TEST_F(ReaderTest, GroupThatAReceiverOfItsRemovalMakesStays) {
  kuVariants::createVariantGroup("G", false, true);
  const OnMessage removed("variantGroupRemoved",
                          [] { kuVariants::createVariantGroup("G", false, false); });
  EXPECT_EQ(after("<VariantGroup name='G'><VariantSet name='A'/></VariantGroup>"),
            "group G visible=0\n");
  EXPECT_THAT(log, ElementsAre("warning: A variant group with that name already exists."));
}

TEST_F(ReaderTest, MaterialVariantRemovedByTheNewsOfItsSwitchIsAnsweredAsNull) {
  const OnMessage added("", [] { kuVariants::removeMaterialVariant("V"); });
  ParsedElement parsed("<MaterialVariant name='V' base='B'><State name='a'/></MaterialVariant>");
  EXPECT_EQ(kuVariantReader::readMaterialVariant(parsed.element), nullptr);
  EXPECT_EQ(managerDump(), "");
}

TEST_F(ReaderTest, VariantsClearedByTheNewsOfASwitchAndReadingGoesOn) {
  const osg::MaterialPtr plain = scene.material("B");
  const OnMessage added("", [] { kuController::call("clearAllVariants", 1); });
  EXPECT_EQ(after("<VariantSet name='A'/><MaterialVariant name='V' base='B Switch'>"
                  "<State name='B'/></MaterialVariant><NodeVariant name='N'/>"),
            "nodeVariant N base=\n");
}

TEST_F(ReaderTest, SetRemovedWhileItsOverlaysAreBroughtUpToDateGetsNoMoreVariants) {
  scene.sceneplate("A");
  scene.sceneplate("B");
  const OnMessage added("overlayVariantAdded", [] { kuVariants::removeVariantSet("S"); });
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/><OverlayRef ref='C'/></VariantSet>"
                  "<VariantSet name='T'><OverlayRef ref='A' state='x'/></VariantSet>"),
            "set T\n  overlay A=x\noverlayVariant A base=\n");
}

TEST_F(ReaderTest, SetRemovedWhileOtherSceneplatesAreDisabledGetsNoMoreVariants) {
  for (const char* name : {"A", "B", "C"})
    scene.sceneplate(name);
  kuVariants::createOverlayVariant("A", false);
  const OnMessage added("overlayVariantAdded", [] { kuVariants::removeVariantSet("S"); });
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/></VariantSet>"),
            "overlayVariant A base=\noverlayVariant B base=\n");
}

TEST_F(ReaderTest, SetRenamedWhileItsOverlaysAreBroughtUpToDateIsFoundAgain) {
  scene.sceneplate("B");
  const OnMessage added("overlayVariantAdded",
                        [] { kuVariants::findVariantSet("S")->setName("T"); });
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/></VariantSet>"),
            "set T\n  overlay A=!Enable\n  overlay B=!Disable\n"
            "overlayVariant A base=\noverlayVariant B base=\n");
}

TEST_F(ReaderTest, AnnouncementOfAnOverlayComesBeforeItsState) {
  std::string seen;
  const OnMessage added("overlayVariantAdded", [&] { seen = managerDump(); });
  read("<VariantSet name='S'><OverlayRef ref='A'/></VariantSet>");
  EXPECT_EQ(seen, "set S\n  overlay A=\noverlayVariant A base=\n");
}

TEST_F(ReaderTest, LaterSetIsBroughtUpToDateAsItIsWhenItsTurnComes) {
  const OnMessage added("overlayVariantAdded",
                        [] { kuVariants::findVariantSet("T")->addOverlayVariant("A", ""); });
  read("<VariantSet name='S'><OverlayRef ref='A'/></VariantSet><VariantSet name='T'/>");
  EXPECT_EQ(kuVariants::findVariantSet("T")->getOverlayVariants().front().getState(), "!Enable");
}

TEST_F(ReaderTest, OverlayListClearedWhileItIsBroughtUpToDate) {
  const OnMessage added("overlayVariantAdded",
                        [] { kuVariants::findVariantSet("S")->clearOverlayVariants(); });
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/><OverlayRef ref='B'/></VariantSet>"),
            "set S\n  overlay A=!Enable\n  overlay B=!Enable\n"
            "overlayVariant A base=\noverlayVariant B base=\n");
}

}  // namespace
