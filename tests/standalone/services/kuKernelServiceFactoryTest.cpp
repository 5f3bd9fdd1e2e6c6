#include "host/services/kuKernelServiceFactory.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class ProbeService : public kuBaseService {};
class OtherService : public kuBaseService {};

class kuKernelServiceFactoryTest : public ::testing::Test {
 protected:
  ~kuKernelServiceFactoryTest() override { factory.unregisterService<ProbeService>(); }

  std::string errorsOfAsking() {
    ::testing::internal::CaptureStderr();
    answer = factory.getService<ProbeService>();
    return ::testing::internal::GetCapturedStderr();
  }

  kuKernelServiceFactory& factory = kuKernelServiceFactory::the();
  ProbeService* answer = nullptr;
};

}  // namespace

TEST_F(kuKernelServiceFactoryTest, RegisteredServiceIsGivenByItsClass) {
  ProbeService service;
  factory.registerService<ProbeService>(&service);
  EXPECT_EQ(errorsOfAsking(), "");
  EXPECT_EQ(answer, &service);
}

TEST_F(kuKernelServiceFactoryTest, MissingServiceIsToldWithItsClass) {
  EXPECT_EQ(errorsOfAsking(),
            "kuKernelServiceFactory: couldn't find class '(anonymous namespace)::ProbeService'!\n");
  EXPECT_EQ(answer, nullptr);
}

TEST_F(kuKernelServiceFactoryTest, NullServiceIsToldWithItsClass) {
  factory.registerService<ProbeService>(nullptr);
  EXPECT_EQ(errorsOfAsking(),
            "kuKernelServiceFactory: service '(anonymous namespace)::ProbeService' is NULL!\n");
  EXPECT_EQ(answer, nullptr);
}

TEST_F(kuKernelServiceFactoryTest, LaterServiceTakesThePlaceOfAFormerOne) {
  ProbeService former;
  ProbeService later;
  factory.registerService<ProbeService>(&former);
  factory.registerService<ProbeService>(&later);
  EXPECT_EQ(errorsOfAsking(), "");
  EXPECT_EQ(answer, &later);
}

TEST_F(kuKernelServiceFactoryTest, EndedRegistrationIsMissing) {
  ProbeService service;
  factory.registerService<ProbeService>(&service);
  factory.unregisterService<ProbeService>();
  factory.unregisterService<OtherService>();
  EXPECT_NE(errorsOfAsking(), "");
  EXPECT_EQ(answer, nullptr);
}
