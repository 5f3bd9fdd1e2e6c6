#include "SequentialSets.h"

#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "standalone/animation/AnimationPlayer.h"
#include "standalone/scene/Scene.h"
#include "support/VariantsTest.h"

using kuStandalone::AnimationPlayer;
using ::testing::ElementsAre;

namespace {

class SequentialSetsTest : public VariantsTest {
 protected:
  SequentialSetsTest() {
    for (const char* name : {"First", "Second"}) {
      kuStandalone::AnimationClip clip;
      clip.name = name;
      kuStandalone::Scene::the().animations.push_back(clip);
    }
    set.addAnimation("First");
    set.addAnimation("Second");
    set.setSequentialAnimation(true);
    AnimationPlayer::clearStarted();
  }
  static void select() { kuVariants::selectVariantSet("Parade", true); }

  kuVariantSet& set = *kuVariants::createVariantSet("Parade", false, nullptr);
};

TEST_F(SequentialSetsTest, BeginWithTheSameAnimationAgain) {
  select();
  const SequentialSets sets;
  select();
  sets.restore();
  select();
  select();
  EXPECT_THAT(AnimationPlayer::started(), ElementsAre("First", "Second", "Second", "First"));
}

TEST_F(SequentialSetsTest, StayInTheirGroup) {
  kuVariantGroup* group = kuVariants::createVariantGroup("Shows", false, true);
  group->add(&set);
  {
    const SequentialSets sets;
    sets.restore();
  }
  EXPECT_EQ(set.getGroup(), group);
  EXPECT_THAT(group->getVariantSets(), ElementsAre(&set));
}

TEST_F(SequentialSetsTest, OfAnotherGroupByThenStayAsTheyAre) {
  kuVariants::createVariantGroup("Shows", false, true)->add(&set);
  const SequentialSets sets;
  select();
  kuVariants::removeVariantGroup("Shows");
  sets.restore();
  EXPECT_EQ(set.getGroup(), nullptr);
}

TEST_F(SequentialSetsTest, RemovedByThenStayAway) {
  const SequentialSets sets;
  kuVariants::removeVariantSet("Parade");
  sets.restore();
  EXPECT_EQ(kuVariants::findVariantSet("Parade"), nullptr);
}

}  // namespace
