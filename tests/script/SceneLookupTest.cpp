#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class SceneLookup : public ScriptTest {
 protected:
  SceneLookup() { ScriptPolicy::allow(true); }

  static std::string answer(const char* expression) { return kuScript::executeNUSR(expression); }
};

TEST_F(SceneLookup, FindsNodesByName) {
  scene.group("Door", scene.group("Left"));
  scene.group("Door", scene.group("T\xC3\xBCr"));
  EXPECT_EQ(answer("findNode('Door')"), "<kuNodePtr 'Door'>");
  EXPECT_EQ(answer("findNodes(name='Door')"), "[<kuNodePtr 'Door'>, <kuNodePtr 'Door'>]");
  EXPECT_EQ(answer("findNode('T\xC3\xBCr').getName()"), "T\xC3\xBCr");
}

TEST_F(SceneLookup, UnknownNamesGiveNothingAndNoWarning) {
  EXPECT_EQ(answer("findNode('Door')"), "<kuNodePtr without an object>");
  EXPECT_EQ(answer("findNodes('Door')"), "[]");
  EXPECT_EQ(answer("findMaterial('Paint')"), "<kuMaterialPtr without an object>");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(SceneLookup, FindsMaterialsByName) {
  scene.material("Paint 'n' more");
  EXPECT_EQ(answer("findMaterial(name=\"Paint 'n' more\")"), "<kuMaterialPtr \"Paint 'n' more\">");
  EXPECT_EQ(answer("findMaterial(\"Paint 'n' more\").isValid()"), "True");
  EXPECT_EQ(answer("findMaterial(\"Paint 'n' more\").getName()"), "Paint 'n' more");
  EXPECT_EQ(answer("kuMaterialPtr().isValid()"), "False");
  EXPECT_EQ(answer("kuMaterialPtr().getName()"), "");
}

TEST_F(SceneLookup, NodeTellsItsChildrenInOrder) {
  const osg::NodePtr car = scene.group("Car");
  scene.group("A", car);
  scene.group("B", car);
  EXPECT_EQ(answer("[n.getName() for n in findNode('Car').getChildren()]"), "['A', 'B']");
  EXPECT_EQ(answer("kuNodePtr().getChildren()"), "[]");
}

TEST_F(SceneLookup, SwitchTellsAndTakesItsChoice) {
  const osg::NodePtr paint = scene.switchNode("Paint", 1, {"Red", "Blue"});
  EXPECT_EQ(answer("findNode('Paint').getChoice()"), "1");
  EXPECT_TRUE(kuScript::run("findNode('Paint').setChoice(choice=-2)"));
  EXPECT_EQ(scene.choice(paint), -2);
}

TEST_F(SceneLookup, OtherNodesHaveNoChoice) {
  scene.group("Car");
  for (const char* node : {"findNode('Car')", "kuNodePtr()"}) {
    EXPECT_EQ(answer((node + std::string(".getChoice()")).c_str()), "None");
    EXPECT_TRUE(kuScript::run((node + std::string(".setChoice(1)")).c_str()));
  }
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(SceneLookup, NamesThatAreNoUtf8CanBeShown) {
  scene.group("A\xFF", scene.group("Top"));
  EXPECT_EQ(answer("repr(findNode('Top').getChildren()[0])"), "<kuNodePtr 'A\\\\xff'>");
}

TEST_F(SceneLookup, LooksNothingUpForADocument) {
  scene.switchNode("Paint", 0, {"Red"});
  ScriptPolicy::allow(false);
  const char* const texts[] = {"findNode('Paint')",
                               "findNodes('Paint')",
                               "findMaterial('Paint')",
                               "kuNodePtr()",
                               "kuMaterialPtr()",
                               "findNode('Paint').setActive(false)",
                               "findNodePath('Paint').setChoice(1)",
                               "findNodePath('Paint').getChildren()"};
  for (const char* text : texts)
    EXPECT_FALSE(kuScript::run(text)) << text;
  EXPECT_EQ(ScriptPolicy::refusalCount(), std::size(texts));
}

TEST_F(SceneLookup, HelpTellsArgumentsAndEffect) {
  const auto help = [](const std::string& name) {
    return answer(
        ("__import__('pydoc').plain(__import__('pydoc').render_doc(" + name + "))").c_str());
  };
  EXPECT_THAT(help("findNodes"), HasSubstr("findNodes( (str)name) -> list"));
  EXPECT_THAT(help("findNodes"), HasSubstr("All nodes of that name, clones included, as a list."));
  EXPECT_THAT(help("kuNodePtr"), HasSubstr("setChoice( (kuNodePtr)self, (int)choice) -> None"));
  EXPECT_THAT(help("kuMaterialPtr"), HasSubstr("A material of the scene, or none."));
  EXPECT_THAT(help("kuNodePtr"), ::testing::Not(HasSubstr("C++")));
}

}  // namespace
