#include "ReaderTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuOverlayVariant.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

class ReaderOverlays : public ReaderTest {
 protected:
  void platesABC() {
    for (const char* name : {"A", "B", "C"})
      scene.sceneplate(name);
  }
};

TEST_F(ReaderOverlays, EmptyStatesEnableAndAllOthersAreDisabled) {
  platesABC();
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/><OverlayRef ref='B'/></VariantSet>"),
            "set S\n  overlay A=!Enable\n  overlay B=!Enable\n  overlay C=!Disable\n"
            "overlayVariant A base=\noverlayVariant B base=\noverlayVariant C base=\n");
  std::vector<std::string> expected{"overlayVariantAdded/1 variant:void*=kuVariant A",
                                    "overlayVariantAdded/1 variant:void*=kuVariant B",
                                    "overlayVariantAdded/1 variant:void*=kuVariant C"};
  expected.insert(expected.end(), changedMessages().begin(), changedMessages().end());
  EXPECT_THAT(messages.lines(), ElementsAreArray(expected));
}

TEST_F(ReaderOverlays, OneStateTextKeepsTheOthersFromBeingDisabled) {
  platesABC();
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/><OverlayRef ref='B' state='X'/>"
                  "</VariantSet>"),
            "set S\n  overlay A=!Enable\n  overlay B=X\noverlayVariant A base=\n");
}

TEST_F(ReaderOverlays, VariantWithMoreThanThreeOptionsKeepsItsEmptyState) {
  platesABC();
  const std::string states = "<State name='1'/><State name='2'/><State name='3'/>";
  read("<OverlayVariant name='A'>" + states +
       "<State name='4'/></OverlayVariant>"
       "<OverlayVariant name='B'>" +
       states +
       "</OverlayVariant>"
       "<VariantSet name='S'><OverlayRef ref='A'/><OverlayRef ref='B'/></VariantSet>");
  const kuVariantSet* set = kuVariants::findVariantSet("S");
  ASSERT_EQ(set->getOverlayVariants().size(), 2u);
  EXPECT_EQ(set->getOverlayVariants().front().getState(), "");
  EXPECT_EQ(set->getOverlayVariants().back().getState(), "!Enable");
}

TEST_F(ReaderOverlays, SwitchesAmongSceneplatesAreNotDisabled) {
  scene.sceneplateSwitch("Sw", 0, {"A", "B"});
  EXPECT_EQ(after("<VariantSet name='S'><OverlayRef ref='A'/></VariantSet>"),
            "set S\n  overlay A=!Enable\n  overlay B=!Disable\n"
            "overlayVariant A base=\noverlayVariant B base=\n");
}

TEST_F(ReaderOverlays, AllSetsOfTheManagerAreBroughtUpToDate) {
  scene.sceneplate("A");
  kuVariants::createVariantSet("Old", false, nullptr)->addOverlayVariant("A", "");
  EXPECT_EQ(after(""), "set Old\n  overlay A=!Enable\noverlayVariant A base=\n");
}

TEST_F(ReaderOverlays, SecondRunChangesNothing) {
  platesABC();
  const std::string once = after("<VariantSet name='S'><OverlayRef ref='A'/></VariantSet>");
  messages.clear();
  EXPECT_EQ(after(""), once);
  EXPECT_THAT(messages.lines(), ElementsAreArray(changedMessages()));
}

}  // namespace
