// A captured set, activated: materials first, then the script command.

#include <stdexcept>

#include "capture/RestoreTest.h"
#include "scene/kuMaterialVariant.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/ScriptPolicy.h"
#include "support/MessageReceiver.h"

using kuStandalone::HostState;
using kuStandalone::ScriptPolicy;
using ::testing::ElementsAre;
using ::testing::Gt;
using ::testing::IsEmpty;

namespace {

class kuVariantsActivateCapturedTest : public RestoreTest {
 protected:
  kuVariantsActivateCapturedTest() {
    ScriptPolicy::allow(false);
    ScriptPolicy::clearRefusals();
    _commandsBefore = HostState::the().scriptCommands;
    _framesBefore = HostState::the().renderRequests;
  }
  ~kuVariantsActivateCapturedTest() override {
    ScriptPolicy::allow(false);
    ScriptPolicy::clearRefusals();
    HostState::the().syncVariants = false;
  }

  std::uint64_t commands() const { return HostState::the().scriptCommands - _commandsBefore; }
  std::uint64_t frames() const { return HostState::the().renderRequests - _framesBefore; }
  static std::vector<std::string> refusedTexts() {
    std::vector<std::string> texts;
    for (const kuStandalone::ScriptRefusal& refusal : ScriptPolicy::refusals())
      texts.push_back(refusal.start);
    return texts;
  }

  osg::NodePtr place = scene.geometry("Place", red);

 private:
  std::uint64_t _commandsBefore, _framesBefore;
};

}  // namespace

TEST_F(kuVariantsActivateCapturedTest, ItMakesTheIndexAnewAndRestores) {
  remember("Summer", {{"Place", "Green"}});
  kuVariants::activateCapturedVariantSet("Summer");
  EXPECT_EQ(materialOf(place), "Green");
}

TEST_F(kuVariantsActivateCapturedTest, KnownSetIsSelectedByOneScriptCommandAndAFrameIsAskedFor) {
  remember("Summer", {});
  HostState::the().lastRenderRequestNow = true;
  kuVariants::activateCapturedVariantSet("Summer");
  EXPECT_EQ(commands(), 1u);
  EXPECT_THAT(frames(), Gt(0u));
  EXPECT_FALSE(HostState::the().lastRenderRequestNow);
}

TEST_F(kuVariantsActivateCapturedTest, SwitchComesBackToItsNodeAndThenTakesTheStateOfTheSet) {
  const osg::SwitchMaterialPtr paint = scene.switchMaterial("Paint", {red, green}, 0);
  remember("Summer", {{"Place", "Paint"}})
      .add(kuVariants::createMaterialVariant(paint, false), "Green");
  kuVariants::activateCapturedVariantSet("Summer");
  EXPECT_EQ(materialOf(place), "Paint");
  EXPECT_EQ(paint->getChoice(), 1u);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(kuVariantsActivateCapturedTest, RestoreIsToldBeforeTheSelection) {
  remember("Größe", {});
  kuVariants::activateCapturedVariantSet("Größe");
  ASSERT_THAT(messages.lines(), ::testing::SizeIs(Gt(3u)));
  EXPECT_EQ(messages.lines()[0], "variantSetAdded/1 variant:void*=kuVariantSet Temp");
  EXPECT_EQ(messages.lines()[1], "variantSetRemoved/1 variant:void*=unlisted");
  EXPECT_THAT(messages.lines()[2], ::testing::HasSubstr("=Größe"));
}

TEST_F(kuVariantsActivateCapturedTest,
       WhatAReceiverOfTheRestoreThrowsPassesOnAndNothingIsSelected) {
  remember("Summer", {});
  const MessageReceiver receiver("variantSetAdded",
                                 [](kuMessage&) { throw std::runtime_error("its own"); });
  EXPECT_THROW(kuVariants::activateCapturedVariantSet("Summer"), std::runtime_error);
  EXPECT_EQ(commands(), 0u);
  EXPECT_EQ(kuVariants::findVariantSet("Temp"), nullptr);
}

TEST_F(kuVariantsActivateCapturedTest, SetThatAReceiverOfTheRestoreRemovesIsNotSelected) {
  remember("Summer", {});
  const MessageReceiver receiver("variantSetAdded",
                                 [](kuMessage&) { kuVariants::removeVariantSet("Summer"); });
  kuVariants::activateCapturedVariantSet("Summer");
  EXPECT_EQ(commands(), 0u);
}

TEST_F(kuVariantsActivateCapturedTest, CommandIsSharedWithPartnersWhereVariantsAre) {
  remember("Summer", {});
  for (const bool sync : {true, false}) {
    HostState::the().syncVariants = sync;
    kuVariants::activateCapturedVariantSet("Summer");
    EXPECT_EQ(HostState::the().lastScriptCommandSync, sync);
  }
}

TEST_F(kuVariantsActivateCapturedTest, UnknownNameLeavesTheRestoreAndSelectsNothing) {
  remember("Summer", {{"Place", "Green"}});
  for (const char* name : {"Winter", "summer", "", "Temp"}) {
    kuVariants::activateCapturedVariantSet(name);
    EXPECT_EQ(materialOf(place), "Green") << name;
  }
  EXPECT_EQ(commands(), 0u);
  EXPECT_EQ(frames(), 0u);
  EXPECT_THAT(messages.linesOf("variantsSetSelected"), IsEmpty());
}

TEST_F(kuVariantsActivateCapturedTest, SetOfTheUsersCalledTempDisablesTheRestoreButIsSelected) {
  remember("Temp", {{"Place", "Green"}});
  kuVariants::activateCapturedVariantSet("Temp");
  EXPECT_EQ(materialOf(place), "Red");
  EXPECT_EQ(commands(), 1u);
}

TEST_F(kuVariantsActivateCapturedTest, ApostropheIsNotQuotedSoTheCommandFailsAndNothingElseDoes) {
  remember("It's", {{"Place", "Green"}});
  kuVariants::activateCapturedVariantSet("It's");
  EXPECT_THAT(refusedTexts(), ElementsAre("selectVariantSet('It's')"));
  EXPECT_EQ(materialOf(place), "Green");
  EXPECT_THAT(frames(), Gt(0u));
  EXPECT_THAT(messages.linesOf("variantsSetSelected"), IsEmpty());
}

TEST_F(kuVariantsActivateCapturedTest, ApostropheFailsWhereScriptsMayRunToo) {
  remember("It's", {});
  ScriptPolicy::allow(true);
  kuVariants::activateCapturedVariantSet("It's");
  ASSERT_THAT(log, ::testing::SizeIs(1));
  EXPECT_THAT(log.front(), ::testing::HasSubstr("SyntaxError"));
  EXPECT_THAT(messages.linesOf("variantsSetSelected"), IsEmpty());
}

TEST_F(kuVariantsActivateCapturedTest, NameGoesIntoTheCommandInUtf8) {
  remember("Übergröße '車'", {});
  kuVariants::activateCapturedVariantSet("Übergröße '車'");
  EXPECT_THAT(refusedTexts(), ElementsAre("selectVariantSet('Übergröße '車'')"));
}

TEST_F(kuVariantsActivateCapturedTest, LineFeedAndBackslashAreNotQuotedEither) {
  remember("a\nb", {});
  ScriptPolicy::allow(true);
  kuVariants::activateCapturedVariantSet("a\nb");
  ASSERT_THAT(log, ::testing::SizeIs(1));
  EXPECT_THAT(log.front(), ::testing::HasSubstr("SyntaxError"));
}
