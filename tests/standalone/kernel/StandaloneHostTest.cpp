#include "standalone/StandaloneHost.h"

#include "host/services/kuCameraService.h"
#include "host/services/kuKernelServiceFactory.h"
#include "host/services/kuSceneplateService.h"
#include "host/services/kuTransformService.h"
#include "host/session/kuSession.h"
#include "support/SceneTest.h"

namespace {

class StandaloneHostTest : public SceneTest {};

}  // namespace

TEST_F(StandaloneHostTest, ThreeServicesAreRegisteredWhileItLives) {
  const kuKernelServiceFactory& factory = kuKernelServiceFactory::the();
  EXPECT_NE(factory.getService<kuCameraService>(), nullptr);
  EXPECT_NE(factory.getService<kuSceneplateService>(), nullptr);
  EXPECT_NE(factory.getService<kuTransformService>(), nullptr);
}

TEST_F(StandaloneHostTest, SessionIsNotReadyWithoutPartners) {
  EXPECT_FALSE(kuSession::the().isReadyToUse());
}
