#include "standalone/scene/MaterialNames.h"

#include "host/kernel/kuController.h"
#include "host/utils/kuMaterials.h"
#include "support/SceneTest.h"

using kuStandalone::MaterialNames;

namespace {

class MaterialNamesTest : public SceneTest {
 protected:
  static std::string uniqueName(const std::string& name) {
    kuMessage message;
    message.set("name", name, true);
    kuController::call("MaterialGetUniqueName", message, 1);
    return answerIn(message);
  }

  static std::string answerIn(const kuMessage& message) {
    std::string answer = "(none)";
    message.get("newname", answer);
    return answer;
  }

  /** A material under the name that was answered for "Switch". */
  std::string addSwitch() {
    const auto made = scene.switchMaterial("", {}, 0);
    kuMaterials::setName(made, uniqueName("Switch").c_str(), true);
    return kuMaterials::getName(made);
  }
};

}  // namespace

TEST_F(MaterialNamesTest, FreeNameIsAnsweredAsItIs) {
  scene.material("switch");
  EXPECT_EQ(uniqueName("Switch"), "Switch");
  EXPECT_EQ(uniqueName(""), "");
}

TEST_F(MaterialNamesTest, UsedNameIsAnsweredWithTheNextFreeNumber) {
  scene.material("Switch3");
  EXPECT_EQ(addSwitch(), "Switch");
  EXPECT_EQ(addSwitch(), "Switch2");
  EXPECT_EQ(addSwitch(), "Switch4");
}

TEST_F(MaterialNamesTest, EmptyAndOddNamesInUseAreNumberedToo) {
  scene.material("");
  scene.material("\xFF");
  scene.material("99999999999999999999");
  EXPECT_EQ(uniqueName(""), "2");
  EXPECT_EQ(uniqueName("\xFF"),
            "\xFF"
            "2");
  EXPECT_EQ(uniqueName("99999999999999999999"), "999999999999999999992");
}

TEST_F(MaterialNamesTest, NumbersStartAnewInAnotherScene) {
  scene.material("Switch");
  EXPECT_EQ(uniqueName("Switch"), "Switch2");
  EXPECT_EQ(uniqueName("Switch"), "Switch3");
  scene = SceneBuilder();
  scene.material("Switch");
  EXPECT_EQ(uniqueName("Switch"), "Switch2");
}

TEST_F(MaterialNamesTest, RecordWithoutANameGetsNoAnswer) {
  kuMessage message;
  kuController::call("MaterialGetUniqueName", message, 1);
  EXPECT_EQ(answerIn(message), "(none)");
}

TEST_F(MaterialNamesTest, NameOfAnotherTypeGetsNoAnswerButAComplaint) {
  kuMessage message;
  message.set("name", true, true);
  ::testing::internal::CaptureStderr();
  kuController::call("MaterialGetUniqueName", message, 1);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              ::testing::HasSubstr("Attribute 'name' has wrong type"));
  EXPECT_EQ(answerIn(message), "(none)");
}

TEST_F(MaterialNamesTest, ManyNewMaterialsOfOneNameAreNamedAtOnce) {
  // With a count from the first number each time this would be some ten thousand million look-ups.
  for (int i = 0; i < 100000; ++i)
    scene.material(uniqueName("Switch"));
  EXPECT_EQ(uniqueName("Switch"), "Switch100001");
}
