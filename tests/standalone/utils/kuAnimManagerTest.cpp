#include "host/utils/kuAnimManager.h"

#include "support/SceneTest.h"

using kuStandalone::AnimationClip;
using kuStandalone::Scene;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class kuAnimManagerTest : public SceneTest {
 protected:
  static void addClip(const char* name) {
    AnimationClip clip;
    clip.name = name;
    Scene::the().animations.push_back(clip);
  }
  static std::set<std::string> names() {
    std::set<std::string> found;
    kuAnimManager::the().getBlockAndClipNames(found);
    return found;
  }
};

}  // namespace

TEST_F(kuAnimManagerTest, SceneWithoutAnimationsHasNoNames) { EXPECT_THAT(names(), IsEmpty()); }

TEST_F(kuAnimManagerTest, NamesOfBlocksAndOfClipsStandTogether) {
  addClip("Left");
  addClip("Right");
  addClip("T\xc3\xbcr");
  Scene::the().animationBlocks["Doors"] = {"Left", "Right"};
  EXPECT_THAT(names(), ElementsAre("Doors", "Left", "Right", "T\xc3\xbcr"));
}

TEST_F(kuAnimManagerTest, NameOfBlocksAndClipsStandsOnce) {
  addClip("Doors");
  addClip("Doors");
  Scene::the().animationBlocks["Doors"] = {};
  EXPECT_THAT(names(), ElementsAre("Doors"));
}

TEST_F(kuAnimManagerTest, ClipThatOnlyABlockNamesIsNone) {
  Scene::the().animationBlocks["Doors"] = {"Lost"};
  EXPECT_THAT(names(), ElementsAre("Doors"));
}

TEST_F(kuAnimManagerTest, GivenNamesAreKept) {
  addClip("Left");
  std::set<std::string> given{"Given"};
  kuAnimManager::the().getBlockAndClipNames(given);
  EXPECT_THAT(given, ElementsAre("Given", "Left"));
}

TEST_F(kuAnimManagerTest, ThereIsOneManager) {
  EXPECT_EQ(&kuAnimManager::the(), &kuAnimManager::the());
}
