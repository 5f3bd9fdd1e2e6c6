// Names outside ASCII in the report, under the locales of a process: the program runs itself once
// more for each of them, as the codec of a process is settled at its start.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextCodec>
#include <cstdio>

#include "document/kuVariantVerifier.h"
#include "manager/kuVariants.h"

namespace {

/** The line about a set "Gr\xC3\xBCn", in UTF-8. */
const QByteArray Line = "Info,VariantSet,Gr\xC3\xBCn,,,valid\n";

/** The second run, "--verify FILE [CODEC]": the report about that set. */
int verify(const QStringList& arguments) {
  if (arguments.size() > 3) {
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(arguments[3].toLatin1()));
  }
  kuVariants::createVariantSet(QString::fromUtf8("Gr\xC3\xBCn"), false, nullptr);
  const bool written = kuVariantVerifier().verify(arguments[2]);
  kuVariants::clearVariantSets();
  return written ? 0 : 1;
}

/** The second run, "--encode": prints what the codec makes of the bytes of the line. */
int encode() {
  const QByteArray bytes =
      QTextCodec::codecForLocale()->fromUnicode(QString::fromLatin1(Line.constData()));
  std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout);
  return 0;
}

/** What this program prints under a locale. */
QByteArray printedUnder(const char* locale, const QStringList& arguments) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("LC_ALL", locale);
  QProcess program;
  program.setProcessEnvironment(environment);
  program.start(QCoreApplication::applicationFilePath(), arguments);
  EXPECT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  return program.readAllStandardOutput();
}

/** The bytes of the report in both places. */
struct Report {
  QByteArray printed, written;
};

Report reportUnder(const char* locale, const QStringList& codec = {}) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("report.csv"));
  const QByteArray printed = printedUnder(locale, QStringList{"--verify", file.fileName()} + codec);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return {printed, file.readAll()};
}

TEST(ReportLocale, StandardOutputIsUtf8WhateverTheLocale) {
  EXPECT_EQ(reportUnder("C").printed, Line);
  EXPECT_EQ(reportUnder("C.UTF-8").printed, Line);
  EXPECT_EQ(reportUnder("C", {"ISO-8859-1"}).printed, Line);
}

// The stream takes each byte of the UTF-8 for a character of Latin-1.
TEST(ReportLocale, InAUtf8LocaleTheFileHasEachByteOfTheNameAsACharacter) {
  EXPECT_EQ(reportUnder("C.UTF-8").written, "Info,VariantSet,Gr\xC3\x83\xC2\xBCn,,,valid\n");
}

TEST(ReportLocale, WithACodecOfLatin1TheFileHasTheVeryBytesOfTheName) {
  EXPECT_EQ(reportUnder("C.UTF-8", {"ISO-8859-1"}).written, Line);
}

TEST(ReportLocale, InTheCLocaleTheFileHasWhatItsCodecMakesOfThoseBytes) {
  EXPECT_EQ(reportUnder("C").written, printedUnder("C", {"--encode"}));
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.value(1) == "--verify") return verify(arguments);
  if (arguments.value(1) == "--encode") return encode();
  return RUN_ALL_TESTS();
}
