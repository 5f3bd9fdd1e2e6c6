#include "standalone/kernel/LogSink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/kernel/kuLog.h"

using kuStandalone::LogLevel;
using kuStandalone::LogSink;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::pair<LogLevel, std::string>>;

LogSink::Sink into(Lines& lines) {
  return [&lines](LogLevel level, const std::string& text) { lines.emplace_back(level, text); };
}

}  // namespace

TEST(LogSinkTest, LinesGoToTheErrorStreamWithTheirLevel) {
  ::testing::internal::CaptureStderr();
  kuLog::error("no %s", "roof");
  kuLog::warning("%d doors", 5);
  kuLog::info("plain");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "error: no roof\nwarning: 5 doors\nplain\n");
}

TEST(LogSinkTest, SinkTakesThePlaceOfTheErrorStream) {
  Lines lines;
  const LogSink sink(into(lines));
  ::testing::internal::CaptureStderr();
  kuLog::error("a");
  kuLog::warning("b");
  kuLog::info("c");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(lines,
            (Lines{{LogLevel::Error, "a"}, {LogLevel::Warning, "b"}, {LogLevel::Info, "c"}}));
}

TEST(LogSinkTest, LineFeedAtTheEndIsLeftOut) {
  Lines lines;
  const LogSink sink(into(lines));
  kuLog::info("one\ntwo\n");
  EXPECT_EQ(lines, (Lines{{LogLevel::Info, "one\ntwo"}}));
}

TEST(LogSinkTest, NewestSinkTakesAll) {
  Lines outer;
  const LogSink first(into(outer));
  {
    Lines inner;
    const LogSink second(into(inner));
    kuLog::info("inside");
    EXPECT_EQ(inner, (Lines{{LogLevel::Info, "inside"}}));
  }
  EXPECT_THAT(outer, IsEmpty());
  kuLog::info("outside");
  EXPECT_EQ(outer, (Lines{{LogLevel::Info, "outside"}}));
}

TEST(LogSinkTest, OlderSinkMayEndFirst) {
  Lines lines;
  auto older = std::make_unique<LogSink>([](LogLevel, const std::string&) { FAIL(); });
  const LogSink newer(into(lines));
  older.reset();
  kuLog::info("text");
  EXPECT_EQ(lines, (Lines{{LogLevel::Info, "text"}}));
}

TEST(LogSinkTest, SinkMayEndInItsOwnCall) {
  std::vector<std::string> texts;
  std::unique_ptr<LogSink> sink;
  sink = std::make_unique<LogSink>([&](LogLevel, const std::string& text) {
    sink.reset();
    texts.push_back(text);
  });
  kuLog::info("last words");
  EXPECT_THAT(texts, ElementsAre("last words"));
}

TEST(LogSinkTest, LongTextIsKeptWhole) {
  Lines lines;
  const LogSink sink(into(lines));
  const std::string text(100000, 'x');
  kuLog::info("%s", text.c_str());
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].second, text);
}
