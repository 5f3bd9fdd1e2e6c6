#include "script/kuVariantSetPtrModule.h"

#include <string>
#include <utility>
#include <vector>

#include "VariantsScriptTest.h"

using ::testing::StartsWith;

namespace {

/** What Python knows of the class, written down independently of the code. */
struct Method {
  const char* name;
  /** The keyword names with a value that each takes. */
  std::vector<std::pair<const char*, const char*>> arguments;
  const char* text;
};

void PrintTo(const Method& method, std::ostream* out) { *out << method.name; }

const Method kMethods[] = {
    {"setName", {{"name", "'a'"}}, "Sets a Name.\n\n@param name: The Name.\n\n@type name: string"},
    {"getName", {}, "Gets the Name.\n\n@return: The Name.\n\n@rtype: string"},
    {"setHotkeyString",
     {{"key", "'a'"}},
     "Sets a Key.\n\n@param key: The Key.\n\n@type key: string"},
    {"setHotkey",
     {{"key", "65"}, {"modifier", "0"}},
     "Sets a Key.\n\n@param key: The Key.\n\n@type key: integer (unsigned)\n\n@param modifier: The "
     "modifier.\n\n@type modifier: integer (unsigned)"},
    {"getHotkey", {}, "Gets the Key.\n\n@return: The Key.\n\n@rtype: string"},
    {"addGeometry",
     {{"node", "kuNodePtr()"}, {"state", "'a'"}},
     "Adds a geometry variant.\n\n@param node: The geometry switch.\n\n@type node: "
     "kuNodePtr\n\n@param state: The node state.\n\n@type state: string"},
    {"addTransform",
     {{"node", "kuNodePtr()"}, {"state", "'a'"}},
     "Adds a transform variant.\n\n@param node: The node holding transform variants.\n\n@type "
     "node: kuNodePtr\n\n@param state: The node state.\n\n@type state: string"},
    {"addMaterial",
     {{"material", "kuMaterialPtr()"}, {"state", "'a'"}},
     "Adds a material variant.\n\n@param node: The material switch.\n\n@type node: "
     "kuMaterialPtr\n\n@param state: The material state.\n\n@type state: string"},
    {"addLight",
     {{"light", "kuNodePtr()"}, {"state", "'a'"}},
     "Adds a light variant.\n\n@param node: The light switch.\n\n@type node: kuNodePtr\n\n@param "
     "state: The light state.\n\n@type state: string"},
    {"setClippingState",
     {{"state", "1"}},
     "Sets the clipping state.\n\n@param state: The clippping state (0=no change, 1=enable "
     "clipping, 2=disable clipping, 3=set clipping plane values but keep the rest)).\n\n@type "
     "state: string"},
    {"addClippingPlane",
     {{"position", "Pnt3f()"},
      {"normal", "Vec3f()"},
      {"invertDirection", "True"},
      {"hideScene", "True"},
      {"showClippingPlane", "True"},
      {"showGrid", "True"},
      {"showContour", "True"}},
     "Adds a Clipping Plane.\n\n@param position: The position.\n\n@type position: bool@param "
     "normal: The normal.\n\n@type normal: bool@param invertDirection: Toggle invert "
     "direction.\n\n@type invertDirection: bool@param hideScene: Toggle hide scene.\n\n@type "
     "hideScene: bool@param showClippingPlane: Toggle show clipping plane.\n\n@type "
     "showClippingPlane: bool@param showGrid: Toggle show grid.\n\n@type showGrid: bool@param "
     "showContour: Toggle show contour.\n\n@type showContour: bool"},
    {"addCurrentClippingPlane", {}, "Adds current Clipping Plane."},
    {"addView",
     {{"viewpoint", "'a'"}},
     "Adds a viewpoint.\n\n@param viewpoint: The viewpoint.\n\n@type viewpoint: string"},
    {"addScript",
     {{"script", "'a'"}},
     "Adds a script.\n\n@param script: The script.\n\n@type script: string"},
    {"getScript", {}, "Gets the script.\n\n@return: The script.\n\n@rtype: string"},
    {"getTargetNodeNames",
     {},
     "Gets the names of the target nodes.\n\n@return: The names.\n\n@rtype: vector of string"},
    {"setValue",
     {{"key", "'a'"}, {"value", "'a'"}},
     "Adds a key/value pair to the variant set.\nKeys are unique. Setting another value for the "
     "same key overwrites the previous value.\n\n@param key: The key.\n\n@type key: "
     "string\n\n@param value: The value.\n\n@type value: string\n\n"},
    {"getValue",
     {{"key", "'a'"}},
     "Gets the value stored for the given key.\n\n@param key: The key for which the value should "
     "be returned.\n\n@type key: string\n\n@return: The value. Empty string if the variant set "
     "does not contain the given key.\n\n@rtype: string"},
};

class SetPtrMethods : public VariantsScriptTest, public ::testing::WithParamInterface<Method> {
 protected:
  /** A call in which each argument from @p first to @p last is named, @p wrong behind the name. */
  static std::string call(std::size_t count, std::size_t wrong) {
    std::string text = std::string("kuVariantSetPtr().") + GetParam().name + "(";
    for (std::size_t i = 0; i < count; ++i) {
      const auto& [name, value] = GetParam().arguments[i];
      text += std::string(i ? ", " : "") + name + (i == wrong ? "_" : "") + "=" + value;
    }
    return text + ")";
  }
  static constexpr std::size_t none = 99;
};

/** Boost.Python begins the text of each function with a line feed. */
TEST_P(SetPtrMethods, HaveThisTextToTheLetter) {
  EXPECT_EQ(answer(std::string("kuVariantSetPtr.") + GetParam().name + ".__doc__"),
            std::string("\n") + GetParam().text);
}

TEST_P(SetPtrMethods, TakeTheseKeywords) {
  EXPECT_TRUE(run(call(GetParam().arguments.size(), none)));
}

TEST_P(SetPtrMethods, TakeNoOtherKeywords) {
  for (std::size_t i = 0; i < GetParam().arguments.size(); ++i) {
    const std::string text = call(GetParam().arguments.size(), i);
    EXPECT_FALSE(run(text)) << text;
    EXPECT_THAT(lastError(), StartsWith("ArgumentError: ")) << text;
  }
  EXPECT_FALSE(run(std::string("kuVariantSetPtr().") + GetParam().name + "(other=1)"));
}

/** But for setHotkey, whose shorter form has no names. */
TEST_P(SetPtrMethods, HaveNoDefaults) {
  for (std::size_t count = 0; count < GetParam().arguments.size(); ++count)
    EXPECT_FALSE(run(call(count, none))) << count;
}

INSTANTIATE_TEST_SUITE_P(Table, SetPtrMethods, ::testing::ValuesIn(kMethods),
                         [](const auto& row) { return std::string(row.param.name); });

class SetPtrModule : public VariantsScriptTest {};

TEST_F(SetPtrModule, HasTheClassAndNothingElse) {
  EXPECT_EQ(answer("[n for n in dir(__import__('kuVariantSetPtr')) if n[:2] != '__']"),
            "['kuVariantSetPtr']");
}

TEST_F(SetPtrModule, ClassStandsInTheGlobalNamespace) {
  EXPECT_EQ(answer("kuVariantSetPtr is __import__('kuVariantSetPtr').kuVariantSetPtr"), "True");
}

TEST_F(SetPtrModule, ClassHasItsTextToTheLetter) {
  EXPECT_EQ(answer("kuVariantSetPtr.__doc__"),
            "The kuVariantSetPtr is a wrapper class for kuVariantSet.\n");
}

TEST_F(SetPtrModule, ClassHasNoBaseOfItsOwn) {
  EXPECT_EQ(answer("[c.__name__ for c in kuVariantSetPtr.__mro__]"),
            "['kuVariantSetPtr', 'instance', 'object']");
}

TEST_F(SetPtrModule, MethodsStandInTheirOrder) {
  EXPECT_EQ(
      answer("' '.join(n for n in kuVariantSetPtr.__dict__ if n[:2] != '__')"),
      "setName getName setHotkeyString setHotkey getHotkey addGeometry addTransform "
      "addMaterial addLight setClippingState addClippingPlane addCurrentClippingPlane addView "
      "addScript getScript getTargetNodeNames setValue getValue");
}

TEST_F(SetPtrModule, ObjectsAreMadeWithoutArguments) {
  EXPECT_EQ(answer("kuVariantSetPtr().getName()"), "");
  EXPECT_FALSE(run("kuVariantSetPtr('Red')"));
  EXPECT_FALSE(run("kuVariantSetPtr(kuVariantSetPtr())"));
}

TEST_F(SetPtrModule, ShorterFormOfSetHotkeyTakesNoKeyword) {
  EXPECT_TRUE(run("kuVariantSetPtr().setHotkey(65)"));
  EXPECT_FALSE(run("kuVariantSetPtr().setHotkey(key=65)"));
  EXPECT_THAT(lastError(), StartsWith("ArgumentError: "));
}

}  // namespace
