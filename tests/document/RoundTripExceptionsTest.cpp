// What a document does not bring back as it was, each exception by itself; and beside each of them
// how far it goes.

#include <limits>

#include "DocumentModel.h"
#include "RoundTripTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

using ::testing::IsEmpty;

namespace {

class RoundTripExceptions : public RoundTripTest {
 protected:
  static kuVariantSet* set(const QString& name, kuVariantGroup* group = nullptr) {
    return kuVariants::createVariantSet(name, false, group);
  }
  static kuVariantGroup* group(const QString& name) {
    return kuVariants::createVariantGroup(name, false, true);
  }
  static kuOverlayVariant* overlay(const QString& name, const QStringList& options = {}) {
    kuOverlayVariant* variant = kuVariants::createOverlayVariant(name, false);
    for (const QString& option : options)
      variant->add(option, "");
    return variant;
  }

  /** The plane's X after a reload. */
  static std::string reloaded(float value) {
    set("S")->setClippingPlanePositionX(double(value));
    reload();
    const float result = kuVariants::findVariantSet("S")->getClippingPlanePosition()[0];
    clear();
    return exactText(result);
  }
};

TEST_F(RoundTripExceptions, HotkeysComeBackNormalized) {
  set("S")->setHotkey(" Shift-Ctrl K ");
  kuVariants::createNodeVariant("V", false)->add("A", "Ctrl-B");
  EXPECT_EQ(afterReload(),
            "set S hotkey=Shift+Ctrl+K key=75 modifier=100663296\n"
            "nodeVariant V base=\n"
            "  option A hotkey=Ctrl+B key=66 modifier=67108864\n");
}

TEST_F(RoundTripExceptions, ASetThatNeverHadAHotkeyHasTheKeyZeroAfterwards) {
  EXPECT_EQ(set("S")->getShortcutKey(), -1);
  EXPECT_EQ(afterReload(), "set S key=0\n");
}

TEST_F(RoundTripExceptions, FloatsKeepSixSignificantDigits) {
  EXPECT_EQ(reloaded(0.123456789F), exactText(0.123457F));
  EXPECT_EQ(reloaded(1234567.0F), exactText(1234570.0F));
  EXPECT_EQ(reloaded(-999999.6F), exactText(-1000000.0F));
  EXPECT_EQ(reloaded(0.1F), exactText(0.1F));
  EXPECT_EQ(reloaded(std::numeric_limits<float>::max()), exactText(3.40282e38F));
  EXPECT_EQ(reloaded(std::numeric_limits<float>::denorm_min()),
            exactText(std::numeric_limits<float>::denorm_min()));
}

TEST_F(RoundTripExceptions, ATieInTheSeventhDigitGoesAwayFromZero) {
  EXPECT_EQ(reloaded(123456.5F), exactText(123457.0F));
  EXPECT_EQ(reloaded(-123456.5F), exactText(-123457.0F));
}

TEST_F(RoundTripExceptions, MinusZeroBecomesZero) { EXPECT_EQ(reloaded(-0.0F), exactText(0.0F)); }

TEST_F(RoundTripExceptions, WhatIsNoNumberComesBack) {
  using Limits = std::numeric_limits<float>;
  EXPECT_EQ(reloaded(Limits::quiet_NaN()), "nan");
  EXPECT_EQ(reloaded(Limits::infinity()), "inf");
  EXPECT_EQ(reloaded(-Limits::infinity()), "-inf");
}

TEST_F(RoundTripExceptions, TheActionFlagOfOptionsIsLost) {
  scene.switchNode("Doors", 0, {"Open"});
  kuVariants::createNodeVariant(kuScenegraph::findNode("Doors"), false);
  ASSERT_TRUE(kuVariants::findNodeVariant("Doors")->isAction("!Next"));
  reload();
  kuNodeVariant* doors = kuVariants::findNodeVariant("Doors");
  EXPECT_TRUE(doors->find("!Next"));
  EXPECT_FALSE(doors->isAction("!Next"));
}

TEST_F(RoundTripExceptions, ANamelessGroupIsLostWithItsSets) {
  kuVariantGroup* nameless = group("G");
  set("Lost", nameless);
  set("Kept");
  nameless->setName("");
  EXPECT_EQ(afterReload(), "set Kept key=0\n");
}

TEST_F(RoundTripExceptions, ANamelessSetIsLost) {
  kuVariantGroup* kept = group("G");
  set("A", kept)->setName("");
  set("B")->setName("");
  EXPECT_EQ(afterReload(), "group G\n");
}

TEST_F(RoundTripExceptions, ANamelessOverlayVariantIsLost) {
  overlay("A")->setName("");
  overlay("B");
  EXPECT_EQ(afterReload(), "overlayVariant B base=\n");
}

TEST_F(RoundTripExceptions, NamelessVariantsOfTheOtherKindsComeBackEachForItself) {
  for (const char* base : {"First", "Second"}) {
    kuVariants::createNodeVariant("", false)->setNode(base);
    kuVariants::createMaterialVariant("", false)->setMaterial(base);
    kuVariants::createLightVariant("", false)->setNode(base);
    kuVariants::createTransformVariant("", false)->setNode(base);
  }
  EXPECT_EQ(afterReload(),
            "nodeVariant  base=First\nnodeVariant  base=Second\n"
            "materialVariant  base=First\nmaterialVariant  base=Second\n"
            "lightVariant  base=First\nlightVariant  base=Second\n"
            "transformVariant  base=First\ntransformVariant  base=Second\n");
}

TEST_F(RoundTripExceptions, OfGroupsOfOneNameTheLastStaysAndTheFirstsSetsAreUngrouped) {
  group("G")->setComment("first");
  set("A", kuVariants::findVariantGroup("G"));
  kuVariantGroup* other = group("Other");
  set("B", other);
  group("H");
  other->setName("G");
  other->setComment("second");
  EXPECT_EQ(afterReload(),
            "group G comment=second\n  set B\ngroup H\n"
            "set A key=0\nset B key=0 group=G\n");
}

TEST_F(RoundTripExceptions, OfSetsOfOneNameTheLastStays) {
  kuVariantGroup* first = group("G");
  set("A", first)->setComment("first");
  kuVariantSet* other = set("Other");
  other->setComment("second");
  other->setName("A");
  EXPECT_EQ(afterReload(), "group G\nset A key=0 comment=second\n");
}

TEST_F(RoundTripExceptions, VariantsOfOneNameBecomeOneWithTheContentOfTheLast) {
  kuNodeVariant* first = kuVariants::createNodeVariant("V", false);
  first->setNode("first");
  first->add("A", "");
  kuVariants::createNodeVariant("W", false);
  kuNodeVariant* last = kuVariants::createNodeVariant("Other", false);
  last->setNode("last");
  last->add("B", "");
  last->setName("V");
  EXPECT_EQ(afterReload(), "nodeVariant V base=last\n  option B\nnodeVariant W base=\n");
}

TEST_F(RoundTripExceptions, OfOptionsOfOneNameTheFirstStays) {
  kuNodeVariant* variant = kuVariants::createNodeVariant("V", false);
  variant->add("A", "F1");
  variant->add("Other", "F2");
  variant->find("Other")->setName("A");
  EXPECT_EQ(afterReload(), "nodeVariant V base=\n  option A hotkey=F1 key=16777264\n");
}

TEST_F(RoundTripExceptions, OverlayStatesWithoutTextBecomeExplicit) {
  scene.sceneplate("C");
  overlay("A", {"1", "2", "3"});
  kuVariantSet* changed = set("S");
  changed->addOverlayVariant("A", "");
  changed->addOverlayVariant("B", "");
  EXPECT_EQ(afterReload(),
            "set S key=0\n  overlay A=!Enable\n  overlay B=!Enable\n  overlay C=!Disable\n"
            "overlayVariant A base=\n  option 1\n  option 2\n  option 3\n"
            "overlayVariant B base=\noverlayVariant C base=\n");
}

TEST_F(RoundTripExceptions, AnOverlayStateWithoutTextStaysIfTheVariantHasFourOptions) {
  scene.sceneplate("C");
  overlay("A", {"1", "2", "3", "4"});
  set("S")->addOverlayVariant("A", "");
  EXPECT_EQ(afterReload(),
            "set S key=0\n  overlay A=\n"
            "overlayVariant A base=\n  option 1\n  option 2\n  option 3\n  option 4\n");
}

TEST_F(RoundTripExceptions, TheSetsOfGroupsComeBeforeTheOthers) {
  set("Ungrouped");
  kuVariantGroup* first = group("G");
  set("B", group("H"));
  set("A", first);
  EXPECT_EQ(afterReload(),
            "group G\n  set A\ngroup H\n  set B\n"
            "set A key=0 group=G\nset B key=0 group=H\nset Ungrouped key=0\n");
}

TEST_F(RoundTripExceptions, WhatXmlCannotHoldIsReplaced) {
  QString comment = QStringLiteral("a\u0001b");
  comment += QChar(0xD800);
  comment += QChar(0xFFFF);
  set("S")->setComment(comment);
  EXPECT_EQ(afterReload(), "set S key=0 comment=a\uFFFDb\uFFFD\uFFFD\n");
}

TEST_F(RoundTripExceptions, NothingElseOfTextsIsLost) {
  kuVariantSet* kept = set("\t<S>\r\n");
  kept->setComment(" \n ");
  kept->setScript("\r");
  kept->addValue("]]>", "\r\n]]>\t");
  kept->addValue(" ", "   ");
  EXPECT_EQ(afterReload(),
            "set \t<S>\r\n key=0 comment= \n  script=\r\n  value  =   \n  value ]]>=\r\n]]>\t\n");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(RoundTripExceptions, PreviewsOfEveryLengthComeBackByteByByte) {
  QByteArray preview;
  for (int length = 1; length <= 300; ++length) {
    preview.append(char(length * 7));
    set("S" + QString::number(length))->setPreview(preview);
  }
  reload();
  preview.clear();
  for (int length = 1; length <= 300; ++length) {
    preview.append(char(length * 7));
    ASSERT_EQ(kuVariants::findVariantSet("S" + QString::number(length))->getPreview(), preview);
  }
}

}  // namespace
