#include "ScriptTest.h"
#include "host/osg/Switch.h"
#include "host/osg/SwitchMaterial.h"
#include "host/script/kuScript.h"
#include "host/utils/kuMaterials.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/ScriptPolicy.h"
#include "support/BracketRecorder.h"
#include "support/SceneDump.h"

using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Bracket = BracketRecorder::Bracket;

namespace {

/** What scripts get hold of: the switches "Roof" and "Paint", and their copies. */
class HandleClasses : public ScriptTest {
 protected:
  HandleClasses() {
    ScriptPolicy::allow(true);
    roof = scene.switchNode("Roof", 1, {"Open", "Shut"}, scene.group("Car"));
    paint = scene.switchMaterial("Paint", {scene.material("Red"), scene.material("Blue")}, 1);
  }

  static std::string answer(const std::string& expression) {
    return kuScript::executeNUSR(expression.c_str());
  }

  osg::NodePtr roof;
  osg::SwitchMaterialPtr paint;
};

struct Question {
  const char* name;
  const char* expression;
  const char* answer;
};

void PrintTo(const Question& question, std::ostream* out) { *out << question.name; }

class HandleQuestions : public HandleClasses, public ::testing::WithParamInterface<Question> {};

TEST_P(HandleQuestions, AreAnswered) {
  EXPECT_EQ(answer(GetParam().expression), GetParam().answer);
  EXPECT_THAT(log, IsEmpty());
}

const Question kQuestions[] = {
    {"NodesOfOneNameAndPlaceAreEqual", "findNode('Roof') == findNodePath('Car/Roof')", "True"},
    {"EqualNodesAreNotUnequal", "findNode('Roof') != findNodePath('Car/Roof')", "False"},
    {"OtherNodesAreUnequal", "findNode('Roof') == findNode('Car')", "False"},
    {"OtherNodesAreToldApart", "findNode('Roof') != findNode('Car')", "True"},
    {"NoNodesAreEqual", "kuNodePtr() == findNode('None')", "True"},
    {"NodeIsNoName", "(findNode('Roof') == 'Roof', findNode('Roof') != 'Roof')", "(False, True)"},
    {"NodeIsNotNone", "(kuNodePtr() == None, kuNodePtr() is None)", "(False, False)"},
    {"NodesCanBeCounted", "len({findNode('Roof'), findNodePath('Car/Roof'), findNode('Car')})",
     "2"},
    {"NodesCanBeKeys", "{findNode('Roof'): 1}[findNodePath('Car/Roof')]", "1"},
    {"NodeIsTrue", "bool(findNode('Roof'))", "True"},
    {"NoNodeIsFalse", "(bool(kuNodePtr()), bool(findNode('None')))", "(False, False)"},
    {"ParentOfANode", "findNode('Roof').getParent()", "<kuNodePtr 'Car'>"},
    {"ParentOfAChild", "findNode('Car').getChildren()[0].getParent() == findNode('Car')", "True"},
    {"ParentOfTheTopIsNoNode", "findNode('Car').getParent().getParent()",
     "<kuNodePtr without an object>"},
    {"ParentOfNoNodeIsNoNode", "kuNodePtr().getParent()", "<kuNodePtr without an object>"},
    {"MaterialsOfOneNameAreEqual",
     "findMaterial('Red') == findMaterial('Paint').getSubMaterials()[0]", "True"},
    {"OtherMaterialsAreUnequal", "findMaterial('Red') != findMaterial('Blue')", "True"},
    {"MaterialIsNoNode", "kuMaterialPtr() == kuNodePtr()", "False"},
    {"MaterialsCanBeCounted", "len({findMaterial('Red'), findMaterial('Red'), kuMaterialPtr()})",
     "2"},
    {"MaterialIsTrue", "bool(findMaterial('Red'))", "True"},
    {"NoMaterialIsFalse", "bool(findMaterial('None'))", "False"},
    {"ChoiceOfASwitchMaterial", "findMaterial('Paint').getChoice()", "1"},
    {"ChoiceOfAnotherMaterialIsNone", "findMaterial('Red').getChoice()", "None"},
    {"ChoiceOfNoMaterialIsNone", "kuMaterialPtr().getChoice()", "None"},
    {"SubMaterialsInOrder", "findMaterial('Paint').getSubMaterials()",
     "[<kuMaterialPtr 'Red'>, <kuMaterialPtr 'Blue'>]"},
    {"SubMaterialsOfAnotherMaterial", "findMaterial('Red').getSubMaterials()", "[]"},
    {"SubMaterialsOfNoMaterial", "kuMaterialPtr().getSubMaterials()", "[]"},
    {"MaterialsOfAName", "findMaterials(name='Red')", "[<kuMaterialPtr 'Red'>]"},
    {"MaterialsOfAnUnknownName", "findMaterials('None')", "[]"},
};

INSTANTIATE_TEST_SUITE_P(Questions, HandleQuestions, ::testing::ValuesIn(kQuestions),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(HandleClasses, ChangesStandInBrackets) {
  const BracketRecorder recorder;
  EXPECT_TRUE(
      kuScript::run("findNode('Roof').setChoice(0)\nfindMaterial('Paint').setChoice(choice=0)\n"
                    "findNode('Car').setActive(active=False)"));
  EXPECT_EQ(scene.choice(roof), 0);
  EXPECT_EQ(paint->getChoice(), 0u);
  EXPECT_FALSE(roof->getParent()->getActive());
  EXPECT_THAT(recorder.brackets(),
              ElementsAre(Bracket("Switch", osg::SwitchBase::ChoiceFieldMask),
                          Bracket("SwitchMaterial", osg::SwitchMaterialBase::ChoiceFieldMask),
                          Bracket("Node", osg::Node::TravMaskFieldMask)));
}

TEST_F(HandleClasses, EveryChoiceOfASwitchCanBeSet) {
  for (const int choice : {-2, -1, 0, 1}) {
    EXPECT_TRUE(
        kuScript::run(("findNode('Roof').setChoice(" + std::to_string(choice) + ")").c_str()));
    EXPECT_EQ(scene.choice(roof), choice);
  }
}

TEST_F(HandleClasses, ChoiceThatThereIsNotIsAnIndexErrorAndChangesNothing) {
  const std::string before = dumpScene(Scene::the());
  for (const char* text :
       {"findNode('Roof').setChoice(2)", "findNode('Roof').setChoice(-3)",
        "findMaterial('Paint').setChoice(2)", "findMaterial('Paint').setChoice(-1)"}) {
    log.clear();
    EXPECT_FALSE(kuScript::run(text)) << text;
    EXPECT_THAT(log, ElementsAre(HasSubstr("line 1: IndexError: a switch "))) << text;
  }
  EXPECT_EQ(dumpScene(Scene::the()), before);
}

TEST_F(HandleClasses, WithoutAnObjectChangeNothing) {
  const std::string before = dumpScene(Scene::the());
  EXPECT_TRUE(
      kuScript::run("kuNodePtr().setActive(False)\nkuNodePtr().setChoice(7)\n"
                    "kuMaterialPtr().setChoice(7)\nfindMaterial('Red').setChoice(7)"));
  EXPECT_EQ(dumpScene(Scene::the()), before);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(HandleClasses, WrongTypesAreErrors) {
  for (const char* text : {"findNode('Roof').setChoice('1')", "findNode('Roof').setChoice(None)",
                           "findMaterial('Paint').setChoice(0.5)", "findNode(1)",
                           "findMaterials(None, None)", "findNode('Car').setActive('yes')"}) {
    log.clear();
    EXPECT_FALSE(kuScript::run(text)) << text;
    EXPECT_THAT(log, ElementsAre(HasSubstr("line 1: TypeError: "))) << text;
  }
}

TEST_F(HandleClasses, OfANodeThatIsRemovedMeanwhileAreSafe) {
  ASSERT_TRUE(kuScript::run("ran = findNode('Roof'), findNode('Open')"));
  SceneNode::of(roof->getParent()).removeChild(roof);
  roof = osg::NullFC;
  EXPECT_EQ(answer("findNode('Roof')"), "<kuNodePtr without an object>");
  EXPECT_EQ(answer("ran"), "(<kuNodePtr 'Roof'>, <kuNodePtr 'Open'>)");
  EXPECT_EQ(answer("ran[0].getParent()"), "<kuNodePtr without an object>");
  EXPECT_EQ(answer("(ran[1].getParent() == ran[0], ran[0].getChildren()[0] == ran[1])"),
            "(True, True)");
  EXPECT_TRUE(kuScript::run("ran[0].setChoice(0)\nran[0].setActive(False)"));
  EXPECT_EQ(answer("(ran[0].getChoice(), ran[0].getActive())"), "(0, False)");
}

/** A node does not keep its parent. */
TEST_F(HandleClasses, OfANodeWhoseParentIsGoneHaveNoParent) {
  ASSERT_TRUE(kuScript::run("ran = findNode('Open')"));
  SceneNode::of(roof->getParent()).removeChild(roof);
  roof = osg::NullFC;
  EXPECT_EQ(answer("ran.getParent()"), "<kuNodePtr without an object>");
}

TEST_F(HandleClasses, OfAMaterialThatIsRemovedMeanwhileAreSafe) {
  ASSERT_TRUE(kuScript::run("ran = findMaterial('Red'), findMaterial('Paint')"));
  kuMaterials::removeMaterial(kuMaterials::findMaterial("Red").getMaterial());
  EXPECT_EQ(answer("findMaterial('Red')"), "<kuMaterialPtr without an object>");
  EXPECT_EQ(answer("ran[0].getName()"), "Red");
  EXPECT_EQ(answer("(ran[1].getSubMaterials(), ran[1].getChoice())"),
            "([<kuMaterialPtr 'Blue'>], 1)");
}

TEST_F(HandleClasses, SurviveAnotherScene) {
  ASSERT_TRUE(kuScript::run("ran = findNode('Roof'), findMaterial('Paint')"));
  roof = osg::NullFC;
  paint = osg::NullFC;
  scene = SceneBuilder();
  EXPECT_EQ(answer("(ran[0].getName(), ran[0].getChoice(), ran[0].getParent())"),
            "('Roof', 1, <kuNodePtr without an object>)");
  EXPECT_EQ(answer("ran[1].getSubMaterials()[1].getName()"), "Blue");
  EXPECT_TRUE(kuScript::run("ran[0].setChoice(0)\nran[1].setChoice(0)\ndel ran"));
}

TEST_F(HandleClasses, AreToldByHelp) {
  const auto help = [](const std::string& name) {
    return answer("__import__('pydoc').plain(__import__('pydoc').render_doc(" + name + "))");
  };
  EXPECT_THAT(help("kuNodePtr"), HasSubstr("A node of the scene, or none. Without a node it is "
                                           "false, answers nothing and does nothing."));
  EXPECT_THAT(help("kuNodePtr"), HasSubstr("getParent( (kuNodePtr)self) -> kuNodePtr"));
  EXPECT_THAT(help("kuMaterialPtr"), HasSubstr("getSubMaterials( (kuMaterialPtr)self) -> list"));
  EXPECT_THAT(help("kuMaterialPtr"),
              HasSubstr("setChoice( (kuMaterialPtr)self, (int)choice) -> None"));
  for (const char* name : {"kuNodePtr", "kuMaterialPtr", "Vec3f"})
    EXPECT_THAT(help(name), ::testing::Not(HasSubstr("C++"))) << name;
}

}  // namespace
