#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "support/VariantsTest.h"

namespace {

template <class Kind>
class kuVariantSetVariantsTest : public VariantsTest {
 protected:
  kuVariantSetVariantsTest() {
    variant.setName("X");
    variant.setDefault(QString("default"));
  }
  Kind variant;
  kuVariantSet set{"Summer"};
};

using Kinds =
    ::testing::Types<kuNodeVariant, kuMaterialVariant, kuLightVariant, kuTransformVariant>;
TYPED_TEST_SUITE(kuVariantSetVariantsTest, Kinds);

TYPED_TEST(kuVariantSetVariantsTest, AddOfAnEmptyStateTakesTheDefault) {
  this->set.add(&this->variant, "");
  ASSERT_NE(this->set.find(&this->variant), nullptr);
  EXPECT_EQ(this->set.find(&this->variant)->getState(), "default");
}

TYPED_TEST(kuVariantSetVariantsTest, ASecondAddReplacesTheStateAndRemoveEndsIt) {
  this->set.add(&this->variant, "one");
  this->set.add(&this->variant, "two");
  EXPECT_EQ(this->set.find(&this->variant)->getState(), "two");
  this->set.remove(&this->variant);
  EXPECT_EQ(this->set.find(&this->variant), nullptr);
}

using OverlayOfASetTest = VariantsTest;

TEST_F(OverlayOfASetTest, AddOfAnEmptyStateTakesTheDefault) {
  kuOverlayVariant variant;
  variant.setName("X");
  variant.setDefault(QString("default"));
  kuVariantSet set("Summer");
  set.add(&variant, "");
  EXPECT_EQ(set.findOverlayVariant("X")->getState(), "default");
}

}  // namespace
