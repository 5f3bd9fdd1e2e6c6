#include "standalone/kernel/MessageWatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/kernel/kuController.h"
#include "host/kernel/kuModuleBase.h"
#include "support/MessageRecorder.h"

using kuStandalone::MessageWatch;
using kuStandalone::PassedMessage;
using ::testing::ElementsAre;

namespace {

std::vector<std::string> heard;

void receiver(kuMessage&) { heard.push_back("receiver"); }
void sendsInner(kuMessage&) { kuController::call("watchTest.inner", 0); }
void changesTheRecord(kuMessage& message) { message.set("name", std::string("changed"), true); }

class MessageWatchTest : public ::testing::Test {
 protected:
  MessageWatchTest() { heard.clear(); }
  ~MessageWatchTest() override {
    for (const auto callback : {receiver, sendsInner, changesTheRecord}) {
      kuController::subCB("watchTest", callback);
    }
  }
};

MessageWatch::Watcher noting(const std::string& text) {
  return [text](const PassedMessage&) { heard.push_back(text); };
}

}  // namespace

TEST_F(MessageWatchTest, WatchersHearInOrderAndBeforeReceivers) {
  kuController::addCB("watchTest", receiver);
  const MessageWatch a(noting("watch a"));
  const MessageWatch b(noting("watch b"));
  kuController::call("watchTest", 1);
  EXPECT_THAT(heard, ElementsAre("watch a", "watch b", "receiver"));
}

TEST_F(MessageWatchTest, WatcherHearsMessagesWithoutReceiver) {
  const MessageRecorder recorder;
  kuMessage message;
  message.set("variantName", std::string("Roof"), true);
  EXPECT_FALSE(kuController::call("watchTest", message, 0));
  EXPECT_FALSE(kuController::call("watchTest", 7));
  EXPECT_THAT(recorder.lines(),
              ElementsAre("watchTest/0 variantName:string=Roof", "watchTest/7 bare"));
}

TEST_F(MessageWatchTest, EmptyRecordIsARecord) {
  const MessageRecorder recorder;
  kuMessage message;
  kuController::call("watchTest", message, 1);
  EXPECT_THAT(recorder.lines(), ElementsAre("watchTest/1"));
}

TEST_F(MessageWatchTest, NumberedMessageReachesWatchers) {
  const MessageRecorder recorder;
  kuMessage message(std::int64_t(0x10000));
  kuModuleBase::sendMessage(message, false);
  EXPECT_THAT(recorder.lines(), ElementsAre("#65536"));
}

TEST_F(MessageWatchTest, MessageSentByAReceiverComesAfterItsCause) {
  kuController::addCB("watchTest", sendsInner);
  const MessageRecorder recorder;
  kuController::call("watchTest", 1);
  EXPECT_THAT(recorder.lines(), ElementsAre("watchTest/1 bare", "watchTest.inner/0 bare"));
}

TEST_F(MessageWatchTest, WatcherSeesTheRecordAsItWasSent) {
  kuController::addCB("watchTest", changesTheRecord);
  const MessageRecorder recorder;
  kuMessage message;
  message.set("name", std::string("sent"), true);
  kuController::call("watchTest", message, 1);
  EXPECT_THAT(recorder.lines(), ElementsAre("watchTest/1 name:string=sent"));
}

TEST_F(MessageWatchTest, EndedWatchHearsNoMore) {
  auto watch = std::make_unique<MessageWatch>(noting("watch"));
  kuController::call("watchTest", 1);
  watch.reset();
  kuController::call("watchTest", 1);
  EXPECT_THAT(heard, ElementsAre("watch"));
}

TEST_F(MessageWatchTest, WatchMayEndInItsOwnCall) {
  std::unique_ptr<MessageWatch> watch;
  watch = std::make_unique<MessageWatch>([&watch](const PassedMessage& message) {
    watch.reset();
    heard.push_back(message.name);
  });
  const MessageWatch other(noting("other"));
  kuController::call("watchTest", 1);
  kuController::call("watchTest", 1);
  EXPECT_THAT(heard, ElementsAre("watchTest", "other", "other"));
}

TEST_F(MessageWatchTest, WatchMadeDuringAMessageHearsTheNext) {
  std::vector<std::unique_ptr<MessageWatch>> later;
  const MessageWatch watch([&later](const PassedMessage&) {
    heard.push_back("watch");
    if (later.empty()) later.push_back(std::make_unique<MessageWatch>(noting("later")));
  });
  kuController::call("watchTest", 1);
  kuController::call("watchTest", 1);
  EXPECT_THAT(heard, ElementsAre("watch", "watch", "later"));
}
