#include "standalone/session/SessionLog.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "standalone/kernel/LogSink.h"

using namespace kuStandalone;

namespace {

class SessionLogTest : public ::testing::Test {
 protected:
  SessionLog::Clock::time_point now = SessionLog::Clock::now();
  QStringList lines;
  LogSink sink{
      [this](LogLevel, const std::string& text) { lines << QString::fromStdString(text); }};
};

}  // namespace

TEST_F(SessionLogTest, TheFirstIsTold) {
  SessionLog log([this] { return now; });
  log.dropped("Ben", "it is cut off");
  EXPECT_EQ(lines, QStringList{"Session: a message of Ben was dropped: it is cut off"});
}

TEST_F(SessionLogTest, AMinuteLaterTheOthersAreCounted) {
  SessionLog log([this] { return now; });
  for (int count = 0; count < 5; ++count)
    log.dropped("", "it is no frame");
  now += std::chrono::seconds(59);
  log.dropped("", "it is too long");
  now += std::chrono::seconds(1);
  log.dropped("", "it is cut off");
  EXPECT_EQ(lines,
            (QStringList{"Session: a message was dropped: it is no frame",
                         "Session: a message was dropped: it is cut off; so were 5 others"}));
}

TEST_F(SessionLogTest, TheEndTellsHowManyWereNotTold) {
  {
    SessionLog log([this] { return now; });
    for (int count = 0; count < 3; ++count)
      log.dropped("", "it is no frame");
  }
  EXPECT_EQ(lines, (QStringList{"Session: a message was dropped: it is no frame",
                                "Session: 2 more messages were dropped"}));
}

TEST_F(SessionLogTest, WhatWasCountedIsNotCountedAgain) {
  {
    SessionLog log([this] { return now; });
    for (int count = 0; count < 3; ++count)
      log.dropped("", "it is no frame");
    now += std::chrono::minutes(1);
    log.dropped("", "it is no frame");
    now += std::chrono::minutes(1);
    log.dropped("", "it is no frame");
  }
  EXPECT_EQ(lines, (QStringList{"Session: a message was dropped: it is no frame",
                                "Session: a message was dropped: it is no frame; so were 2 others",
                                "Session: a message was dropped: it is no frame"}));
}

TEST_F(SessionLogTest, APartnerCannotForgeALine) {
  SessionLog log([this] { return now; });
  log.dropped("Ben\nerror: x", QString(1000, 'x'));
  ASSERT_EQ(lines.size(), 1);
  EXPECT_FALSE(lines.front().contains('\n'));
  EXPECT_LT(lines.front().size(), 400);
}
