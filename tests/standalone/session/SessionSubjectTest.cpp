#include "standalone/session/SessionSubject.h"

#include <gtest/gtest.h>

#include <QSet>

using namespace kuStandalone;

namespace {

bool isOneWord(const QByteArray& word) {
  for (const char character : word) {
    const bool isPlain = (character >= 'a' && character <= 'z') ||
                         (character >= 'A' && character <= 'Z') ||
                         (character >= '0' && character <= '9');
    if (!isPlain && !QByteArray("-_~=").contains(character)) return false;
  }
  return !word.isEmpty() && word.size() <= 100;
}

}  // namespace

TEST(SessionSubjectTest, AnythingIsOneWord) {
  struct Row {
    const char* name;
    QByteArray text, word;
  };
  const Row rows[] = {
      {"plain", "Roof_1-a~", "Roof_1-a~"},
      {"empty", "", "=-"},
      {"blank", "a b", "a=20b"},
      {"dot", "a.b", "a=2Eb"},
      {"star", "*", "=2A"},
      {"all", ">", "=3E"},
      {"equals sign", "=2E", "=3D2E"},
      {"percent", "%s%n", "=25s=25n"},
      {"slash", "../x", "=2E=2E=2Fx"},
      {"dollar", "$JS", "=24JS"},
      {"line feed", "a\r\nPUB x", "a=0D=0APUB=20x"},
      {"NUL", QByteArray("\0a", 2), "=00a"},
      {"high", "\xc3\xb6", "=C3=B6"},
      {"just not long", QByteArray(100, 'x'), QByteArray(100, 'x')},
  };
  for (const Row& row : rows) {
    EXPECT_TRUE(isOneWord(subjectWord(row.text))) << row.name;
    EXPECT_EQ(subjectWord(row.text), row.word) << row.name;
  }
}

TEST(SessionSubjectTest, ALongTextGoesByItsHash) {
  const QByteArray one = subjectWord(QByteArray(1 << 20, '*'));
  EXPECT_TRUE(one.startsWith("=h"));
  EXPECT_EQ(one.size(), 66);
  EXPECT_NE(one, subjectWord(QByteArray(1 << 20, '*') + '*'));
  EXPECT_EQ(one, subjectWord(QByteArray(1 << 20, '*')));
}

TEST(SessionSubjectTest, DifferentTextsAreDifferentWords) {
  QSet<QByteArray> words;
  const QByteArrayList texts = {"",
                                "-",
                                "=-",
                                "=",
                                "h",
                                "=h",
                                " ",
                                "=20",
                                "%20",
                                ".",
                                "=2E",
                                "=2e",
                                "a",
                                "A",
                                subjectWord(QByteArray(101, 'x')),
                                QByteArray(101, 'x')};
  for (const QByteArray& text : texts)
    words << subjectWord(text);
  EXPECT_EQ(words.size(), texts.size());
}

TEST(SessionSubjectTest, TheSubjectsOfASession) {
  const SessionSubject subject("My review");
  EXPECT_EQ(subject.stream(), "ku-My=20review");
  EXPECT_EQ(subject.all(), "ku.My=20review.stream.>");
  EXPECT_EQ(subject.command("SelectVariant", QByteArray("\0R", 2)),
            "ku.My=20review.stream.command.SelectVariant.=00R");
  EXPECT_EQ(subject.script(), "ku.My=20review.stream.script");
  EXPECT_EQ(subject.presence(), "ku.My=20review.partner");
}
