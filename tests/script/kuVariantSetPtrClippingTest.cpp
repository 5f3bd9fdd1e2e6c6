#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <clocale>
#include <cstdio>

#include "VariantsScriptTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "script/kuVariantSetPtr.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/ScriptPolicy.h"

using kuStandalone::ClippingSettings;
using kuStandalone::ScriptPolicy;
using ::testing::IsEmpty;

namespace {

struct Clipping {
  int state = 0;
  osg::Vec3f position, normal, planeColor, gridColor, contourColor;
  int contourWidth = 0;
  bool invert = false, hideScene = false, showPlane = false, showGrid = false, showContour = false;
};

void fill(kuVariantSet& set, const Clipping& clipping) {
#define KU_VECTOR(setter, value, x, y, z) \
  set.setter##x((value)[0]);              \
  set.setter##y((value)[1]);              \
  set.setter##z((value)[2])
  KU_VECTOR(setClippingPlanePosition, clipping.position, X, Y, Z);
  KU_VECTOR(setClippingPlaneNormal, clipping.normal, X, Y, Z);
  KU_VECTOR(setClippingPlaneColor, clipping.planeColor, R, G, B);
  KU_VECTOR(setClippingGridColor, clipping.gridColor, R, G, B);
  KU_VECTOR(setClippingContourColor, clipping.contourColor, R, G, B);
#undef KU_VECTOR
  set.setClippingState(clipping.state);
  set.setClippingContourWidth(clipping.contourWidth);
  set.setClippingInvert(clipping.invert);
  set.setClippingHideScene(clipping.hideScene);
  set.setClippingShowPlane(clipping.showPlane);
  set.setClippingShowGrid(clipping.showGrid);
  set.setClippingShowContour(clipping.showContour);
}

std::string text(const osg::Vec3f& vector) {
  char buffer[100];
  std::snprintf(buffer, sizeof buffer, "(%g %g %g)", double(vector[0]), double(vector[1]),
                double(vector[2]));
  return buffer;
}

/** All of a set's clipping in one line. */
std::string clippingOf(const kuVariantSet& set) {
  std::string line = std::to_string(set.getClippingState());
  for (const osg::Vec3f& vector :
       {set.getClippingPlanePosition(), set.getClippingPlaneNormal(), set.getClippingPlaneColor(),
        set.getClippingGridColor(), set.getClippingContourColor()}) {
    line += ' ' + text(vector);
  }
  line += ' ' + std::to_string(set.getClippingContourWidth()) + ' ';
  for (const bool flag :
       {set.getClippingInvert(), set.getClippingHideScene(), set.getClippingShowPlane(),
        set.getClippingShowGrid(), set.getClippingShowContour()}) {
    line += flag ? '1' : '0';
  }
  return line;
}

/** With the set "A", which scripts know as s and whose clipping is unlike any that is asked. */
class SetPtrClipping : public VariantsScriptTest {
 protected:
  SetPtrClipping() : set(kuVariants::createVariantSet("A", false, nullptr)) {
    put("s", set);
    fill(*set, {2, {-1, -2, -3}, {-4, -5, -6}, {9, 9, 9}, {8, 8, 8}, {7, 7, 7}, 99});
  }

  kuVariantSet* set;
};

TEST_F(SetPtrClipping, StateIsStoredAndNothingElse) {
  EXPECT_TRUE(run("s.setClippingState(3)"));
  EXPECT_EQ(clippingOf(*set), "3 (-1 -2 -3) (-4 -5 -6) (9 9 9) (8 8 8) (7 7 7) 99 00000");
}

TEST_F(SetPtrClipping, AddClippingPlaneLeavesColoursWidthAndState) {
  EXPECT_TRUE(
      run("s.addClippingPlane(Pnt3f(1, 2.5, 3), Vec3f(0, 0, 1), True, True, True, True, "
          "True)"));
  EXPECT_EQ(clippingOf(*set), "2 (1 2.5 3) (0 0 1) (9 9 9) (8 8 8) (7 7 7) 99 11111");
}

TEST_F(SetPtrClipping, AddClippingPlaneStoresEachFlagInItsPlace) {
  const char* const flags[] = {"10000", "01000", "00100", "00010", "00001"};
  for (const std::string row : flags) {
    std::string arguments;
    for (const char flag : row)
      arguments += flag == '1' ? ", True" : ", False";
    EXPECT_TRUE(run("s.addClippingPlane(Pnt3f(), Vec3f()" + arguments + ")"));
    EXPECT_EQ(clippingOf(*set), "2 (0 0 0) (0 0 0) (9 9 9) (8 8 8) (7 7 7) 99 " + row);
  }
}

TEST_F(SetPtrClipping, AddCurrentTakesAllButTheStateFromTheApplication) {
  ClippingSettings& now = ClippingSettings::the();
  now.enabled = true;
  now.position = {1, -2.5f, 1e6f};
  now.normal = {0, 0, 1};
  now.planeColor = {0.1f, 0.2f, 0.3f};
  now.gridColor = {0.4f, 0.5f, 0.6f};
  now.contourColor = {0.7f, 0.8f, 0.9f};
  now.contourWidth = 5;
  now.invert = now.hideScene = true;
  now.showGrid = false;
  EXPECT_TRUE(run("s.addCurrentClippingPlane()"));
  EXPECT_EQ(clippingOf(*set),
            "2 (1 -2.5 1e+06) (0 0 1) (0.1 0.2 0.3) (0.4 0.5 0.6) (0.7 0.8 0.9) 5 11101");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(SetPtrClipping, AddCurrentWorksWhileScriptsAreOff) {
  ScriptPolicy::allow(false);
  kuVariantSetPtr(set).addCurrentClippingPlane();
  EXPECT_EQ(clippingOf(*set), "2 (0 0 0) (0 1 0) (0.2 0.3 0.4) (0.63 0.82 0.89) (1 0.7 0) 1 00111");
  EXPECT_EQ(ScriptPolicy::refusalCount(), 0u);
}

/** The steps in their order. */
struct Step {
  const char* function;
  /** An answer as Python text, and the line that it gives where all others answer nothing. */
  const char* answered;
  const char* line;
};

void PrintTo(const Step& step, std::ostream* out) { *out << step.function; }

const Step kSteps[] = {
    {"getClippingPlanePosition", "1.5 , 2 , 3",
     "2 (1.5 2 3) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 1 00000"},
    {"getClippingPlaneNormal", "1.5 , 2 , 3",
     "2 (0 0 0) (1.5 2 3) (0 0 0) (0 0 0) (0 0 0) 1 00000"},
    {"getClippingPlaneColor", "1.5 , 2 , 3", "2 (0 0 0) (0 0 0) (1.5 2 3) (0 0 0) (0 0 0) 1 00000"},
    {"getClippingGridColor", "1.5 , 2 , 3", "2 (0 0 0) (0 0 0) (0 0 0) (1.5 2 3) (0 0 0) 1 00000"},
    {"getClippingContourColor", "1.5 , 2 , 3",
     "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (1.5 2 3) 1 00000"},
    {"getClippingContourWidth", "7", "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 7 00000"},
    {"getClippingPlaneInvertDirection", "True",
     "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 1 10000"},
    {"getClippingHideScene", "True", "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 1 01000"},
    {"getClippingShowPlane", "True", "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 1 00100"},
    {"getClippingShowGrid", "True", "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 1 00010"},
    {"getClippingShowContour", "True", "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 1 00001"},
};

/** With an interpreter that answers nothing to any question about the clipping. */
class SetPtrClippingAnswers : public SetPtrClipping {
 protected:
  SetPtrClippingAnswers() {
    EXPECT_TRUE(run("asked = []"));
    for (const Step& step : kSteps)
      answerWith(step.function, "");
  }

  static void answerWith(const std::string& function, const std::string& text) {
    EXPECT_TRUE(
        run("def " + function + "(): asked.append('" + function + "'); return '" + text + "'\n"));
  }
};

TEST_F(SetPtrClippingAnswers, AreAskedForInThisOrder) {
  std::string order;
  for (const Step& step : kSteps)
    order += std::string(order.empty() ? "" : " ") + step.function;
  EXPECT_TRUE(run("s.addCurrentClippingPlane()"));
  EXPECT_EQ(answer("' '.join(asked)"), order);
}

class ClippingStep : public SetPtrClippingAnswers, public ::testing::WithParamInterface<Step> {};

TEST_P(ClippingStep, StoresTheAnswerInItsPlace) {
  answerWith(GetParam().function, GetParam().answered);
  EXPECT_TRUE(run("s.addCurrentClippingPlane()"));
  EXPECT_EQ(clippingOf(*set), GetParam().line);
}

TEST_P(ClippingStep, FailsToTheDefault) {
  for (const char* failing : {"del ", "def "}) {
    const std::string statement = std::string(failing) + GetParam().function;
    EXPECT_TRUE(run(statement + (failing[2] == 'f' ? "(): raise ValueError" : "")));
    EXPECT_TRUE(run("s.addCurrentClippingPlane()"));
    EXPECT_EQ(clippingOf(*set), "2 (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0) 1 00000");
  }
}

INSTANTIATE_TEST_SUITE_P(Table, ClippingStep, ::testing::ValuesIn(kSteps),
                         [](const auto& row) { return std::string(row.param.function); });

struct Reading {
  const char* name;
  const char* function;
  const char* answered;
  const char* read;
};

void PrintTo(const Reading& reading, std::ostream* out) { *out << reading.name; }

class ClippingReading : public SetPtrClippingAnswers,
                        public ::testing::WithParamInterface<Reading> {};

TEST_P(ClippingReading, TakesWhatItCan) {
  answerWith(GetParam().function, GetParam().answered);
  EXPECT_TRUE(run("s.addCurrentClippingPlane()"));
  const std::string function = GetParam().function;
  const std::string stored =
      function == "getClippingContourWidth" ? std::to_string(set->getClippingContourWidth())
      : function == "getClippingHideScene"  ? std::to_string(set->getClippingHideScene())
                                            : text(set->getClippingPlanePosition());
  EXPECT_EQ(stored, GetParam().read);
}

constexpr const char* kVector = "getClippingPlanePosition";
constexpr const char* kWidth = "getClippingContourWidth";
constexpr const char* kFlag = "getClippingHideScene";

const Reading kReadings[] = {
    {"VectorWithCommas", kVector, "1 , 2 , 3", "(1 2 3)"},
    {"VectorWithOtherWords", kVector, "1 and 2 ninechars 3", "(1 2 3)"},
    {"VectorThatEndsEarly", kVector, "1 , 2", "(1 2 0)"},
    {"VectorOfOneNumber", kVector, "-1.5", "(-1.5 0 0)"},
    {"VectorWithABadNumber", kVector, "1 , x , 3", "(1 0 0)"},
    {"VectorWithoutBlanks", kVector, "1,2,3", "(1 0 0)"},
    {"VectorInBrackets", kVector, "(1, 2, 3)", "(0 0 0)"},
    {"VectorWithTheLongestWord", kVector, "1 ninechars 2 , 3", "(1 2 3)"},
    {"VectorWithAWordThatIsTooLong", kVector, "1 tencharact 2 , 3", "(1 0 0)"},
    {"VectorWithAWordWithoutEnd", kVector, "1 xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx",
     "(1 0 0)"},
    {"VectorInExponents", kVector, "1e3 , -2.5E-1 , 0", "(1000 -0.25 0)"},
    {"WidthDecimal", kWidth, "12", "12"},
    {"WidthHexadecimal", kWidth, "0x10", "16"},
    {"WidthOctal", kWidth, "010", "8"},
    {"WidthNegative", kWidth, "-3", "-3"},
    {"WidthWithAFraction", kWidth, "7.9", "7"},
    {"WidthThatIsNoNumber", kWidth, "wide", "1"},
    {"FlagTrue", kFlag, "True", "1"},
    {"FlagFalse", kFlag, "False", "0"},
    {"FlagInSmallLetters", kFlag, "true", "0"},
    {"FlagAsANumber", kFlag, "1", "0"},
    {"FlagWithABlankBehind", kFlag, "True ", "0"},
    {"FlagWithABlankBefore", kFlag, " True", "0"},
    {"FlagWithMore", kFlag, "TrueTrue", "0"},
};

INSTANTIATE_TEST_SUITE_P(Answers, ClippingReading, ::testing::ValuesIn(kReadings),
                         [](const auto& row) { return std::string(row.param.name); });

/** A language of the process in which numbers have a comma, made for the test. */
class CommaLanguage {
 public:
  CommaLanguage() {
    write("source",
          "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\n"
          "END LC_NUMERIC\n");
    write("characters", characters());
    QProcess::execute("localedef", {"--quiet", "-c", "-f", _folder.filePath("characters"), "-i",
                                    _folder.filePath("source"), _folder.filePath("comma")});
    qputenv("LOCPATH", _folder.path().toUtf8());
    std::setlocale(LC_NUMERIC, "comma");
  }
  ~CommaLanguage() {
    std::setlocale(LC_NUMERIC, "C");
    qunsetenv("LOCPATH");
  }
  CommaLanguage(const CommaLanguage&) = delete;
  CommaLanguage& operator=(const CommaLanguage&) = delete;

 private:
  void write(const char* name, const std::string& text) const {
    QFile file(_folder.filePath(name));
    file.open(QIODevice::WriteOnly);
    file.write(text.c_str());
  }

  /** ASCII, since not every system has the descriptions of character sets. */
  static std::string characters() {
    std::string map =
        "<code_set_name> ANSI_X3.4-1968\n<comment_char> %\n<escape_char> /\nCHARMAP\n";
    char line[40];
    for (int code = 0; code < 128; ++code) {
      std::snprintf(line, sizeof line, "<U%04X> /x%02x c\n", unsigned(code), unsigned(code));
      map += line;
    }
    return map + "END CHARMAP\n";
  }

  QTemporaryDir _folder;
};

TEST_F(SetPtrClippingAnswers, AreReadWithAPointInEveryLanguage) {
  const CommaLanguage language;
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  answerWith(kVector, "1.5 , 2.5 , 3.5");
  EXPECT_TRUE(run("s.addCurrentClippingPlane()"));
  EXPECT_EQ(set->getClippingPlanePosition(), osg::Vec3f(1.5f, 2.5f, 3.5f));
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}

}  // namespace
