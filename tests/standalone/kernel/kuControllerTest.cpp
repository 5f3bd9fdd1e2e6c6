#include "host/kernel/kuController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/kernel/kuConnector.h"
#include "host/kernel/kuOSGWidget.h"
#include "standalone/kernel/HostState.h"

using kuStandalone::HostState;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::vector<std::string> heard;

void first(kuMessage&) { heard.push_back("first"); }
void second(kuMessage&) { heard.push_back("second"); }

void reader(kuMessage& message) {
  std::string text = "nothing";
  message.get("name", text);
  heard.push_back(text);
}

void removesItself(kuMessage&) {
  heard.push_back("removesItself");
  kuController::subCB("busTest", removesItself);
}

void removesFirst(kuMessage&) {
  heard.push_back("removesFirst");
  kuController::subCB("busTest", first);
}

void addsFirst(kuMessage&) {
  heard.push_back("addsFirst");
  kuController::addCB("busTest", first);
}

void sendsAnother(kuMessage&) {
  heard.push_back("sendsAnother");
  kuController::call("busTest.inner", 1);
}

void sendsItselfOnce(kuMessage&) {
  heard.push_back("sendsItselfOnce");
  kuController::subCB("busTest", sendsItselfOnce);
  kuController::call("busTest", 1);
}

void throws(kuMessage&) { throw 1; }

/** Registers while static objects are constructed, and leaves while they are destroyed. */
struct StaticReceiver {
  StaticReceiver() { kuController::addCB("busTest.static", first); }
  ~StaticReceiver() {
    kuController::subCB("busTest.static", first);
    kuController::call("busTest.static", 1);
  }
};
const StaticReceiver staticReceiver;

class kuControllerTest : public ::testing::Test {
 protected:
  kuControllerTest() {
    HostState::the() = HostState();
    heard.clear();
  }
  ~kuControllerTest() override {
    for (const auto callback : {first, second, reader, removesItself, removesFirst, addsFirst,
                                sendsAnother, sendsItselfOnce, throws}) {
      kuController::subCB("busTest", callback);
      kuController::subCB("busTest.inner", callback);
    }
  }
};

}  // namespace

TEST_F(kuControllerTest, MessageWithoutReceiverReachesNobody) {
  kuMessage message;
  EXPECT_FALSE(kuController::call("busTest.nobody", message, 1));
  EXPECT_FALSE(kuController::call("busTest.nobody", 0));
}

TEST_F(kuControllerTest, ReceiversHearInTheOrderOfRegistration) {
  kuController::addCB("busTest", second);
  kuController::addCB("busTest", first);
  EXPECT_TRUE(kuController::call("busTest", 1));
  EXPECT_THAT(heard, ElementsAre("second", "first"));
}

TEST_F(kuControllerTest, MessagesOfAnotherNameAreNotHeard) {
  kuController::addCB("busTest", first);
  EXPECT_FALSE(kuController::call("busTest.inner", 1));
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(kuControllerTest, ReceiverReadsTheAttributesBeforeCallReturns) {
  kuController::addCB("busTest", reader);
  kuMessage message;
  message.set("name", std::string("Roof"), true);
  kuController::call("busTest", message, 1);
  EXPECT_THAT(heard, ElementsAre("Roof"));
}

TEST_F(kuControllerTest, CallWithoutRecordGivesTheReceiverAnEmptyOne) {
  kuController::addCB("busTest", reader);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("nothing"));
}

TEST_F(kuControllerTest, SecondRegistrationOfACallbackChangesNothing) {
  kuController::addCB("busTest", first);
  kuController::addCB("busTest", first);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("first"));
  kuController::subCB("busTest", first);
  EXPECT_FALSE(kuController::call("busTest", 1));
}

TEST_F(kuControllerTest, RemovalOfAnUnknownCallbackChangesNothing) {
  kuController::subCB("busTest.never", first);
  kuController::addCB("busTest", first);
  kuController::subCB("busTest", second);
  EXPECT_TRUE(kuController::call("busTest", 1));
}

TEST_F(kuControllerTest, CallbackRegisteredByAStaticObjectHears) {
  EXPECT_TRUE(kuController::call("busTest.static", 1));
  EXPECT_THAT(heard, ElementsAre("first"));
}

TEST_F(kuControllerTest, NullNameAndNullCallbackAreSafe) {
  kuController::addCB(nullptr, first);
  kuController::addCB("busTest", nullptr);
  kuController::subCB(nullptr, first);
  kuMessage message;
  EXPECT_FALSE(kuController::call(nullptr, message, 1));
  EXPECT_FALSE(kuController::call(nullptr, 1));
  EXPECT_FALSE(kuController::call("busTest", 1));
}

TEST_F(kuControllerTest, CallbackThatRemovesItselfIsFollowedByTheOthers) {
  kuController::addCB("busTest", removesItself);
  kuController::addCB("busTest", first);
  kuController::call("busTest", 1);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("removesItself", "first", "first"));
}

TEST_F(kuControllerTest, CallbackRemovedDuringDeliveryHearsNoMore) {
  kuController::addCB("busTest", removesFirst);
  kuController::addCB("busTest", first);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("removesFirst"));
}

TEST_F(kuControllerTest, CallbackAddedDuringDeliveryHearsTheNextMessage) {
  kuController::addCB("busTest", addsFirst);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("addsFirst"));
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("addsFirst", "addsFirst", "first"));
}

TEST_F(kuControllerTest, MessageSentByACallbackIsDeliveredWithin) {
  kuController::addCB("busTest", sendsAnother);
  kuController::addCB("busTest", second);
  kuController::addCB("busTest.inner", first);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("sendsAnother", "first", "second"));
}

TEST_F(kuControllerTest, RemovalInsideANestedDeliveryKeepsTheOuterOneGoing) {
  kuController::addCB("busTest", sendsItselfOnce);
  kuController::addCB("busTest", second);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("sendsItselfOnce", "second", "second"));
}

TEST_F(kuControllerTest, CallbackThatThrowsLeavesTheBusUsable) {
  kuController::addCB("busTest", throws);
  EXPECT_ANY_THROW(kuController::call("busTest", 1));
  kuController::subCB("busTest", throws);
  kuController::addCB("busTest", first);
  kuController::call("busTest", 1);
  EXPECT_THAT(heard, ElementsAre("first"));
}

TEST_F(kuControllerTest, RequestsForFramesAreCountedWithTheirFlag) {
  kuController::updateRender(true);
  EXPECT_TRUE(HostState::the().lastRenderRequestNow);
  kuController::updateRender(false);
  EXPECT_FALSE(HostState::the().lastRenderRequestNow);
  EXPECT_EQ(HostState::the().renderRequests, 2u);
}

TEST_F(kuControllerTest, BusyStateIsKeptWithoutAWindow) {
  EXPECT_EQ(kuController::getMainWindow(), nullptr);
  kuController::setBusy(true, true);
  EXPECT_TRUE(HostState::the().busy);
  kuController::setBusy(false, true);
  EXPECT_FALSE(HostState::the().busy);
}

TEST_F(kuControllerTest, CancelledAntialiasingIsCounted) {
  kuOSGWidget::cancelAntialiasing();
  EXPECT_EQ(HostState::the().antialiasingCancels, 1u);
}

TEST_F(kuControllerTest, ConnectorAnswersWhatTheApplicationSet) {
  EXPECT_FALSE(kuConnector::the()->syncVariants());
  HostState::the().syncVariants = true;
  EXPECT_TRUE(kuConnector::the()->syncVariants());
}
