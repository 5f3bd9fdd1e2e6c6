#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::HasSubstr;

namespace {

struct Expression {
  const char* name;
  const char* text;
  const char* answer;
};

void PrintTo(const Expression& expression, std::ostream* out) { *out << expression.name; }

class VectorClasses : public ScriptTest, public ::testing::WithParamInterface<Expression> {};

TEST_P(VectorClasses, Answer) {
  ScriptPolicy::allow(true);
  EXPECT_EQ(kuScript::executeNUSR(GetParam().text), GetParam().answer);
}

const Expression kExpressions[] = {
    {"TextHasWordsBetweenTheNumbers", "Vec3f(1, 2.5, -3)", "1 , 2.5 , -3"},
    {"RepresentationMakesItAgain", "repr(Pnt3f(1, 0.2, 1e20))", "Pnt3f(1, 0.2, 1e+20)"},
    {"WithoutNumbersItIsZero", "repr(Vec3f())", "Vec3f(0, 0, 0)"},
    {"Components", "(Vec3f(1, 2, 3).x, Vec3f(1, 2, 3).y, Vec3f(1, 2, 3).z)", "(1.0, 2.0, 3.0)"},
    {"Indices", "[Pnt3f(1, 2, 3)[i] for i in (0, 1, 2, -1, -3)]", "[1.0, 2.0, 3.0, 3.0, 1.0]"},
    {"Length", "len(Vec3f())", "3"},
    {"Iteration", "list(Vec3f(1, 2, 3))", "[1.0, 2.0, 3.0]"},
    {"EqualByValue", "Vec3f(1, 2, 3) == Vec3f(1, 2, 3)", "True"},
    {"UnequalByValue", "Vec3f(1, 2, 3) != Vec3f(1, 2, 4)", "True"},
    {"PlaceIsNoDirection", "Pnt3f(1, 2, 3) == Vec3f(1, 2, 3)", "False"},
    {"Keywords", "repr(Vec3f(z=3, y=2, x=1))", "Vec3f(1, 2, 3)"},
};

INSTANTIATE_TEST_SUITE_P(Expressions, VectorClasses, ::testing::ValuesIn(kExpressions),
                         [](const auto& row) { return std::string(row.param.name); });

class VectorClass : public ScriptTest {
 protected:
  VectorClass() { ScriptPolicy::allow(true); }
};

TEST_F(VectorClass, ComponentsCanBeSet) {
  ASSERT_TRUE(kuScript::run("ran = Vec3f()\nran.x = 1\nran[1] = 2\nran[-1] = 3"));
  EXPECT_EQ(kuScript::executeNUSR("ran"), "1 , 2 , 3");
}

TEST_F(VectorClass, IndexOutsideIsAnError) {
  for (const char* text : {"Vec3f()[3]", "Vec3f()[-4]", "Vec3f()[2**62]"}) {
    log.clear();
    EXPECT_EQ(kuScript::executeNUSR(text), "");
    ASSERT_EQ(log.size(), 1u);
    EXPECT_THAT(log[0], HasSubstr("IndexError"));
  }
}

}  // namespace
