// What comes back when a document that was written is read.

#include "WriterTest.h"
#include "document/kuVariantReader.h"
#include "host/kernel/kuController.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "support/ManagerDump.h"

namespace {

class WriterReloadTest : public WriterTest {
 protected:
  /** What the emptied manager holds after reading what was written. */
  std::string reload() {
    const QByteArray text = writer.write();
    kuController::call("clearAllVariants", 1);
    reader.read(text.constData());
    return managerDump();
  }

  kuVariantReader reader;
};

void fill(kuVariantSet& set) {
  set.setComment("\xC3\x84 <&>\" '\t\n");
  set.setHotkey("Ctrl+Shift+K");
  set.setScript("a = 1\nif a < 2 and \"b\":\n\tprint('<![CDATA[x]]>')\n");
  set.setShowInVRMenu(false);
  set.setDefaultViewpoint("w");
  set.setSequentialAnimation(true);
  set.setInclInfo(true, false, true, false, true, true);
  set.addNodeVariant("n", "!Next");
  set.addNodeVariant("m", "");
  set.addTransformVariant("t", "1");
  set.addMaterialVariant("m", "2");
  set.addLightVariant("l", "!Enable");
  set.addOverlayVariant("o", "x");
  for (const char* name : {"b", "a"}) {
    set.addViewpoint(name);
    set.addAnimation(name);
    set.addGeometry(name);
    set.addTargetNodeName(name);
    set.addValue(name, "1");
    set.addMaterialSnapshot(name, "2");
  }
  set.setClippingState(3);
  set.setClippingPlanePositionX(-0.5);
  set.setClippingHideScene(true);
  set.setClippingContourWidth(7);
}

TEST_F(WriterReloadTest, WholeManagerComesBack) {
  scene.switchMaterial("B", {}, 0);
  kuVariantGroup& group = addGroup("G");
  group.setComment("c");
  group.setShowInVRMenu(false);
  fill(addSet("B", &group));
  addSet("A", &group).setHotkey("");
  addGroup("hidden", false).setSyncInCollaboration(false);
  kuVariantSet& free = addSet("free");
  free.setHotkey("");
  free.setSyncInCollaboration(false);
  kuVariants::createNodeVariant("N", false)->setNode("B");
  kuVariants::createNodeVariant("M", false)->add("b", "Ctrl+A");
  kuVariants::createMaterialVariant("N", false)->setMaterial("B");
  kuVariants::createLightVariant("N", false)->setNode("B");
  kuVariants::createOverlayVariant("N", false)->setOverlay("B");
  kuTransformVariant* transform = kuVariants::createTransformVariant("N", false);
  transform->setNode("B");
  transform->setDefault(QString("z"));
  transform->add("b", "");
  transform->add("a", "F5");
  const std::string before = managerDump();
  EXPECT_EQ(reload(), before);
}

TEST_F(WriterReloadTest, DocumentReadAndWrittenAgainIsTheSame) {
  fill(addSet("A", &addGroup("G", false)));
  kuVariants::createNodeVariant("N", false)->add("a", "F5");
  const std::string once = written();
  reload();
  EXPECT_EQ(written(), once);
}

TEST_F(WriterReloadTest, VisibleAndHiddenGroupsStayWhatTheyAre) {
  addGroup("shown", true);
  addGroup("hidden", false);
  EXPECT_EQ(reload(), "group shown\ngroup hidden visible=0\n");
}

TEST_F(WriterReloadTest, HotkeysComeBackNormalised) {
  addSet("S").setHotkey(" Shift-Ctrl K ");
  kuVariants::createNodeVariant("N", false)->add("a", "Ctrl-A ");
  EXPECT_EQ(reload(),
            "set S hotkey=Shift+Ctrl+K key=75 modifier=100663296\n"
            "nodeVariant N base=\n  option a hotkey=Ctrl+A key=65 modifier=67108864\n");
}

TEST_F(WriterReloadTest, StepsLoseTheirActionFlag) {
  kuVariants::createNodeVariant("N", false)->add(true, "!Next", "");
  EXPECT_EQ(reload(), "nodeVariant N base=\n  option !Next\n");
}

TEST_F(WriterReloadTest, FloatsKeepSixDigits) {
  kuVariantSet& set = addSet("S");
  set.setClippingPlanePositionX(1.0 / 3);
  set.setClippingPlanePositionY(123456789);
  set.setClippingPlanePositionZ(1e-7);
  reload();
  const auto& read = kuVariants::findVariantSet("S")->getClippingPlanePosition();
  EXPECT_EQ(read[0], 0.333333F);
  EXPECT_EQ(read[1], 123457000.F);
  EXPECT_EQ(read[2], 1e-7F);
}

TEST_F(WriterReloadTest, BytesOfThePreviewStay) {
  QByteArray bytes;
  for (int i = 0; i < 1000; ++i)
    bytes += char(i * 7);
  addSet("S").setPreview(bytes);
  reload();
  EXPECT_EQ(kuVariants::findVariantSet("S")->getPreview(), bytes);
}

}  // namespace
