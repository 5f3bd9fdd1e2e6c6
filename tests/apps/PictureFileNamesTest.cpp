#include "PictureFileNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

struct Row {
  const char* name;
  std::vector<QString> sets;
  std::vector<QString> files;
};

class PictureFileNamesTest : public ::testing::TestWithParam<Row> {};

TEST_P(PictureFileNamesTest, AreSafeAndUnique) {
  const std::map<QString, QString> names = pictureFileNames(GetParam().sets);
  std::vector<QString> files;
  for (const QString& set : GetParam().sets)
    files.push_back(names.at(set));
  EXPECT_EQ(files, GetParam().files);
}

const QString longName(200, 'x');

INSTANTIATE_TEST_SUITE_P(
    Of, PictureFileNamesTest,
    ::testing::Values(
        Row{"PlainName", {"Summer_2.0"}, {"Summer_2.0.png"}},
        Row{"Blanks", {"As it  is"}, {"As-it-is.png"}},
        Row{"Folders", {"../../etc/passwd", "a\\b"}, {"etc-passwd.png", "a-b.png"}},
        Row{"Options", {"--help"}, {"help.png"}}, Row{"Hidden", {".hidden"}, {"hidden.png"}},
        Row{"DotAtTheEnd", {"End. "}, {"End.png"}},
        Row{"Accents", {QString::fromUtf8("Grün")}, {"Grun.png"}},
        Row{"OtherScripts", {QString::fromUtf8("夏")}, {"set.png"}},
        Row{"LineBreaks", {"a\nb"}, {"a-b.png"}}, Row{"Marks", {"a:b*c?\"<>|"}, {"a-b-c.png"}},
        Row{"NothingLeft", {"", "???", "..."}, {"set.png", "set-2.png", "set-3.png"}},
        Row{"Devices",
            {"CON", "nul.txt", "Com1", "Console"},
            {"set-CON.png", "set-nul.txt.png", "set-Com1.png", "Console.png"}},
        Row{"AlikeButForCase",
            {"Sport", "SPORT", "sport"},
            {"Sport.png", "SPORT-2.png", "sport-3.png"}},
        Row{"AlikeWhenSafe", {"a b", "a/b"}, {"a-b.png", "a-b-2.png"}},
        Row{"NumberThatIsTaken", {"a", "a!", "a-2"}, {"a.png", "a-2.png", "a-2-2.png"}},
        Row{"LongNames",
            {longName, longName + "y"},
            {QString(76, 'x') + ".png", QString(74, 'x') + "-2.png"}}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
