#include <memory>

#include "host/services/kuKernelServiceFactory.h"
#include "standalone/kernel/MessageWatch.h"
#include "standalone/scene/Scene.h"
#include "standalone/script/ClippingSettings.h"
#include "support/CamerasInBetween.h"
#include "support/SelectionScene.h"
#include "support/kuVariantsTestAccess.h"

// What a selection does beside its states: cameras and animations.

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

/** Keeps the calls. */
class RecordingCameras final : public CamerasInBetween {
 public:
  kudCameraBaseNode findCamera(const QString& name) override {
    calls.push_back("find " + name.toStdString());
    return own.findCamera(name);
  }
  void activateCamera(unsigned id, bool a, bool b, bool c) override {
    const Viewpoint* viewpoint = Scene::the().findViewpoint(id);
    calls.push_back((viewpoint ? viewpoint->name : "nothing") + (a ? " true" : " false") +
                    (b ? " true" : " false") + (c ? " true" : " false"));
    own.activateCamera(id, a, b, c);
  }

  Lines calls;
};

/** The host has no camera service while this lives. */
class NoCameras {
 public:
  NoCameras() : _own(kuKernelServiceFactory::the().getService<kuCameraService>()) {
    kuKernelServiceFactory::the().unregisterService<kuCameraService>();
  }
  ~NoCameras() { kuKernelServiceFactory::the().registerService<kuCameraService>(_own); }
  NoCameras(const NoCameras&) = delete;
  NoCameras& operator=(const NoCameras&) = delete;

 private:
  kuCameraService* _own;
};

class kuVariantSetSideEffectsTest : public SelectionScene {
 protected:
  void select() { set().select(true, false, false); }

  Lines startedAnimations() const {
    Lines names;
    for (const std::string& line : messages.linesOf("animationStart"))
      names.push_back(line.substr(line.find('=') + 1, 1));
    return names;
  }
};

}  // namespace

TEST_F(kuVariantSetSideEffectsTest, SequentialAnimationsStartOneByOneAndWrap) {
  for (const char* name : {"A", "B", "C"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  for (int i = 0; i < 4; ++i)
    select();
  EXPECT_THAT(startedAnimations(), ElementsAre("A", "B", "C", "A"));
}

TEST_F(kuVariantSetSideEffectsTest, CursorStandsAtTheSizeOfTheListUntilTheNextSelection) {
  for (const char* name : {"A", "B"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  select();
  select();
  EXPECT_EQ(kuVariantsTestAccess::animationCursor(set()), 2);
  set().addAnimation("C");
  select();
  EXPECT_THAT(startedAnimations(), ElementsAre("A", "B", "C"));
}

TEST_F(kuVariantSetSideEffectsTest, NegativeCursorStartsTheFirst) {
  for (const char* name : {"A", "B"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  kuVariantsTestAccess::animationCursor(set()) = -1;
  select();
  EXPECT_THAT(startedAnimations(), ElementsAre("A"));
  EXPECT_EQ(kuVariantsTestAccess::animationCursor(set()), 1);
}

TEST_F(kuVariantSetSideEffectsTest, AnimationsThatAreNotSequentialAllStartAndLeaveTheCursor) {
  for (const char* name : {"A", "B"})
    set().addAnimation(name);
  select();
  select();
  EXPECT_THAT(startedAnimations(), ElementsAre("A", "B", "A", "B"));
  EXPECT_EQ(kuVariantsTestAccess::animationCursor(set()), 0);
}

TEST_F(kuVariantSetSideEffectsTest, CursorBehindAShortenedListWraps) {
  for (const char* name : {"A", "B", "C"})
    set().addAnimation(name);
  set().setSequentialAnimation(true);
  select();
  select();
  set().removeAnimation("B");
  set().removeAnimation("C");
  select();
  EXPECT_THAT(startedAnimations(), ElementsAre("A", "B", "A"));
}

TEST_F(kuVariantSetSideEffectsTest, SequentialSetWithoutAnimationsStartsNone) {
  set().setSequentialAnimation(true);
  select();
  set().addAnimation("A");
  select();
  EXPECT_THAT(startedAnimations(), ElementsAre("A"));
}

TEST_F(kuVariantSetSideEffectsTest, AnimationStartTellsWhetherItIsInstantaneous) {
  set().addAnimation("A");
  select();
  EXPECT_THAT(messages.linesOf("animationStart"),
              ElementsAre("animationStart/1 animation-name:string=A instantaneous:bool=false"));
}

TEST_F(kuVariantSetSideEffectsTest, SkippedViewpointsLeaveTheCameraAloneAndTheScriptRuns) {
  fill();
  RecordingCameras cameras;
  set().select(true, true, false);
  EXPECT_THAT(cameras.calls, IsEmpty());
  EXPECT_EQ(viewpoint(), "");
  EXPECT_TRUE(ClippingSettings::the().hideScene);
}

TEST_F(kuVariantSetSideEffectsTest, FirstAndDefaultViewpointDifferInOneFlag) {
  fill();
  RecordingCameras cameras;
  select();
  EXPECT_THAT(cameras.calls, ElementsAre("find Front", "Front false false true", "find Rear",
                                         "Rear false true true"));
}

TEST_F(kuVariantSetSideEffectsTest, UnknownViewpointsArePassedOver) {
  set().addViewpoint("absent");
  set().addViewpoint("Front");
  set().setDefaultViewpoint("absent too");
  RecordingCameras cameras;
  select();
  EXPECT_THAT(cameras.calls, ElementsAre("find absent", "find absent too"));
  EXPECT_EQ(viewpoint(), "");
}

TEST_F(kuVariantSetSideEffectsTest, CamerasAreNotTouchedWithoutExecutionBeyondTheFirstViewpoint) {
  fill();
  RecordingCameras cameras;
  set().select(false, false, false);
  EXPECT_THAT(cameras.calls, ElementsAre("find Front", "Front false false true"));
}

TEST_F(kuVariantSetSideEffectsTest, SetWithoutViewpointsAsksForNoCamera) {
  RecordingCameras cameras;
  select();
  EXPECT_THAT(cameras.calls, IsEmpty());
}

TEST_F(kuVariantSetSideEffectsTest,
       MissingCameraServiceIsToldOncePerSelectionAlsoWithoutViewpoints) {
  const char* const once = "kuKernelServiceFactory: couldn't find class 'kuCameraService'!\n";
  const NoCameras none;
  for (const bool skipped : {false, true}) {
    testing::internal::CaptureStderr();
    set().select(true, skipped, false);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), once);
  }
  testing::internal::CaptureStderr();
  set().selectDefault();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(kuVariantSetSideEffectsTest, CameraServiceThatIsNullIsToldOncePerSelection) {
  fill();
  const NoCameras none;
  kuKernelServiceFactory::the().registerService<kuCameraService>(nullptr);
  testing::internal::CaptureStderr();
  select();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "kuKernelServiceFactory: service 'kuCameraService' is NULL!\n");
  EXPECT_EQ(viewpoint(), "");
}

TEST_F(kuVariantSetSideEffectsTest, MissingCameraServiceIsPassedOverAndAskedForOnce) {
  fill();
  const NoCameras none;
  testing::internal::CaptureStderr();
  select();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "kuKernelServiceFactory: couldn't find class 'kuCameraService'!\n");
  EXPECT_EQ(viewpoint(), "");
  EXPECT_EQ(SceneBuilder::choice(badgeNode()), 1);
  EXPECT_THAT(startedAnimations(), ElementsAre("D", "W"));
}

TEST_F(kuVariantSetSideEffectsTest, CameraServiceThatGoesDuringTheSelectionIsPassedOver) {
  fill();
  std::unique_ptr<NoCameras> none;
  {
    const MessageWatch watch([&](const PassedMessage& message) {
      if (message.name == "animationStart" && !none) none = std::make_unique<NoCameras>();
    });
    select();
  }
  EXPECT_EQ(viewpoint(), "Front");
}
