#include "ReaderTest.h"
#include "standalone/kernel/MessageWatch.h"

#include <functional>
#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuOverlayVariant.h"

namespace {

/** Does something once, on the first message of that name. */
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

TEST_F(ReaderTest, SetRemovedWhileItsOverlaysAreBroughtUpToDate) {
  scene.sceneplate("A");
  scene.sceneplate("B");
  const OnMessage added("overlayVariantAdded", [] { kuVariants::removeVariantSet("S"); });
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/></VariantSet>"
                  "<VariantSet name='T'><OverlayRef ref='A' state='x'/></VariantSet>"),
            "set T\n  overlay A=x\noverlayVariant A base=\noverlayVariant B base=\n");
}

TEST_F(ReaderTest, OverlayListClearedWhileItIsBroughtUpToDate) {
  const OnMessage added("overlayVariantAdded",
                        [] { kuVariants::findVariantSet("S")->clearOverlayVariants(); });
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/><OverlayRef ref='B'/></VariantSet>"),
            "set S\n  overlay A=!Enable\n  overlay B=!Enable\n"
            "overlayVariant A base=\noverlayVariant B base=\n");
}

}  // namespace
