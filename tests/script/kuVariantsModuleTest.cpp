#include "script/kuVariantsModule.h"

#include "VariantsScriptTest.h"
#include "host/script/kuPythonRegister.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

/** With the sets "Red" and "Blue" over a switch of these children, which is looked at from "Top".
 */
class kuVariantsModuleTest : public VariantsScriptTest {
 protected:
  kuVariantsModuleTest() {
    paint = scene.switchNode("Paint", 0, {"Red", "Blue"});
    scene.camera("Top");
    scene.camera("Side");
    kuNodeVariant* variant = kuVariants::createNodeVariant(paint, false);
    for (const char* name : {"Red", "Blue"}) {
      kuVariantSet* set = kuVariants::createVariantSet(name, false, nullptr);
      set->add(variant, name);
      set->addViewpoint("Top");
    }
    kuStandalone::Scene::the().activeViewpoint = "Side";
    messages.clear();
  }

  /** What a text does, told as messages. */
  std::vector<std::string> messagesOf(const std::string& text) {
    kuVariants::findNodeVariant("Paint")->select("Red");
    kuStandalone::Scene::the().activeViewpoint = "Side";
    messages.clear();
    EXPECT_TRUE(run(text)) << text;
    return messages.lines();
  }

  static std::string viewpoint() { return kuStandalone::Scene::the().activeViewpoint; }
  int choice() const { return scene.choice(paint); }

  osg::NodePtr paint;
};

TEST_F(kuVariantsModuleTest, FunctionsStandInTheGlobalNamespaceAndInTheModule) {
  for (const char* name :
       {"createAndCaptureVariantSet", "activateCapturedVariantSet", "selectVariantSet"}) {
    EXPECT_EQ(answer("callable(" + std::string(name) + ")"), "True");
    EXPECT_EQ(answer("kuVariants." + std::string(name) + " is " + name), "True");
  }
}

TEST_F(kuVariantsModuleTest, HasThreeFunctionsAndNothingElse) {
  EXPECT_EQ(answer("[n for n in dir(kuVariants) if n[:2] != '__']"),
            "['activateCapturedVariantSet', 'createAndCaptureVariantSet', 'selectVariantSet']");
}

struct Text {
  const char* name;
  const char* expression;
  const char* text;
};

void PrintTo(const Text& text, std::ostream* out) { *out << text.name; }

class ModuleTexts : public VariantsScriptTest, public ::testing::WithParamInterface<Text> {};

TEST_P(ModuleTexts, AreTheseToTheLetter) {
  EXPECT_EQ(answer(GetParam().expression), GetParam().text);
}

/** Boost.Python begins the text of each function with a line feed. */
const Text kTexts[] = {
    {"Module", "kuVariants.__doc__", "Contains functions to capture and activate variant sets. \n"},
    {"CreateAndCaptureVariantSet", "createAndCaptureVariantSet.__doc__",
     "\nCaptures variants to variant set.\n\n@param name: The name of the variant set.\n\n"
     "@type name: string@param name: Name of the variant set group.\n\n@type name: string"},
    {"ActivateCapturedVariantSet", "activateCapturedVariantSet.__doc__",
     "\nActivates a captured variant set. The variant set will activate all states of its defined "
     "node and material variants.\n\n@param name: The name of the captured variant set.\n\n"
     "@type name: string"},
    {"SelectVariantSetHasNone", "selectVariantSet.__doc__", "None"},
};

INSTANTIATE_TEST_SUITE_P(Texts, ModuleTexts, ::testing::ValuesIn(kTexts),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(kuVariantsModuleTest, SelectingByNameMovesSceneAndCamera) {
  EXPECT_TRUE(run("selectVariantSet('Blue')"));
  EXPECT_EQ(choice(), 1);
  EXPECT_EQ(viewpoint(), "Top");
}

TEST_F(kuVariantsModuleTest, SelectingWithFalseDoesTheSameAsTheNameAlone) {
  const std::vector<std::string> alone = messagesOf("selectVariantSet('Blue')");
  EXPECT_THAT(alone, Contains("variantsSetSelected/1 variantSetName:string=Blue"));
  EXPECT_EQ(messagesOf("selectVariantSet('Blue', False)"), alone);
  EXPECT_EQ(viewpoint(), "Top");
}

TEST_F(kuVariantsModuleTest, SelectingWithTrueLeavesTheCamera) {
  EXPECT_TRUE(run("kuVariants.selectVariantSet('Blue', True)"));
  EXPECT_EQ(choice(), 1);
  EXPECT_EQ(viewpoint(), "Side");
}

TEST_F(kuVariantsModuleTest, SelectingTakesANumberForTheFlag) {
  EXPECT_TRUE(run("selectVariantSet('Blue', 1)"));
  EXPECT_EQ(choice(), 1);
  EXPECT_EQ(viewpoint(), "Side");
  EXPECT_TRUE(run("selectVariantSet('Red', 0)"));
  EXPECT_EQ(choice(), 0);
  EXPECT_EQ(viewpoint(), "Top");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsModuleTest, SelectingAnEmptyOrUnknownNameOrNoneDoesNothing) {
  for (const char* text :
       {"selectVariantSet('')", "selectVariantSet('Green')", "selectVariantSet(None)"}) {
    EXPECT_TRUE(run(text)) << text;
  }
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsModuleTest, SelectTakesNoKeywords) {
  for (const char* text : {"selectVariantSet(name='Blue')", "selectVariantSet(variantName='Blue')",
                           "selectVariantSet('Blue', skipViewpoint=False)"}) {
    EXPECT_FALSE(run(text)) << text;
    EXPECT_THAT(lastError(), StartsWith("ArgumentError: ")) << text;
  }
  EXPECT_EQ(choice(), 0);
}

TEST_F(kuVariantsModuleTest, ActivateTakesTheKeywordName) {
  EXPECT_TRUE(run("activateCapturedVariantSet(name='Blue')"));
  EXPECT_EQ(choice(), 1);
}

TEST_F(kuVariantsModuleTest, CaptureTakesItsKeywords) {
  EXPECT_TRUE(run("createAndCaptureVariantSet(groupName='Colours', variantName='Now')"));
  ASSERT_TRUE(kuVariants::findVariantSet("Now"));
  EXPECT_TRUE(kuVariants::findVariantGroup("Colours"));
}

TEST_F(kuVariantsModuleTest, CaptureNeedsBothArguments) {
  for (const char* text : {"createAndCaptureVariantSet('Now')", "createAndCaptureVariantSet()",
                           "createAndCaptureVariantSet(groupName='Colours')"}) {
    EXPECT_FALSE(run(text)) << text;
    EXPECT_THAT(lastError(), StartsWith("ArgumentError: ")) << text;
  }
  EXPECT_FALSE(kuVariants::findVariantSet("Now"));
}

TEST_F(kuVariantsModuleTest, WrongTypesAreErrors) {
  for (const char* text : {"selectVariantSet(1)", "selectVariantSet(b'Blue')", "selectVariantSet()",
                           "selectVariantSet('Blue', 'True')", "selectVariantSet('Blue', 0, 0)",
                           "activateCapturedVariantSet(1)"}) {
    EXPECT_FALSE(run(text)) << text;
    EXPECT_THAT(lastError(), StartsWith("ArgumentError: ")) << text;
  }
}

TEST_F(kuVariantsModuleTest, NamesAreUtf8) {
  kuVariantSet* set =
      kuVariants::createVariantSet(QString::fromUtf8("Gr\xC3\xBCn"), false, nullptr);
  set->addViewpoint("Top");
  EXPECT_TRUE(run("selectVariantSet('Gr\xC3\xBCn')"));
  EXPECT_EQ(viewpoint(), "Top");
}

TEST_F(kuVariantsModuleTest, OtherLevelsOfTheStartDoNothing) {
  ASSERT_TRUE(run("selectVariantSet = 1"));
  for (const int level : {-1, 2, 3})
    kuPythonRegisterFactory::the().call(kuPythonRegisterFactory::Level(level));
  EXPECT_EQ(answer("selectVariantSet"), "1");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsModuleTest, LevelOneBringsTheNames) {
  ASSERT_TRUE(run("selectVariantSet = kuVariants = kuVariantSetPtr = None"));
  kuPythonRegisterFactory::the().call(kuPythonRegisterFactory::AfterStart);
  EXPECT_EQ(answer("selectVariantSet is kuVariants.selectVariantSet"), "True");
  EXPECT_EQ(answer("kuVariantSetPtr.__module__"), "kuVariantSetPtr");
}

TEST_F(kuVariantsModuleTest, LevelZeroOffersTheModulesToPython) {
  EXPECT_EQ(answer("sorted(n for n in __import__('sys').builtin_module_names if n[:2] == 'ku')"),
            "['kuVariantSetPtr', 'kuVariants']");
}

/** What a document's texts can do with the modules while scripts are off. */
class ModuleCommands : public kuVariantsModuleTest {
 protected:
  ModuleCommands() { ScriptPolicy::allow(false); }
};

TEST_F(ModuleCommands, SelectASetWithAndWithoutTheCamera) {
  EXPECT_TRUE(run("selectVariantSet('Blue', true)"));
  EXPECT_EQ(choice(), 1);
  EXPECT_EQ(viewpoint(), "Side");
  EXPECT_TRUE(run("selectVariantSet('Red')"));
  EXPECT_EQ(choice(), 0);
  EXPECT_EQ(viewpoint(), "Top");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(ModuleCommands, ActivateASet) {
  EXPECT_TRUE(run("activateCapturedVariantSet('Blue')"));
  EXPECT_EQ(choice(), 1);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(ModuleCommands, CaptureASet) {
  EXPECT_TRUE(run("createAndCaptureVariantSet('Now', 'Colours')"));
  EXPECT_TRUE(kuVariants::findVariantSet("Now"));
}

TEST_F(ModuleCommands, TakeNoTextAtAllWithoutHarm) {
  for (const char* text : {"selectVariantSet(None)", "activateCapturedVariantSet(None)",
                           "selectVariantSet('a\\0b', None)"}) {
    EXPECT_TRUE(run(text)) << text;
  }
  EXPECT_EQ(choice(), 0);
}

TEST_F(ModuleCommands, AreNoWayToTheModuleOrTheClass) {
  for (const char* text :
       {"kuVariants.selectVariantSet('Blue')", "kuVariantSetPtr()", "selectVariantSet(name='Blue')",
        "kuVariantSetPtr().getName()", "import kuVariants", "selectVariantSet(*['Blue'])"}) {
    EXPECT_FALSE(run(text)) << text;
  }
  EXPECT_EQ(ScriptPolicy::refusalCount(), 6u);
  EXPECT_EQ(choice(), 0);
}

}  // namespace
