// Each keyword in each place: which of them pass differs from place to place, and on purpose.

#include "VerifierTest.h"

using ::testing::ElementsAre;

namespace {

const QStringList Keywords = {"!All",  "!None",        "!Enable",   "!Disable",        "!Toggle",
                              "!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)"};

/** A place where a keyword can stand, and the keywords that pass there. */
struct KeywordPlace {
  const char* title;
  void (*put)(const QString& keyword);
  QStringList passing;
  const char* valid;
  /** What is told of any other; "%" stands for the keyword. */
  std::string error;
};

std::ostream& operator<<(std::ostream& stream, const KeywordPlace& place) {
  return stream << place.title;
}

class Keyword : public VerifierTest, public ::testing::WithParamInterface<KeywordPlace> {
 protected:
  static std::string expected(const QString& keyword) {
    if (GetParam().passing.contains(keyword)) return GetParam().valid;
    std::string line = GetParam().error;
    const std::size_t place = line.find('%');
    if (place != std::string::npos) line.replace(place, 1, keyword.toStdString());
    return line;
  }
};

TEST_P(Keyword, PassesOrFailsAsTheTableSays) {
  for (const QString& keyword : Keywords) {
    kuVariants::clearNodeVariants();
    kuVariants::clearMaterialVariants();
    GetParam().put(keyword);
    EXPECT_THAT(report(), ElementsAre(expected(keyword)));
  }
}

const auto Title = [](const auto& info) { return std::string(info.param.title); };

INSTANTIATE_TEST_SUITE_P(
    Places, Keyword,
    ::testing::Values(
        KeywordPlace{"DefaultOfASwitch",
                     [](const QString& keyword) { nodeVariant("Roof", keyword, {keyword}); },
                     {"!All", "!None", "!Enable", "!Disable"},
                     "Info,NodeVariant,V,Roof,,valid",
                     "Error,NodeVariant,V,Roof,%,default node state not found in switch node"},
        KeywordPlace{"DefaultOfASwitchThatListsItNot",
                     [](const QString& keyword) { nodeVariant("Roof", keyword, {"Open"}); },
                     {},
                     "",
                     "Error,NodeVariant,V,Roof,%,default node state not found in node variant"},
        KeywordPlace{"OptionOfASwitch",
                     [](const QString& keyword) { nodeVariant("Roof", "", {keyword}); },
                     {"!All", "!None", "!Enable", "!Disable", "!Next", "!Next (Loop)", "!Previous",
                      "!Previous (Loop)"},
                     "Info,NodeVariant,V,Roof,,valid",
                     "Error,NodeVariant,V,Roof,%,node state not found in switch node"},
        KeywordPlace{"DefaultOfAnotherNode",
                     [](const QString& keyword) { nodeVariant("Car", keyword, {}); },
                     {"!Enable", "!Disable"},
                     "Info,NodeVariant,V,Car,,valid",
                     "Error,NodeVariant,V,Car,,"
                     "node is not a switch-node and has illegal default value"},
        KeywordPlace{"OptionOfAnotherNode",
                     [](const QString& keyword) { nodeVariant("Car", "", {keyword}); },
                     {"!Enable", "!Disable", "!Toggle"},
                     "Info,NodeVariant,V,Car,,valid",
                     "Error,NodeVariant,V,Car,%,node state not found in switch node"},
        KeywordPlace{"DefaultOfATransformNode",
                     [](const QString& keyword) { nodeVariant("Door", keyword, {}); },
                     {"!Enable", "!Disable"},
                     "Info,NodeVariant,V,Door,,valid",
                     "Error,NodeVariant,V,Door,,"
                     "node is not a switch-node and has illegal default value"},
        KeywordPlace{"OptionOfATransformNode",
                     [](const QString& keyword) { nodeVariant("Door", "", {keyword}); },
                     {"!Enable", "!Disable", "!Toggle"},
                     "Info,NodeVariant,V,Door,,valid",
                     "Error,NodeVariant,V,Door,%,node state not found in switch node"},
        KeywordPlace{"DefaultOfAMaterial",
                     [](const QString& keyword) { materialVariant("Paint", keyword, {keyword}); },
                     {},
                     "",
                     "Error,MaterialVariant,M,Paint,%,"
                     "default material state not found in switch material"},
        KeywordPlace{"OptionOfAMaterial",
                     [](const QString& keyword) { materialVariant("Paint", "", {keyword}); },
                     {"!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)"},
                     "Info,MaterialVariant,M,Paint,,valid",
                     "Error,MaterialVariant,M,Paint,%,"
                     "material state not found in switch material"}),
    Title);

// A thing of the scene may bear the name of a keyword; it passes by its name then.

TEST_F(VerifierTest, AChildOfTheNameToggleMakesTheOptionOfASwitchPass) {
  scene.switchNode("Lid", 0, {"!Toggle"});
  nodeVariant("Lid", "!Toggle", {"!Toggle"});
  EXPECT_THAT(report(), ElementsAre("Info,NodeVariant,V,Lid,,valid"));
}

TEST_F(VerifierTest, AStateOfTheNameNextMakesTheDefaultOfAMaterialPass) {
  scene.presetMaterial("Steps", {"!Next"}, 0);
  materialVariant("Steps", "!Next", {"!Next"});
  EXPECT_THAT(report(), ElementsAre("Info,MaterialVariant,M,Steps,,valid"));
}

}  // namespace
