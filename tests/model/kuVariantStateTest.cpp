#include "model/kuVariantState.h"

#include <gmock/gmock.h>

#include "model/kuVariant.h"

using ::testing::ElementsAre;

namespace {

TEST(kuVariantStateTest, ConstructorsTakeNamesOrTheVariant) {
  kuVariant variant;
  variant.setName("Roof");
  variant.setDefault(QString("Open"));
  std::vector<std::string> texts;
  for (const kuVariantState& entry :
       {kuVariantState(), kuVariantState(QString("Door")),
        kuVariantState(QString("Door"), QString("Left")), kuVariantState(&variant),
        kuVariantState(&variant, QString("Shut")), kuVariantState(&variant, QString())}) {
    texts.push_back((entry.getVariant() + "=" + entry.getState()).toStdString());
  }
  EXPECT_THAT(texts, ElementsAre("=", "Door=", "Door=Left", "Roof=Open", "Roof=Shut", "Roof="));
}

TEST(kuVariantStateTest, SetStateChangesTheStateAlone) {
  kuVariantState entry(QString("Door"), QString("Left"));
  entry.setState("!Next");
  EXPECT_EQ(entry.getVariant(), "Door");
  EXPECT_EQ(entry.getState(), "!Next");
}

}  // namespace
