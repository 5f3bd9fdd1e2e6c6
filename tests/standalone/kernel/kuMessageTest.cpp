#include "host/kernel/kuMessage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

std::vector<std::string> namesOf(const kuMessage& message) {
  std::vector<std::string> names;
  for (const kuMessage::Attribute& attribute : message.attributes()) {
    names.push_back(attribute.first);
  }
  return names;
}

std::string errorsOfReading(const kuMessage& message, int& out, bool& answer) {
  ::testing::internal::CaptureStderr();
  answer = message.get("count", out);
  return ::testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(kuMessageTest, AttributeComesBackAsItsType) {
  kuMessage message;
  message.set("instantaneous", true, true);
  bool flag = false;
  EXPECT_TRUE(message.get("instantaneous", flag));
  EXPECT_TRUE(flag);
}

TEST(kuMessageTest, AbsentAttributeGivesFalseInSilenceAndLeavesTheValue) {
  int value = 7;
  bool answer = true;
  EXPECT_EQ(errorsOfReading(kuMessage(), value, answer), "");
  EXPECT_FALSE(answer);
  EXPECT_EQ(value, 7);
}

TEST(kuMessageTest, WrongTypeNamesBothTypesAndLeavesTheValue) {
  kuMessage message;
  message.set("count", 1.5, true);
  int value = 7;
  bool answer = true;
  const std::string errors = errorsOfReading(message, value, answer);
  EXPECT_THAT(errors, StartsWith("kuMessage::get : Attribute 'count' has wrong type (is:'double' "
                                 "!= req:'int')!\n"));
  EXPECT_FALSE(answer);
  EXPECT_EQ(value, 7);
}

TEST(kuMessageTest, WrongTypePrintsABackTraceAfterTheText) {
  kuMessage message;
  message.set("count", 1.5, true);
  int value = 0;
  bool answer = true;
  const std::string errors = errorsOfReading(message, value, answer);
  EXPECT_THAT(errors.substr(errors.find('\n')), HasSubstr("libkuHost"));
}

TEST(kuMessageTest, BackTraceGoesToTheErrorStream) {
  ::testing::internal::CaptureStderr();
  kuMessage::printBT();
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("printBT"));
}

TEST(kuMessageTest, TextAsCharactersIsNotAString) {
  kuMessage message;
  message.set("count", static_cast<const char*>("Red"), true);
  ::testing::internal::CaptureStderr();
  std::string text = "before";
  EXPECT_FALSE(message.get("count", text));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("(is:'char const*' != req:'"));
  EXPECT_EQ(text, "before");
}

TEST(kuMessageTest, OverwritingReplacesTheValueAndKeepsItsPlace) {
  kuMessage message;
  message.set("a", 1, true);
  message.set("b", 2, true);
  message.set("a", 3, true);
  int value = 0;
  EXPECT_TRUE(message.get("a", value));
  EXPECT_EQ(value, 3);
  EXPECT_THAT(namesOf(message), ElementsAre("a", "b"));
}

TEST(kuMessageTest, WithoutOverwriteTheFirstValueStays) {
  kuMessage message;
  message.set("a", 1, true);
  message.set("a", 3, false);
  int value = 0;
  EXPECT_TRUE(message.get("a", value));
  EXPECT_EQ(value, 1);
}

TEST(kuMessageTest, AttributesStandInTheOrderInWhichTheyWereSet) {
  kuMessage message;
  std::vector<std::string> names;
  for (int i = 12; i > 0; --i) {
    names.push_back("attribute" + std::to_string(i));
    message.set(names.back(), i, true);
  }
  EXPECT_EQ(namesOf(message), names);
}

TEST(kuMessageTest, NumberedMessageHasANumberAndNoAttributes) {
  const kuMessage message(std::int64_t(0x10000));
  EXPECT_EQ(message.number(), 65536);
  EXPECT_TRUE(message.attributes().empty());
  EXPECT_EQ(kuMessage().number(), 0);
}
