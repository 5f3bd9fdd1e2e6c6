#include "WriterTest.h"
#include "host/kernel/kuController.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "support/ManagerDump.h"

using ::testing::ElementsAre;

namespace {

TEST_F(WriterTest, EmptyManagerYieldsInstructionDocumentTypeAndEmptyRoot) {
  EXPECT_EQ(written(),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE variants>\n<Variants/>\n");
}

TEST_F(WriterTest, TextIsUtf8) {
  addGroup("\xC3\x84\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(written(),
            documentOf("  <VariantGroup name=\"\xC3\x84\xE2\x82\xAC\xF0\x9F\x98\x80\" comment=\"\" "
                       "showinvrmenu=\"true\" synccollaboration=\"true\" true=\"false\"/>\n"));
}

TEST_F(WriterTest, RootHasNoAttributes) {
  addGroup("G");
  EXPECT_EQ(linesOf(written())[2], "<Variants>");
}

// Groups

struct GroupRow {
  const char* name;
  void (*change)(kuVariantGroup&);
  const char* attributes;
};

void PrintTo(const GroupRow& row, std::ostream* out) { *out << row.name; }

const GroupRow groupRows[] = {
    {"VisibleBearsTheAttributeNamedTrueWithFalse", [](kuVariantGroup&) {},
     "comment=\"\" showinvrmenu=\"true\" synccollaboration=\"true\" true=\"false\""},
    {"HiddenBearsVisibleWithFalse", [](kuVariantGroup& group) { group.setVisible(false); },
     "comment=\"\" showinvrmenu=\"true\" synccollaboration=\"true\" visible=\"false\""},
    {"Comment", [](kuVariantGroup& group) { group.setComment("c"); },
     "comment=\"c\" showinvrmenu=\"true\" synccollaboration=\"true\" true=\"false\""},
    {"NotShownInVRMenu", [](kuVariantGroup& group) { group.setShowInVRMenu(false); },
     "comment=\"\" showinvrmenu=\"false\" synccollaboration=\"true\" true=\"false\""},
    {"NotSyncedInCollaboration", [](kuVariantGroup& group) { group.setSyncInCollaboration(false); },
     "comment=\"\" showinvrmenu=\"true\" synccollaboration=\"false\" true=\"false\""},
};

class WriterGroups : public WriterTest, public ::testing::WithParamInterface<GroupRow> {};

TEST_P(WriterGroups, AreAnElementWithoutChildrenWhereTheyHaveNoSets) {
  GetParam().change(addGroup("G"));
  EXPECT_EQ(written(), documentOf(std::string("  <VariantGroup name=\"G\" ") +
                                  GetParam().attributes + "/>\n"));
}

INSTANTIATE_TEST_SUITE_P(Rows, WriterGroups, ::testing::ValuesIn(groupRows),
                         [](const auto& row) { return std::string(row.param.name); });

std::string groupTag(const std::string& name) {
  return "  <VariantGroup name=\"" + name +
         "\" comment=\"\" showinvrmenu=\"true\" synccollaboration=\"true\" true=\"false\"";
}

TEST_F(WriterTest, SetsOfAGroupStandInsideItAloneInItsOrderAndOthersBehindAllGroups) {
  addSet("free 1");
  kuVariantSet& first = addSet("A");
  kuVariantGroup& group = addGroup("G");
  addSet("free 2");
  group.add(&addSet("B"));
  group.add(&first);
  addGroup("F");
  EXPECT_EQ(written(), documentOf(groupTag("G") + ">\n" + bareSet("B", "    ") +
                                  bareSet("A", "    ") + "  </VariantGroup>\n" + groupTag("F") +
                                  "/>\n" + bareSet("free 1") + bareSet("free 2")));
}

TEST_F(WriterTest, SetThatOnlyPointsToAGroupIsLeftOut) {
  kuVariantSet& grouped = addSet("A", &addGroup("G"));
  kuVariantSet& copy = addSet("B");
  copy = grouped;  // takes the pointer over, and is not in the group's list
  EXPECT_EQ(written(),
            documentOf(groupTag("G") + ">\n" + bareSet("A", "    ") + "  </VariantGroup>\n"));
}

// Variants

TEST_F(WriterTest, KindsStandInTheOrderNodeMaterialLightOverlayTransformBehindTheSets) {
  kuVariants::createTransformVariant("T", false);
  kuVariants::createOverlayVariant("O", false);
  kuVariants::createLightVariant("L", false);
  kuVariants::createMaterialVariant("M", false);
  kuVariants::createNodeVariant("N", false);
  addSet("S");
  addGroup("G");
  const auto variant = [](const std::string& tag, const std::string& name) {
    return "  <" + tag + " name=\"" + name + "\" base=\"\">\n    <Default ref=\"\"/>\n  </" + tag +
           ">\n";
  };
  EXPECT_EQ(written(),
            documentOf(groupTag("G") + "/>\n" + bareSet("S") + variant("NodeVariant", "N") +
                       variant("MaterialVariant", "M") + variant("LightVariant", "L") +
                       variant("SceneplateVariant", "O") + variant("TransformVariant", "T")));
}

TEST_F(WriterTest, VariantsOfAKindStandInTheOrderOfTheList) {
  for (const char* name : {"b", "c", "a"})
    kuVariants::createLightVariant(name, false);
  std::vector<std::string> tags;
  for (const std::string& line : linesOf(written()))
    if (line.rfind("  <Light", 0) == 0) tags.push_back(line);
  EXPECT_THAT(tags, ElementsAre("  <LightVariant name=\"b\" base=\"\">",
                                "  <LightVariant name=\"c\" base=\"\">",
                                "  <LightVariant name=\"a\" base=\"\">"));
}

/** One of the five kinds: made by name with a base, written by its static writer. */
struct Kind {
  const char* tag;
  kuVariant* (*make)();
  std::string (*append)(kuVariant*);
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.tag; }

class WriterKinds : public WriterTest, public ::testing::WithParamInterface<Kind> {
 public:
  template <class Variant, void (*write)(QDomDocument&, QDomElement&, Variant*)>
  static std::string append(kuVariant* variant) {
    return appended(write, static_cast<Variant*>(variant));
  }

 protected:
  /** The lines of the element, with the variant's element in line 0. */
  std::string element(const std::string& base, const std::string& content) const {
    const std::string tag = GetParam().tag;
    return "  <" + tag + " name=\"V\" base=\"" + base + "\">\n" + content + "  </" + tag + ">\n";
  }
};

template <class Variant>
kuVariant* withBase(Variant* variant, void (Variant::*setBase)(const QString&)) {
  (variant->*setBase)("B");
  return variant;
}

const Kind kinds[] = {
    {"NodeVariant",
     [] { return withBase(kuVariants::createNodeVariant("V", false), &kuNodeVariant::setNode); },
     WriterKinds::append<kuNodeVariant, kuVariantWriter::writeNodeVariant>},
    {"MaterialVariant",
     [] {
       return withBase(kuVariants::createMaterialVariant("V", false),
                       &kuMaterialVariant::setMaterial);
     },
     WriterKinds::append<kuMaterialVariant, kuVariantWriter::writeMaterialVariant>},
    {"LightVariant",
     [] { return withBase(kuVariants::createLightVariant("V", false), &kuLightVariant::setNode); },
     WriterKinds::append<kuLightVariant, kuVariantWriter::writeLightVariant>},
    {"SceneplateVariant",
     [] {
       return withBase(kuVariants::createOverlayVariant("V", false), &kuOverlayVariant::setOverlay);
     },
     WriterKinds::append<kuOverlayVariant, kuVariantWriter::writeOverlayVariant>},
    {"TransformVariant",
     [] {
       return withBase(kuVariants::createTransformVariant("V", false),
                       &kuTransformVariant::setNode);
     },
     WriterKinds::append<kuTransformVariant, kuVariantWriter::writeTransformVariant>},
};

TEST_P(WriterKinds, HaveNameBaseAndDefaultAlsoWithoutOptions) {
  GetParam().make();
  EXPECT_EQ(written(), documentOf(element("B", "    <Default ref=\"\"/>\n")));
}

TEST_P(WriterKinds, HaveTheDefaultBeforeTheStatesInTheOrderOfTheOptions) {
  kuVariant* variant = GetParam().make();
  variant->setDefault(QString("a"));
  variant->add("b", "");
  variant->add("a", "Ctrl - A");
  variant->add("", "");
  EXPECT_EQ(written(),
            documentOf(element("B",
                               "    <Default ref=\"a\"/>\n"
                               "    <State name=\"b\">\n      <Hotkey/>\n    </State>\n"
                               "    <State name=\"a\">\n      <Hotkey>Ctrl - A</Hotkey>\n"
                               "    </State>\n"
                               "    <State name=\"\">\n      <Hotkey/>\n    </State>\n")));
}

TEST_P(WriterKinds, SayNothingOfWhatIsAStep) {
  GetParam().make()->add(true, "!Next", "");
  EXPECT_EQ(written(),
            documentOf(element("B",
                               "    <Default ref=\"\"/>\n"
                               "    <State name=\"!Next\">\n      <Hotkey/>\n    </State>\n")));
}

TEST_P(WriterKinds, AreAppendedToAnyParentByTheirStaticWriter) {
  EXPECT_EQ(GetParam().append(GetParam().make()),
            "<Parent>\n  <First/>\n" + element("B", "    <Default ref=\"\"/>\n") + "</Parent>\n");
}

INSTANTIATE_TEST_SUITE_P(Tags, WriterKinds, ::testing::ValuesIn(kinds),
                         [](const auto& row) { return std::string(row.param.tag); });

// The static writers of groups and sets, called alone

TEST_F(WriterTest, GroupIsAppendedToAnyParentWithItsSets) {
  kuVariantGroup group("G");
  kuVariantSet set("S");
  group.add(&set);
  EXPECT_EQ(appended(kuVariantWriter::writeVariantGroup, &group),
            "<Parent>\n  <First/>\n" + groupTag("G") + ">\n" + bareSet("S", "    ") +
                "  </VariantGroup>\n</Parent>\n");
}

TEST_F(WriterTest, SetIsAppendedToAnyParentAlsoWhereItHasAGroup) {
  kuVariantSet& set = addSet("S", &addGroup("G"));
  EXPECT_EQ(appended(kuVariantWriter::writeVariantSet, &set),
            "<Parent>\n  <First/>\n" + bareSet("S") + "</Parent>\n");
}

// The writer as an object

TEST_F(WriterTest, WritingAgainStartsAfresh) {
  addSet("A", &addGroup("G"));
  kuVariants::createNodeVariant("N", false);
  const std::string once = written();
  EXPECT_EQ(written(), once);
  kuController::call("clearAllVariants", 1);
  EXPECT_EQ(written(), documentHead() + "<Variants/>\n");
}

TEST_F(WriterTest, CopiesAndMovedFromWritersWrite) {
  addSet("A");
  const std::string expected = written();
  kuVariantWriter copy(writer);
  kuVariantWriter moved(std::move(copy));
  copy = moved;
  EXPECT_EQ(copy.write().toStdString(), expected);
  EXPECT_EQ(moved.write().toStdString(), expected);
  EXPECT_EQ(kuVariantWriter().write().toStdString(), expected);
}

TEST_F(WriterTest, ManagerStaysAsItIsAndNothingIsSent) {
  kuVariantGroup& group = addGroup("G", false);
  kuVariantSet& set = addSet("A", &group);
  set.setHotkey("Shift-Ctrl K");
  set.addOverlayVariant("O", "");
  kuVariants::createOverlayVariant("O", false)->add("!Next", "");
  kuVariants::createMaterialVariant("M", false)->setDefault(QString("x"));
  messages.clear();
  const std::string before = managerDump();
  written();
  EXPECT_EQ(managerDump(), before);
  EXPECT_THAT(messages.lines(), ElementsAre());
  EXPECT_THAT(log, ElementsAre());
}

}  // namespace
