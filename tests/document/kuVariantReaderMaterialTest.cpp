#include "ReaderTest.h"
#include "host/osg/Geometry.h"
#include "host/osg/MaterialGroup.h"
#include "host/osg/SwitchMaterial.h"
#include "host/utils/kuMaterials.h"
#include "standalone/kernel/MessageWatch.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

class ReaderMaterials : public ReaderTest {
 protected:
  static osg::SwitchMaterialPtr switchNamed(const char* name) {
    return osg::SwitchMaterialPtr::dcast(kuMaterials::findMaterial(name).getMaterial());
  }
  static osg::MaterialPtr ofGeometry(const osg::NodePtr& node) {
    return osg::GeometryPtr::dcast(node->getCore())->getMaterial();
  }
  static osg::MaterialPtr ofGroup(const osg::NodePtr& node) {
    return osg::MaterialGroupPtr::dcast(node->getCore())->getMaterial();
  }
  /** What a read sends that made a switch. */
  static std::vector<std::string> withSwitch() {
    std::vector<std::string> lines{"#65536"};
    lines.insert(lines.end(), changedMessages().begin(), changedMessages().end());
    return lines;
  }
};

TEST_F(ReaderMaterials, MissingSwitchIsMadeAndExchangedForThePlainMaterial) {
  const osg::MaterialPtr paint = scene.material("Paint");
  const osg::MaterialPtr red = scene.material("Red");
  const osg::NodePtr geometry = scene.geometry("Hood", paint);
  const osg::NodePtr group = scene.materialGroup("Body", paint);
  const osg::NodePtr other = scene.geometry("Seat", red);
  read(
      "<MaterialVariant name='Paint Switch' base='Paint Switch'><State name='!Next'/>"
      "<State name='Paint'/><State name='Red'/></MaterialVariant>");
  const osg::SwitchMaterialPtr made = switchNamed("Paint Switch");
  ASSERT_TRUE(made);
  EXPECT_THAT(made->getMaterials(), ElementsAre(paint, red));
  EXPECT_EQ(made->getChoice(), 0u);
  EXPECT_EQ(ofGeometry(geometry), osg::MaterialPtr(made));
  EXPECT_EQ(ofGroup(group), osg::MaterialPtr(made));
  EXPECT_EQ(ofGeometry(other), red);
  EXPECT_THAT(messages.lines(), ElementsAreArray(withSwitch()));
}

TEST_F(ReaderMaterials, NewsOfTheSwitchGoOutBetweenThePoolAndTheExchange) {
  const osg::MaterialPtr paint = scene.material("Paint");
  const osg::NodePtr geometry = scene.geometry("Hood", paint);
  int heard = 0;
  const kuStandalone::MessageWatch watch([&](const kuStandalone::PassedMessage& message) {
    if (!message.name.empty()) return;
    ++heard;
    EXPECT_TRUE(switchNamed("Paint Switch"));
    EXPECT_EQ(ofGeometry(geometry), paint);
  });
  read("<MaterialVariant name='V' base='Paint Switch'/>");
  EXPECT_EQ(heard, 1);
  EXPECT_NE(ofGeometry(geometry), paint);
}

TEST_F(ReaderMaterials, EndingMustStandAtTheEndBehindABlank) {
  const osg::MaterialPtr paint = scene.material("Paint");
  const osg::NodePtr geometry = scene.geometry("Hood", paint);
  read(
      "<MaterialVariant name='U' base='PaintSwitch'/><MaterialVariant name='V' base='Paint Switch "
      "'/><MaterialVariant name='W' base='Paint switch'/>");
  EXPECT_EQ(ofGeometry(geometry), paint);
}

TEST_F(ReaderMaterials, BaseWithoutTheEndingExchangesNothing) {
  const osg::MaterialPtr plain = scene.material("Lack");
  const osg::NodePtr geometry = scene.geometry("Hood", plain);
  read("<MaterialVariant name='V' base='Paint'/>");
  EXPECT_TRUE(switchNamed("Paint"));
  EXPECT_EQ(ofGeometry(geometry), plain);
  EXPECT_THAT(messages.lines(), ElementsAreArray(withSwitch()));
}

TEST_F(ReaderMaterials, ExistingMaterialOfThatNameIsLeftAlone) {
  const osg::MaterialPtr plain = scene.material("Paint");
  const osg::NodePtr geometry = scene.geometry("Hood", plain);
  const osg::MaterialPtr existing = scene.material("Paint Switch");
  read("<MaterialVariant name='V' base='Paint Switch'><State name='Paint'/></MaterialVariant>");
  EXPECT_EQ(kuMaterials::findMaterial("Paint Switch").getMaterial(), existing);
  EXPECT_EQ(kuMaterials::findMaterials("Paint Switch").size(), 1u);
  EXPECT_EQ(ofGeometry(geometry), plain);
  EXPECT_THAT(messages.lines(), ElementsAreArray(changedMessages()));
}

TEST_F(ReaderMaterials, SwitchWithoutMaterialsHasNoSubMaterialsAndChoiceZero) {
  read("<MaterialVariant name='V' base='Paint Switch'><State name='Gone'/></MaterialVariant>");
  const osg::SwitchMaterialPtr made = switchNamed("Paint Switch");
  ASSERT_TRUE(made);
  EXPECT_TRUE(made->getMaterials().empty());
  EXPECT_EQ(made->getChoice(), 0u);
}

}  // namespace
