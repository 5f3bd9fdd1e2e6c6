#include <type_traits>
#include <typeinfo>

#include "CommandBytes.h"
#include "host/session/kuSessionCommandFactory.h"
#include "session/kuSessionVariantCommand.h"
#include "session/kuSessionVariantSetCommand.h"
#include "support/VariantsTest.h"

namespace {

const kuSessionCommandFactory& factory() { return kuSessionCommandFactory::the(); }

kuSessionCommandFactory::Command made(const char* name) { return factory().create(name); }

}  // namespace

TEST(SessionRegistrationTest, EachCommandIsMadeByItsName) {
  const auto variant = made("SelectVariant");
  ASSERT_TRUE(variant);
  const kuSessionCommand& one = *variant;
  EXPECT_EQ(typeid(one), typeid(kuSessionVariantCommand));
  const auto set = made("SelectVariantSet");
  ASSERT_TRUE(set);
  const kuSessionCommand& other = *set;
  EXPECT_EQ(typeid(other), typeid(kuSessionVariantSetCommand));
}

TEST(SessionRegistrationTest, NumberOfACommandLeadsToItsName) {
  const kuSessionVariantCommand variant(nullptr, "");
  const kuSessionVariantSetCommand set(nullptr, true, false);
  EXPECT_EQ(factory().nameOf(variant.getType()), "SelectVariant");
  EXPECT_EQ(factory().nameOf(set.getType()), "SelectVariantSet");
  EXPECT_NE(variant.getType(), set.getType());
}

TEST(SessionRegistrationTest, CommandsOfAClassHaveOneNumberHoweverTheyAreMade) {
  EXPECT_EQ(made("SelectVariant")->getType(), kuSessionVariantCommand(nullptr, "Open").getType());
  EXPECT_EQ(made("SelectVariantSet")->getType(),
            kuSessionVariantSetCommand(nullptr, false, true).getType());
}

TEST(SessionRegistrationTest, CommandsRunAtTheSenderAndForLateJoinersButNotWhileTheHostIsBusy) {
  for (const char* name : {"SelectVariant", "SelectVariantSet"}) {
    SCOPED_TRACE(name);
    const auto command = made(name);
    EXPECT_TRUE(command->runsAtSender());
    EXPECT_TRUE(command->isForLateJoiners());
    EXPECT_FALSE(command->runsWhileBusy());
  }
}

TEST(SessionRegistrationTest, NobodyDerivesFromACommandThatHasNoVirtualDestructor) {
  static_assert(std::is_final_v<kuSessionVariantCommand>);
  static_assert(std::is_final_v<kuSessionVariantSetCommand>);
  EXPECT_FALSE(std::has_virtual_destructor_v<kuSessionVariantCommand>);
  EXPECT_FALSE(std::has_virtual_destructor_v<kuSessionVariantSetCommand>);
}

TEST(SessionRegistrationTest, CommandThatWasReadIsFreedWithAllThatItHolds) {
  // The address sanitizer sees what is freed as a smaller class, or not at all.
  const auto variant = made("SelectVariant");
  const QByteArray variantBytes = CommandBytes::written(kuSessionVariantCommand(nullptr, "Open"));
  EXPECT_TRUE(CommandBytes::readWhole(*variant, variantBytes));
  const auto set = made("SelectVariantSet");
  const auto setBytes = QByteArray::fromHex(
      "000000020053 00000001 00000001 00000001 000000020041 "
      "000000020042");
  EXPECT_TRUE(CommandBytes::readWhole(*set, setBytes));
}
