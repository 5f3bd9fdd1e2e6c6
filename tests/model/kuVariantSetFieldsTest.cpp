#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "support/MessageReceiver.h"
#include "support/VariantsTest.h"
#include "support/kuVariantsTestAccess.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using Access = kuVariantsTestAccess;

namespace {

class kuVariantSetFieldsTest : public VariantsTest {
 protected:
  kuVariantSet set{"Summer"};
};

std::vector<bool> inclInfo(const kuVariantSet& set) {
  bool n = true, m = true, l = true, e = true, v = true, s = true;
  set.getInclInfo(n, m, l, e, v, s);
  return {n, m, l, e, v, s};
}

std::vector<std::string> states(const std::list<kuVariantState>& list) {
  std::vector<std::string> texts;
  for (const kuVariantState& entry : list)
    texts.push_back((entry.getVariant() + "=" + entry.getState()).toStdString());
  return texts;
}

TEST_F(kuVariantSetFieldsTest, NewOneIsEmpty) {
  EXPECT_EQ(set.getName(), "Summer");
  for (const QString& text :
       {set.getHotkey(), set.getComment(), set.getScript(), set.getDefaultViewpoint()}) {
    EXPECT_EQ(text, "");
  }
  EXPECT_EQ(set.getShortcutModifier(), 0);
  EXPECT_THAT(set.getViewpoints(), IsEmpty());
  EXPECT_THAT(set.getAnimations(), IsEmpty());
  EXPECT_THAT(set.getGeometries(), IsEmpty());
  EXPECT_THAT(set.getTargetNodeNames(), IsEmpty());
  for (const auto* list :
       {&set.getNodeVariants(), &set.getMaterialVariants(), &set.getLightVariants(),
        &set.getOverlayVariants(), &set.getTransformVariants()}) {
    EXPECT_THAT(*list, IsEmpty());
  }
  EXPECT_THAT(set.getValues(), IsEmpty());
  EXPECT_THAT(set.getMaterialSnapshots(), IsEmpty());
  EXPECT_EQ(set.getGroup(), nullptr);
  EXPECT_TRUE(set.getPreview().isEmpty());
  EXPECT_EQ(Access::animationCursor(set), 0);
  EXPECT_THAT(inclInfo(set), ElementsAre(false, false, false, false, false, false));
}

TEST_F(kuVariantSetFieldsTest, FieldsAreKeptApart) {
  set.setComment("comment");
  set.setScript("script");
  set.setDefaultViewpoint("Front");
  EXPECT_EQ(set.getComment(), "comment");
  EXPECT_EQ(set.getScript(), "script");
  EXPECT_EQ(set.getDefaultViewpoint(), "Front");
  EXPECT_THAT(set.getViewpoints(), IsEmpty());
  set.setShowInVRMenu(false);
  EXPECT_FALSE(set.getShowInVRMenu());
  EXPECT_TRUE(set.getSyncInCollaboration());
  set.setShowInVRMenu(true);
  set.setSyncInCollaboration(false);
  EXPECT_TRUE(set.getShowInVRMenu());
  EXPECT_FALSE(set.getSyncInCollaboration());
  set.setSequentialAnimation(true);
  EXPECT_TRUE(set.getSequentialAnimation());
  set.setPreview("png");
  EXPECT_EQ(set.getPreview(), "png");
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetFieldsTest, EachPartOfTheInclInfoIsItsOwn) {
  for (std::size_t part = 0; part < 6; ++part) {
    std::vector<bool> given(6, false);
    given[part] = true;
    set.setInclInfo(given[0], given[1], given[2], given[3], given[4], given[5]);
    EXPECT_EQ(inclInfo(set), given) << part;
  }
}

TEST_F(kuVariantSetFieldsTest, AnUnreadableHotkeyGivesZeroAndKeepsItsText) {
  set.setHotkey("Ctrl+A");
  set.setHotkey("no such key");
  EXPECT_EQ(set.getHotkey(), "no such key");
  EXPECT_EQ(set.getShortcutKey(), 0);
  EXPECT_EQ(set.getShortcutModifier(), 0);
}

TEST_F(kuVariantSetFieldsTest, AppendToScriptOfAnEmptyTextAddsTheLineFeedAlone) {
  set.appendToScript("");
  EXPECT_EQ(set.getScript(), "");
  set.setScript("one\n");
  set.appendToScript("");
  EXPECT_EQ(set.getScript(), "one\n\n");
}

/** The four lists of names. */
struct NameListRow {
  const char* title;
  void (kuVariantSet::*add)(const QString&);
  void (kuVariantSet::*clear)();
  std::vector<QString> (*names)(const kuVariantSet&);
};

template <class List>
std::vector<QString> copied(const List& list) {
  return {list.begin(), list.end()};
}

const NameListRow NameLists[] = {
    {"Viewpoints", &kuVariantSet::addViewpoint, &kuVariantSet::clearViewpoints,
     [](const kuVariantSet& set) { return copied(set.getViewpoints()); }},
    {"Geometries", &kuVariantSet::addGeometry, &kuVariantSet::clearGeometries,
     [](const kuVariantSet& set) { return copied(set.getGeometries()); }},
    {"TargetNodeNames", &kuVariantSet::addTargetNodeName, &kuVariantSet::clearTargetNodeNames,
     [](const kuVariantSet& set) { return copied(set.getTargetNodeNames()); }},
    {"Animations", &kuVariantSet::addAnimation, &kuVariantSet::clearAnimations,
     [](const kuVariantSet& set) { return copied(set.getAnimations()); }},
};

class SetNameList : public ::testing::TestWithParam<NameListRow> {};

TEST_P(SetNameList, ListsEachNameOnceInTheOrderOfAdding) {
  kuVariantSet set("Summer");
  for (const char* name : {"C", "A", "C", "a", "A", ""})
    (set.*GetParam().add)(name);
  EXPECT_THAT(GetParam().names(set), ElementsAre("C", "A", "a", ""));
}

TEST_P(SetNameList, ClearEmptiesItAloneAndLeavesDefaultViewpointAndCursor) {
  kuVariantSet set("Summer");
  for (const NameListRow& row : NameLists)
    (set.*row.add)("A");
  set.setDefaultViewpoint("A");
  Access::animationCursor(set) = 1;
  (set.*GetParam().clear)();
  for (const NameListRow& row : NameLists)
    EXPECT_EQ(row.names(set).empty(), row.add == GetParam().add) << row.title;
  EXPECT_EQ(set.getDefaultViewpoint(), "A");
  EXPECT_EQ(Access::animationCursor(set), 1);
}

INSTANTIATE_TEST_SUITE_P(kuVariantSet, SetNameList, ::testing::ValuesIn(NameLists),
                         [](const auto& row) { return std::string(row.param.title); });

TEST_F(kuVariantSetFieldsTest, RemovingNamesKeepsTheOrderAndPassesOverUnknownOnes) {
  for (const char* name : {"A", "B", "C"}) {
    set.addViewpoint(name);
    set.addGeometry(name);
    set.addAnimation(name);
  }
  for (const char* name : {"B", "unknown"}) {
    set.removeViewpoint(name);
    set.removeGeometry(name);
    set.removeAnimation(name);
  }
  EXPECT_THAT(set.getViewpoints(), ElementsAre("A", "C"));
  EXPECT_THAT(set.getGeometries(), ElementsAre("A", "C"));
  EXPECT_THAT(set.getAnimations(), ElementsAre("A", "C"));
}

TEST_F(kuVariantSetFieldsTest, RemovingAnotherViewpointKeepsTheDefault) {
  set.addViewpoint("Front");
  set.addViewpoint("Back");
  set.setDefaultViewpoint("Front");
  set.removeViewpoint("Back");
  EXPECT_EQ(set.getDefaultViewpoint(), "Front");
}

TEST_F(kuVariantSetFieldsTest, AViewpointMayBeRemovedByItsOwnEntryOrByTheDefault) {
  for (const bool byDefault : {false, true}) {
    set.addViewpoint("Front");
    set.setDefaultViewpoint("Front");
    set.removeViewpoint(byDefault ? set.getDefaultViewpoint() : set.getViewpoints().front());
    EXPECT_TRUE(set.getDefaultViewpoint().isNull());
    EXPECT_THAT(set.getViewpoints(), IsEmpty());
  }
}

TEST_F(kuVariantSetFieldsTest, RemoveAnimationLeavesTheCursorPastTheEnd) {
  set.addAnimation("Doors");
  set.addAnimation("Roof");
  Access::animationCursor(set) = 2;
  set.removeAnimation("Doors");
  EXPECT_EQ(Access::animationCursor(set), 2);
  set.removeAnimation("Roof");
  EXPECT_EQ(Access::animationCursor(set), 2);
}

TEST_F(kuVariantSetFieldsTest, ValuesAreOverwrittenAndOrderedByKey) {
  set.addValue("b", "1");
  set.addValue("a", "2");
  set.addValue("b", "3");
  EXPECT_THAT(set.getValues(), ElementsAre(Pair("a", "2"), Pair("b", "3")));
  EXPECT_TRUE(set.containsValue("a"));
  set.removeValue("absent");
  set.removeValue("b");
  EXPECT_THAT(set.getValues(), ElementsAre(Pair("a", "2")));
  EXPECT_THAT(set.getMaterialSnapshots(), IsEmpty());
  set.clearValues();
  EXPECT_THAT(set.getValues(), IsEmpty());
}

TEST_F(kuVariantSetFieldsTest, MaterialSnapshotsAreOverwrittenAndReplacedAsAWhole) {
  set.addMaterialSnapshot("Car/Hood", "Red");
  set.addMaterialSnapshot("Car/Hood", "Blue");
  set.addMaterialSnapshot("Car/Door", "Red");
  EXPECT_EQ(set.getMaterialSnapshot("Car/Hood"), "Blue");
  EXPECT_EQ(set.getMaterialSnapshot("absent"), "");
  EXPECT_TRUE(set.containsMaterialSnapshot("Car/Door"));
  EXPECT_FALSE(set.containsMaterialSnapshot("absent"));
  set.removeMaterialSnapshot("absent");
  set.removeMaterialSnapshot("Car/Door");
  EXPECT_THAT(set.getMaterialSnapshots(), ElementsAre(Pair("Car/Hood", "Blue")));
  EXPECT_THAT(set.getValues(), IsEmpty());
  set.setMaterialSnapshots({{"Roof", "Black"}});
  EXPECT_THAT(set.getMaterialSnapshots(), ElementsAre(Pair("Roof", "Black")));
  set.clearMaterialsSnapshot();
  EXPECT_THAT(set.getMaterialSnapshots(), IsEmpty());
}

/** The five lists of states by name. */
struct StateListRow {
  const char* title;
  void (kuVariantSet::*add)(const QString&, const QString&);
  kuVariantState* (kuVariantSet::*find)(const QString&);
  void (kuVariantSet::*remove)(const QString&);
  void (kuVariantSet::*clear)();
  const std::list<kuVariantState>& (kuVariantSet::*list)() const;
  bool (*contains)(kuVariantSet&, const char*);
};

#define KU_STATE_LIST(Kind)                                                                    \
  {                                                                                            \
#Kind, &kuVariantSet::add##Kind##Variant, &kuVariantSet::find##Kind##Variant,              \
        &kuVariantSet::remove##Kind##Variant, &kuVariantSet::clear##Kind##Variants,            \
        &kuVariantSet::get##Kind##Variants,                                                    \
        [](kuVariantSet & set, const char* name) { return set.contains##Kind##Variant(name); } \
  }
const StateListRow StateLists[] = {KU_STATE_LIST(Node), KU_STATE_LIST(Material),
                                   KU_STATE_LIST(Light), KU_STATE_LIST(Overlay),
                                   KU_STATE_LIST(Transform)};
#undef KU_STATE_LIST

class SetStateList : public ::testing::TestWithParam<StateListRow> {
 protected:
  SetStateList() {
    for (const char* name : {"A", "B", "C"})
      (set.*row.add)(name, "1");
  }
  std::vector<std::string> texts() const { return states((set.*row.list)()); }

  const StateListRow& row = GetParam();
  kuVariantSet set{"Summer"};
};

TEST_P(SetStateList, ASecondAddKeepsThePlaceAndMayEmptyTheState) {
  (set.*row.add)("B", "2");
  EXPECT_THAT(texts(), ElementsAre("A=1", "B=2", "C=1"));
  (set.*row.add)("B", "");
  EXPECT_THAT(texts(), ElementsAre("A=1", "B=", "C=1"));
}

TEST_P(SetStateList, RemoveKeepsTheOrderAndPassesOverUnknownNames) {
  (set.*row.remove)("unknown");
  (set.*row.remove)("B");
  EXPECT_THAT(texts(), ElementsAre("A=1", "C=1"));
}

TEST_P(SetStateList, FindGivesTheEntryOfTheListOrNull) {
  kuVariantState* found = (set.*row.find)("B");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ((set.*row.find)("b"), nullptr);
  (set.*row.add)("D", "1");
  (set.*row.remove)("A");
  found->setState("2");  // good until its own entry is removed
  EXPECT_THAT(texts(), ElementsAre("B=2", "C=1", "D=1"));
}

TEST_P(SetStateList, ContainsReadsUtf8) {
  (set.*row.add)(QString::fromUtf8("T\xC3\xBCr"), "");
  EXPECT_TRUE(row.contains(set, "T\xC3\xBCr"));
  EXPECT_FALSE(row.contains(set, "T\xFCr"));
  EXPECT_FALSE(row.contains(set, "absent"));
}

TEST_P(SetStateList, ClearEmptiesItAlone) {
  for (const StateListRow& other : StateLists)
    (set.*other.add)("X", "1");
  (set.*row.clear)();
  for (const StateListRow& other : StateLists)
    EXPECT_EQ((set.*other.list)().empty(), other.list == row.list) << other.title;
}

INSTANTIATE_TEST_SUITE_P(kuVariantSet, SetStateList, ::testing::ValuesIn(StateLists),
                         [](const auto& row) { return std::string(row.param.title); });

TEST_F(kuVariantSetFieldsTest, ClearEmptiesEveryListTextAndShortcut) {
  for (const StateListRow& row : StateLists)
    (set.*row.add)("X", "1");
  for (const NameListRow& row : NameLists)
    (set.*row.add)("A");
  set.addValue("k", "v");
  set.addMaterialSnapshot("Car", "Red");
  set.setHotkey("Ctrl+A");
  set.setComment("comment");
  set.setScript("script");
  set.setDefaultViewpoint("A");
  set.setSequentialAnimation(true);
  set.setSyncInCollaboration(false);
  Access::animationCursor(set) = 3;
  const std::uint32_t id = set.id();
  set.clear();
  for (const StateListRow& row : StateLists)
    EXPECT_THAT((set.*row.list)(), IsEmpty()) << row.title;
  for (const NameListRow& row : NameLists)
    EXPECT_EQ(row.names(set).size(), std::string(row.title) == "Geometries" ? 1u : 0u) << row.title;
  EXPECT_THAT(set.getValues(), IsEmpty());
  EXPECT_THAT(set.getMaterialSnapshots(), IsEmpty());
  for (const QString& text :
       {set.getHotkey(), set.getComment(), set.getScript(), set.getDefaultViewpoint()}) {
    EXPECT_EQ(text, "");
  }
  EXPECT_EQ(set.getShortcutKey(), -1);
  EXPECT_EQ(set.getShortcutModifier(), 0);
  EXPECT_FALSE(set.getSequentialAnimation());
  EXPECT_EQ(Access::animationCursor(set), 0);
  EXPECT_FALSE(set.getSyncInCollaboration());
  EXPECT_TRUE(set.getShowInVRMenu());
  EXPECT_EQ(set.id(), id);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantSetFieldsTest, TheNewNameStandsWhenTheRenameIsAnnounced) {
  QString heard;
  const MessageReceiver receiver("variantSetRenamed", [&](kuMessage&) { heard = set.getName(); });
  set.setName("Winter");
  EXPECT_EQ(heard, "Winter");
}

TEST_F(kuVariantSetFieldsTest, AReceiverOfTheRenameMayRemoveTheSet) {
  kuVariantSet* made = kuVariants::createVariantSet("Made", false, nullptr);
  messages.clear();
  const MessageReceiver receiver("variantSetRenamed",
                                 [](kuMessage&) { kuVariants::clearVariantSets(); });
  made->setName(QString::fromUtf8("T\xC3\xBCr"));
  EXPECT_THAT(kuVariants::getVariantSets(), IsEmpty());
  EXPECT_EQ(messages.linesOf("variantSetRenamed").front(),
            "variantSetRenamed/0 oldName:string=Made newName:string=T\xC3\xBCr "
            "groupName:string=ungrouped");
}

TEST_F(kuVariantSetFieldsTest, AssignmentOverAListedSetKeepsLookUpsRight) {
  kuVariantSet* made = kuVariants::createVariantSet("Made", false, nullptr);
  *made = set;
  EXPECT_EQ(kuVariants::findVariantSet("Made"), nullptr);
  EXPECT_EQ(kuVariants::findVariantSet("Summer"), made);
  set.setName("Winter");
  EXPECT_EQ(kuVariants::findVariantSet("Winter"), nullptr);
}

TEST_F(kuVariantSetFieldsTest, ACopyTakesNoNumberAndEveryMember) {
  for (const StateListRow& row : StateLists)
    (set.*row.add)(row.title, "1");
  for (const NameListRow& row : NameLists)
    (set.*row.add)(row.title);
  set.addValue("k", "v");
  set.addMaterialSnapshot("Car", "Red");
  set.setHotkey("Ctrl+A");
  set.setClippingState(3);
  set.setPreview("png");
  set.setInclInfo(true, false, false, true, false, true);
  Access::animationCursor(set) = 3;
  kuVariantSet copy(set);
  EXPECT_EQ(kuVariantSet("Next").id(), set.id() + 1);
  EXPECT_EQ(copy.id(), set.id());
  EXPECT_EQ(copy.getName(), "Summer");
  for (const StateListRow& row : StateLists)
    EXPECT_EQ(states((copy.*row.list)()), states((set.*row.list)())) << row.title;
  for (const NameListRow& row : NameLists)
    EXPECT_THAT(row.names(copy), ElementsAre(row.title));
  EXPECT_EQ(copy.getValues(), set.getValues());
  EXPECT_EQ(copy.getMaterialSnapshots(), set.getMaterialSnapshots());
  EXPECT_EQ(copy.getShortcutKey(), Qt::Key_A);
  EXPECT_EQ(copy.getClippingState(), 3);
  EXPECT_EQ(copy.getPreview(), "png");
  EXPECT_THAT(inclInfo(copy), ElementsAre(true, false, false, true, false, true));
  EXPECT_EQ(Access::animationCursor(copy), 3);
}

}  // namespace
