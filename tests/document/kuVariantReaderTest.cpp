#include "ReaderTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

TEST_F(ReaderTest, EmptyRootLoadsNothingAndStillTells) {
  EXPECT_EQ(after(""), "");
  EXPECT_THAT(messages.lines(), ElementsAreArray(changedMessages()));
}

TEST_F(ReaderTest, AnyRootElementLoads) {
  readText("<Whatever><VariantSet name='A'/></Whatever>");
  EXPECT_EQ(managerDump(), "set A\n");
}

TEST_F(ReaderTest, InstructionAndDocumentTypeAreRead) {
  readText(
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE variants>\n"
      "<Variants><VariantSet name=\"\xC3\x84\"/></Variants>");
  EXPECT_EQ(managerDump(), "set \xC3\x84\n");
}

TEST_F(ReaderTest, UnknownElementsTextAndCommentsAreIgnored) {
  EXPECT_EQ(after("text<!-- c --><Other name='O'/><VariantSet name='A' odd='1'><Odd/>t"
                  "</VariantSet><variantset name='B'/>"),
            "set A\n");
}

TEST_F(ReaderTest, ElementsMixInAnyOrder) {
  EXPECT_EQ(after("<TransformVariant name='T'/><VariantSet name='B'/><NodeVariant name='N'/>"
                  "<VariantGroup name='G'><VariantSet name='A'/></VariantGroup>"),
            "group G\n  set A\nset B\nset A group=G\n"
            "nodeVariant N base=\ntransformVariant T base=\n");
}

// Groups

TEST_F(ReaderTest, GroupTakesItsAttributes) {
  EXPECT_EQ(after("<VariantGroup name='G' comment='c' showinvrmenu='false' "
                  "synccollaboration='false' visible='false'/>"),
            "group G comment=c visible=0 vr=0 sync=0\n");
}

TEST_F(ReaderTest, GroupWithoutAttributesKeepsTheFlagsOfANewOne) {
  EXPECT_EQ(after("<VariantGroup name='G'/>"), "group G\n");
}

TEST_F(ReaderTest, GroupAttributeNamedTrueIsIgnored) {
  EXPECT_EQ(after("<VariantGroup name='G' true='false'/>"), "group G\n");
}

TEST_F(ReaderTest, GroupVisibleInCapitalsIsInvisible) {
  EXPECT_EQ(after("<VariantGroup name='G' visible='TRUE'/>"), "group G visible=0\n");
  EXPECT_EQ(after("<VariantGroup name='G' visible='true'/>"), "group G\n");
}

TEST_F(ReaderTest, GroupFlagsOtherThanTrueAreFalse) {
  EXPECT_EQ(after("<VariantGroup name='G' showinvrmenu='1' synccollaboration='True'/>"),
            "group G vr=0 sync=0\n");
}

TEST_F(ReaderTest, GroupKeepsTheOrderOfItsSetsAndIgnoresOtherChildren) {
  EXPECT_EQ(after("<VariantGroup name='G'><VariantSet name='B'/>x<NodeVariant name='N'/>"
                  "<VariantSet name='A'/></VariantGroup>"),
            "group G\n  set B\n  set A\nset B group=G\nset A group=G\n");
}

TEST_F(ReaderTest, GroupOfTheSameNameIsReplacedAndItsSetsStayUngrouped) {
  read(
      "<VariantGroup name='G' comment='old'><VariantSet name='A'/><VariantSet name='B'/>"
      "</VariantGroup>");
  messages.clear();
  EXPECT_EQ(after("<VariantGroup name='G'><VariantSet name='B'/></VariantGroup>"),
            "group G\n  set B\nset A\nset B group=G\n");
  std::vector<std::string> expected{"variantGroupRemoved/1 variant:void*=unlisted",
                                    "variantSetRemoved/1 variant:void*=unlisted"};
  expected.insert(expected.end(), changedMessages().begin(), changedMessages().end());
  EXPECT_THAT(messages.lines(), ElementsAreArray(expected));
}

TEST_F(ReaderTest, GroupWithoutNameIsSkippedWithItsSets) {
  EXPECT_EQ(after("<VariantGroup><VariantSet name='A'/></VariantGroup>"), "");
}

TEST_F(ReaderTest, GroupWithEmptyNameIsSkipped) {
  EXPECT_EQ(after("<VariantGroup name=''><VariantSet name='A'/></VariantGroup>"), "");
  EXPECT_THAT(log, ElementsAre());
}

// Variants

struct KindRow {
  const char* tag;
  const char* kind;
};

void PrintTo(const KindRow& row, std::ostream* out) { *out << row.tag; }

class ReaderKinds : public ReaderTest, public ::testing::WithParamInterface<KindRow> {
 protected:
  std::string element(const std::string& attributes, const std::string& content = {}) {
    const std::string tag = GetParam().tag;
    return "<" + tag + " " + attributes + ">" + content + "</" + tag + ">";
  }
  std::string kind() const { return GetParam().kind; }
};

TEST_P(ReaderKinds, AreCreatedSilently) {
  scene.switchMaterial("B", {}, 0);
  EXPECT_EQ(after(element("name='N' base='B'",
                          "<Default ref='x'/><Default ref='y'/><State name='y'><Hotkey> Ctrl-A "
                          "</Hotkey></State><State name='z'/><Other name='o'/>")),
            kind() +
                " N base=B default=y\n  option y hotkey=Ctrl+A key=65 modifier=67108864\n"
                "  option z\n");
  EXPECT_THAT(messages.lines(), ElementsAreArray(changedMessages()));
}

TEST_P(ReaderKinds, AreRefilledInPlace) {
  scene.switchMaterial("B", {}, 0);
  scene.switchMaterial("", {}, 0);
  read(element("name='N' base='B'", "<Default ref='a'/><State name='a'/><State name='b'/>"));
  const kuVariant* before = nullptr;
  for (int type = 0; type < 5; ++type) {
    if (!before) before = kuVariants::findVariant(VariantType(type), "N");
  }
  ASSERT_TRUE(before);
  const VariantType type = kuVariants::getVariantType(before);
  EXPECT_EQ(after(element("name='N'", "<State name='c'/>")),
            kind() + " N base= default=a\n  option c\n");
  EXPECT_EQ(kuVariants::findVariant(type, "N"), before);
}

TEST_P(ReaderKinds, WithoutNameAreSkipped) { EXPECT_EQ(after(element("base='B'")), ""); }

TEST_P(ReaderKinds, StatesWithoutNameAndTwiceTheSame) {
  scene.switchMaterial("", {}, 0);
  EXPECT_EQ(after(element("name='N'",
                          "<State/><State name='a'><Hotkey>A</Hotkey></State>"
                          "<State name='a'><Hotkey>B</Hotkey></State><State/>")),
            kind() + " N base=\n  option \n  option a hotkey=A key=65\n");
}

TEST_P(ReaderKinds, StepsLoseTheirActionFlag) {
  scene.switchMaterial("", {}, 0);
  EXPECT_EQ(after(element("name='N'", "<State name='!Next'/>")),
            kind() + " N base=\n  option !Next\n");
}

TEST_P(ReaderKinds, TheLastHotkeyOfAStateCounts) {
  scene.switchMaterial("", {}, 0);
  EXPECT_EQ(after(element("name='N'",
                          "<State name='a'><Hotkey>A</Hotkey><x/>"
                          "<Hotkey>B</Hotkey></State>")),
            kind() + " N base=\n  option a hotkey=B key=66\n");
}

TEST_P(ReaderKinds, DefaultWithoutReferenceIsEmpty) {
  scene.switchMaterial("", {}, 0);
  EXPECT_EQ(after(element("name='N'", "<Default ref='a'/><Default/>")), kind() + " N base=\n");
}

INSTANTIATE_TEST_SUITE_P(Tags, ReaderKinds,
                         ::testing::Values(KindRow{"NodeVariant", "nodeVariant"},
                                           KindRow{"MaterialVariant", "materialVariant"},
                                           KindRow{"LightVariant", "lightVariant"},
                                           KindRow{"SceneplateVariant", "overlayVariant"},
                                           KindRow{"OverlayVariant", "overlayVariant"},
                                           KindRow{"TransformVariant", "transformVariant"}),
                         [](const auto& row) { return std::string(row.param.tag); });

TEST_F(ReaderTest, OverlayWithEmptyNameIsSkippedOtherKindsAreNameless) {
  scene.switchMaterial("", {}, 0);
  EXPECT_EQ(after("<SceneplateVariant name=''/>"), "");
  EXPECT_EQ(after("<NodeVariant name=''/><LightVariant name=''/>"),
            "nodeVariant  base=\nlightVariant  base=\n");
}

TEST_F(ReaderTest, ReadVariantKnowsThreeKinds) {
  ParsedElement node("<NodeVariant name='N'/>");
  const void* made1 = kuVariantReader::readVariant(node.element);
  EXPECT_EQ(made1, kuVariants::findNodeVariant("N"));
  ParsedElement light("<LightVariant name='L'/>");
  const void* made2 = kuVariantReader::readVariant(light.element);
  EXPECT_EQ(made2, kuVariants::findLightVariant("L"));
  scene.switchMaterial("", {}, 0);
  ParsedElement material("<MaterialVariant name='M'/>");
  ASSERT_TRUE(kuVariantReader::readVariant(material.element));
  EXPECT_EQ(managerDump(), "nodeVariant N base=\nmaterialVariant M base=\nlightVariant L base=\n");
}

TEST_F(ReaderTest, ReadVariantOfOtherElementsIsNullAndChangesNothing) {
  for (const char* tag :
       {"TransformVariant", "SceneplateVariant", "OverlayVariant", "VariantSet"}) {
    ParsedElement other(std::string("<") + tag + " name='N'/>");
    EXPECT_EQ(kuVariantReader::readVariant(other.element), nullptr);
  }
  QDomElement null;
  EXPECT_EQ(kuVariantReader::readVariant(null), nullptr);
  EXPECT_EQ(managerDump(), "");
}

TEST_F(ReaderTest, StaticReadersAnswerWhatTheyMade) {
  ParsedElement group("<VariantGroup name='G'><VariantSet name='A'/></VariantGroup>");
  const void* made3 = kuVariantReader::readVariantGroup(group.element);
  EXPECT_EQ(made3, kuVariants::findVariantGroup("G"));
  ParsedElement set("<VariantSet name='B'/>");
  const void* made4 = kuVariantReader::readVariantSet(set.element, true);
  EXPECT_EQ(made4, kuVariants::findVariantSet("B"));
  ParsedElement transform("<TransformVariant name='T'/>");
  const void* made5 = kuVariantReader::readTransformVariant(transform.element);
  EXPECT_EQ(made5, kuVariants::findTransformVariant("T"));
  ParsedElement overlay("<OverlayVariant name='O'/>");
  const void* made6 = kuVariantReader::readOverlayVariant(overlay.element);
  EXPECT_EQ(made6, kuVariants::findOverlayVariant("O"));
}

// Failures

struct FaultRow {
  const char* name;
  const char* text;
  const char* error;
};

void PrintTo(const FaultRow& row, std::ostream* out) { *out << row.name; }

constexpr FaultRow faults[] = {
    {"TagMismatch", "<Variants><VariantSet name='A'/>\n<VariantSet name='B'></Variants>",
     "\"tag mismatch\" at 2 32"},
    {"MissingEnd", "<Variants>\n<VariantSet name='A'/>", "\"unexpected end of file\" at 2 23"},
    {"CutInATag", "<Variants><VariantSet na", "\"unexpected end of file\" at 1 25"},
    {"EmptyText", "", "\"unexpected end of file\" at 1 1"},
    {"NoText", nullptr, "\"unexpected end of file\" at 1 1"},
    {"NoMarkup", "variants", "\"error occurred while parsing element\" at 1 1"},
    {"TwoRoots", "<Variants/>\n<Variants/>", "\"unexpected character\" at 2 2"},
    {"Entities", "<!DOCTYPE a [\n<!ENTITY b 'c'>]><Variants/>",
     "\"entity declarations are not allowed\" at 2 1"},
};

class ReaderFaults : public ReaderTest, public ::testing::WithParamInterface<FaultRow> {};

TEST_P(ReaderFaults, AreLoggedWithTheirPlaceAndLeaveTheManagerAlone) {
  kuVariants::createVariantSet("A", false, nullptr)->addOverlayVariant("P", "");
  reader.read(GetParam().text);
  EXPECT_EQ(managerDump(), "set A\n  overlay P=\n");
  EXPECT_THAT(messages.lines(), ElementsAre());
  EXPECT_THAT(log, ElementsAre(std::string("error: Error loading variants: ") + GetParam().error));
}

INSTANTIATE_TEST_SUITE_P(Texts, ReaderFaults, ::testing::ValuesIn(faults),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ReaderTest, ReaderReadsAgainAfterAFault) {
  readText("<Variants>");
  EXPECT_EQ(after("<VariantSet name='A'/>"), "set A\n");
}

TEST_F(ReaderTest, ReadingTwiceReplaces) {
  const std::string text =
      "<VariantGroup name='G'><VariantSet name='A'><NodeVariantRef ref='N' "
      "state='x'/></VariantSet></VariantGroup><NodeVariant name='N'>"
      "<State name='x'/></NodeVariant>";
  const std::string once = after(text);
  EXPECT_EQ(after(text), once);
  EXPECT_EQ(once, "group G\n  set A\nset A group=G\n  node N=x\nnodeVariant N base=\n  option x\n");
}

TEST_F(ReaderTest, CopiesAndMovedFromReadersRead) {
  read("<VariantSet name='A'/>");
  kuVariantReader copy(reader);
  kuVariantReader moved(std::move(copy));
  copy = moved;
  copy.read("<Variants><VariantSet name='B'/></Variants>");
  reader.read("<Variants><VariantSet name='C'/></Variants>");
  moved.read("<Variants><VariantSet name='D'/></Variants>");
  EXPECT_EQ(managerDump(), "set A\nset B\nset C\nset D\n");
}

TEST_F(ReaderTest, HotkeyTextIsNormalised) {
  EXPECT_EQ(kuVariantsTestAccess::normalizeHotkeyText("  Shift-Ctrl K\n"), "Shift+Ctrl+K");
  EXPECT_EQ(kuVariantsTestAccess::normalizeHotkeyText(" "), "");
}

// Where the parser itself is lenient. None of it harms the manager.

TEST_F(ReaderTest, ParserKeepsWhatXmlForbids) {
  EXPECT_EQ(after("<VariantSet name='A\x01'/>"), "set A\x01\n");
  EXPECT_EQ(after("<VariantSet name='A\x01' comment='a' comment='b'/>"), "set A\x01 comment=b\n");
}

TEST_F(ReaderTest, ParserMendsInvalidUtf8AndCutsLargeCharacters) {
  EXPECT_EQ(after("<VariantSet name='A\xFF'/>"), "set A\xEF\xBF\xBD\n");
  EXPECT_EQ(after("<VariantSet name='&#x1F600;'/>"), "set A\xEF\xBF\xBD\nset \xEF\x98\x80\n");
}

TEST_F(ReaderTest, ParserDropsUndeclaredEntities) {
  EXPECT_EQ(after("<VariantSet name='A'><Script>a&b;c</Script></VariantSet>"), "set A script=ac\n");
}

}  // namespace
