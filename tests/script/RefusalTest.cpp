#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::EndsWith;

namespace {

class Refusals : public ScriptTest {
 protected:
  Refusals() { ScriptPolicy::allow(true); }
};

struct WrongCall {
  const char* name;
  const char* text;
  const char* error;
};

void PrintTo(const WrongCall& call, std::ostream* out) { *out << call.name; }

class WrongCalls : public Refusals, public ::testing::WithParamInterface<WrongCall> {};

TEST_P(WrongCalls, AreToldInThePythonWay) {
  EXPECT_FALSE(kuScript::run(GetParam().text));
  EXPECT_THAT(
      log, ElementsAre(EndsWith(std::string(" failed: line 1: TypeError: ") + GetParam().error)));
}

const WrongCall kWrongCalls[] = {
    {"Type", "findNode(1)", "findNode(name: str) cannot take (int)"},
    {"NoArgument", "findNodes()", "findNodes(name: str) cannot take ()"},
    {"TooManyArguments", "findMaterial('a', None)",
     "findMaterial(name: str) cannot take (str, NoneType)"},
    {"OneOfTwo", "setIgnoreMaterialGroup('a', [])",
     "setIgnoreMaterialGroup(path: str, ignore: bool) cannot take (str, list)"},
    {"UnknownKeyword", "findMaterials('a', nam=1)",
     "findMaterials(name: str) cannot take (str, nam=int)"},
    {"ClassesOfTheHost", "setClippingPlane(Vec3f(), Vec3f(), True)",
     "setClippingPlane(position: Pnt3f, normal: Vec3f, invert: bool) cannot take "
     "(Vec3f, Vec3f, bool)"},
    {"FunctionWithoutParameters", "getClippingGridColor(1)",
     "getClippingGridColor() cannot take (int)"},
    {"MethodLeavesSelfOut", "kuNodePtr().setActive('yes')",
     "setActive(active: bool) cannot take (str)"},
    {"MethodWithoutParameters", "kuMaterialPtr().getName(1, x=2)",
     "getName() cannot take (int, x=int)"},
    {"MethodWithoutItsObject", "kuNodePtr.getName()", "getName() cannot take ()"},
    {"MakingANode", "kuNodePtr('Roof')", "kuNodePtr() cannot take (str)"},
    {"MakingAMaterial", "kuMaterialPtr(name='Paint')", "kuMaterialPtr() cannot take (name=str)"},
    {"MakingAVectorShowsBothWays", "Pnt3f(1, 2)",
     "Pnt3f() or Pnt3f(x: float, y: float, z: float) cannot take (int, int)"},
    {"IndexOfAVector", "Vec3f()['x']", "__getitem__(index: int) cannot take (str)"},
    {"ItemOfAVector", "Vec3f()[0] = 'x'",
     "__setitem__(index: int, value: float) cannot take (int, str)"},
    {"ComponentOfAVector", "Vec3f().x = 'x'", "a component is a float, not str"},
};

INSTANTIATE_TEST_SUITE_P(All, WrongCalls, ::testing::ValuesIn(kWrongCalls),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Refusals, AreNoPartOfTheHelp) {
  EXPECT_EQ(kuScript::executeNUSR("findNode.__doc__"),
            "\nfindNode( (str)name) -> kuNodePtr :\n"
            "    The first node of that name; a kuNodePtr that is not valid if there is none.");
  EXPECT_EQ(kuScript::executeNUSR("kuNodePtr.isValid.__doc__"),
            "\nisValid( (kuNodePtr)self) -> bool :\n    Whether it holds a node.");
}

}  // namespace
