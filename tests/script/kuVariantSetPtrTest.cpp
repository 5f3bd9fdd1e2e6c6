#include "script/kuVariantSetPtr.h"

#include <array>
#include <type_traits>

#include "VariantsScriptTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "support/ManagerDump.h"
#include "support/MessageReceiver.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

static_assert(sizeof(kuVariantSetPtr) == sizeof(kuVariantSet*));
static_assert(!std::is_polymorphic_v<kuVariantSetPtr>);
static_assert(std::is_trivially_copyable_v<kuVariantSetPtr>);

namespace {

/** With the set "A", which scripts know as s. */
class kuVariantSetPtrTest : public VariantsScriptTest {
 protected:
  kuVariantSetPtrTest() : set(kuVariants::createVariantSet("A", false, nullptr)) {
    put("s", set);
    messages.clear();
  }

  kuVariantSet* set;
};

TEST_F(kuVariantSetPtrTest, NameIsTheSetsAndAnnounced) {
  EXPECT_EQ(answer("s.getName()"), "A");
  EXPECT_TRUE(run("s.setName('T\xC3\xBCr')"));
  EXPECT_EQ(set->getName(), QString::fromUtf8("T\xC3\xBCr"));
  EXPECT_EQ(answer("s.getName()"), "T\xC3\xBCr");
  EXPECT_EQ(messages.linesOf("variantSetRenamed").size(), 1u);
}

TEST_F(kuVariantSetPtrTest, CopiesPointToTheSameSet) {
  EXPECT_TRUE(run("import copy\nt = [s][0]\nt.setName('B')"));
  EXPECT_EQ(answer("s.getName()"), "B");
  kuVariantSetPtr copy = kuVariantSetPtr(set);
  const kuVariantSetPtr original = copy;
  copy.setName("C");
  EXPECT_STREQ(copy.getName(), "C");
  EXPECT_STREQ(original.getScript(), "");
}

TEST_F(kuVariantSetPtrTest, AnsweredTextsLastUntilPythonHasThem) {
  const std::string longName(5000, 'x');
  set->setName(QString::fromStdString(longName));
  set->setScript("pass");
  set->addValue("key", "value");
  EXPECT_EQ(answer("(s.getName(), s.getScript(), s.getValue('key'), s.getHotkey(), s.getName())"),
            "('" + longName + "', 'pass', 'value', '', '" + longName + "')");
}

/** Each is compared when all are answered. */
TEST_F(kuVariantSetPtrTest, AnsweredTextsOfSeveralSetsCanBeHeldAtOnce) {
  kuVariantSetPtr a(set);
  kuVariantSetPtr b(kuVariants::createVariantSet("B", false, nullptr));
  a.addScript("pass");
  b.setHotkeyString("F5");
  b.setValue("key", "value");
  const std::array<char const*, kuVariantSetPtr::lastingTexts> texts = {
      a.getName(),   b.getName(),       a.getScript(),        b.getScript(),
      b.getHotkey(), b.getValue("key"), b.getValue("absent"), a.getName()};
  EXPECT_THAT(std::vector<std::string>(texts.begin(), texts.end()),
              ElementsAre("A", "B", "pass", "", "F5", "value", "", "A"));
}

/** The receiver asks for texts in the midst of the call. */
TEST_F(kuVariantSetPtrTest, AnsweredTextOfOneSetCanNameAnother) {
  kuVariantSetPtr a(set);
  kuVariantSetPtr b(kuVariants::createVariantSet("B", false, nullptr));
  std::string heard;
  const MessageReceiver receiver(
      "variantSetRenamed", [&](kuMessage&) { heard = std::string(a.getName()) + b.getName(); });
  b.setName(("long " + std::string(a.getName())).c_str());
  a.setName(b.getName());
  EXPECT_EQ(heard, "long Along A");
  EXPECT_TRUE(run("s.setName(s.getName() + '|' + s.getName())"));
  EXPECT_EQ(set->getName(), "long A|long A");
}

TEST_F(kuVariantSetPtrTest, TextWithoutUtf8IsAnErrorAndChangesNothing) {
  for (const char* text : {"s.setName('\\ud800')", "s.addScript('a\\udfffb')",
                           "s.setValue('\\ud800', '')", "s.getValue('\\ud800')"}) {
    EXPECT_FALSE(run(text)) << text;
    EXPECT_THAT(lastError(), StartsWith("UnicodeEncodeError: ")) << text;
  }
  EXPECT_EQ(set->getName(), "A");
  EXPECT_EQ(set->getScript(), "");
  EXPECT_TRUE(set->getValues().empty());
}

/** A surrogate without its other half, which a document cannot hold either. */
TEST_F(kuVariantSetPtrTest, NameWithoutUtf8IsAnsweredWithASign) {
  set->setName(QString("A") + QChar(0xD800) + "B");
  EXPECT_EQ(answer("s.getName()"), "A?B");
}

TEST_F(kuVariantSetPtrTest, HotkeyStringIsStoredAsItIs) {
  EXPECT_TRUE(run("s.setHotkeyString('Ctrl+K')"));
  EXPECT_EQ(set->getHotkey(), "Ctrl+K");
  EXPECT_EQ(set->getShortcutKey(), Qt::Key_K);
  EXPECT_EQ(set->getShortcutModifier(), Qt::ControlModifier);
  EXPECT_EQ(answer("s.getHotkey()"), "Ctrl+K");
  EXPECT_TRUE(run("s.setHotkeyString(' any text ')"));
  EXPECT_EQ(set->getHotkey(), " any text ");
}

TEST_F(kuVariantSetPtrTest, ViewsAreViewpoints) {
  EXPECT_TRUE(run("s.addView('Top')\ns.addView('Side')"));
  EXPECT_THAT(set->getViewpoints(), ElementsAre("Top", "Side"));
}

TEST_F(kuVariantSetPtrTest, AddScriptCalledTwiceLeavesTheSecondTextAlone) {
  EXPECT_TRUE(run("s.addScript('first()')\ns.addScript('second()')"));
  EXPECT_EQ(set->getScript(), "second()");
  EXPECT_EQ(answer("s.getScript()"), "second()");
}

TEST_F(kuVariantSetPtrTest, ValueOfAnAbsentKeyAndAnEmptyValueAreEmpty) {
  EXPECT_TRUE(run("s.setValue('empty', '')"));
  EXPECT_EQ(answer("s.getValue('absent')"), "");
  EXPECT_EQ(answer("s.getValue('empty')"), "");
  EXPECT_FALSE(set->containsValue("absent"));
  EXPECT_TRUE(set->containsValue("empty"));
}

TEST_F(kuVariantSetPtrTest, ValueOverwritesTheFormerOfItsKey) {
  EXPECT_TRUE(
      run("s.setValue('k', 'first')\ns.setValue('k', '\xE2\x9C\x93')\ns.setValue('l', '')"));
  EXPECT_EQ(answer("s.getValue('k')"), "\xE2\x9C\x93");
  EXPECT_EQ(set->getValues().size(), 2u);
}

TEST_F(kuVariantSetPtrTest, TargetNodeNamesAreAListInOrder) {
  for (const char* name : {"Roof", "T\xC3\xBCr", "Car"})
    set->addTargetNodeName(QString::fromUtf8(name));
  EXPECT_EQ(answer("s.getTargetNodeNames()"), "['Roof', 'T\xC3\xBCr', 'Car']");
  set->clearTargetNodeNames();
  EXPECT_EQ(answer("s.getTargetNodeNames()"), "[]");
}

TEST_F(kuVariantSetPtrTest, WrongTypesAreErrors) {
  for (const char* text :
       {"s.setName(1)", "s.setHotkey('A')", "s.addGeometry('Roof', 'Open')",
        "s.addMaterial(kuNodePtr(), '')", "s.addLight(kuMaterialPtr(), '')", "s.setValue('k')",
        "s.addClippingPlane(Vec3f(), Vec3f(), True, True, True, True, True)"}) {
    EXPECT_FALSE(run(text)) << text;
    EXPECT_THAT(lastError(), StartsWith("ArgumentError: ")) << text;
  }
}

TEST_F(kuVariantSetPtrTest, NoneAsATextIsAnEmptyOne) {
  EXPECT_TRUE(run("s.setHotkeyString(None)\ns.addScript(None)\ns.setValue(None, None)"));
  EXPECT_EQ(answer("s.getValue(None)"), "");
  EXPECT_EQ(set->getScript(), "");
}

struct PrefixRow {
  const char* name;
  int modifier;
  const char* prefix;
};

void PrintTo(const PrefixRow& row, std::ostream* out) { *out << row.name; }

class HotkeyPrefix : public kuVariantSetPtrTest, public ::testing::WithParamInterface<PrefixRow> {};

TEST_P(HotkeyPrefix, StandsBeforeTheKey) {
  EXPECT_TRUE(run("s.setHotkey(65, " + std::to_string(GetParam().modifier) + ")"));
  EXPECT_EQ(set->getHotkey().toStdString(), std::string(GetParam().prefix) + "A");
  int key = -1;
  QFlags<Qt::KeyboardModifier> modifier;
  kuVariants::mapHotkey(set->getHotkey(), key, modifier);
  EXPECT_EQ(set->getShortcutKey(), key);
  EXPECT_EQ(set->getShortcutModifier(), modifier);
}

const PrefixRow kPrefixes[] = {
    {"Shift", 0x2000000, "Shift "},
    {"Control", 0x4000000, "Ctrl "},
    {"ShiftAndControl", 0x6000000, "Shift-Ctrl "},
    {"Alt", 0x8000000, "Alt "},
    {"ShiftAndAlt", 0xA000000, "Shift-Alt "},
    {"AltAndControl", 0xC000000, "Alt-Ctrl "},
    {"AllThreeCountAsNone", 0xE000000, " "},
    {"None", 0, " "},
    {"Meta", 0x10000000, " "},
    {"ShiftAndMeta", 0x12000000, " "},
    {"ShiftAndAnotherBit", 0x2000001, " "},
    {"Negative", -1, " "},
};

INSTANTIATE_TEST_SUITE_P(Table, HotkeyPrefix, ::testing::ValuesIn(kPrefixes),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(kuVariantSetPtrTest, HotkeyOfAKeyAloneIsABlankAndTheKey) {
  EXPECT_TRUE(run("s.setHotkey(65)"));
  EXPECT_EQ(set->getHotkey(), " A");
}

TEST_F(kuVariantSetPtrTest, HotkeysAreDigitsAndCapitals) {
  for (int key = -1; key <= 300; ++key) {
    const bool known = (key >= 48 && key <= 57) || (key >= 65 && key <= 90);
    set->setHotkey("F5");
    kuVariantSetPtr(set).setHotkey(key, 0x4000000);
    EXPECT_EQ(set->getHotkey(), known ? QString("Ctrl ") + QChar(key) : QString("F5")) << key;
    EXPECT_EQ(set->getShortcutKey() == Qt::Key_F5, !known) << key;
  }
}

/** Calls of every method, and what a null object answers. */
struct Call {
  const char* name;
  const char* text;
  const char* answer;
};

void PrintTo(const Call& call, std::ostream* out) { *out << call.name; }

class NullSetPtr : public VariantsScriptTest, public ::testing::WithParamInterface<Call> {};

TEST_P(NullSetPtr, DoesNothingAndAnswersNothing) {
  scene.switchNode("Switch", 0, {"Open"});
  scene.transforms("Moved", {"Open"}, 0, 0);
  scene.light("Light", true);
  scene.switchMaterial("Material", {scene.material("Red")}, 0);
  messages.clear();
  EXPECT_EQ(answer(std::string("kuVariantSetPtr().") + GetParam().text), GetParam().answer);
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_EQ(managerDump(), "");
  EXPECT_THAT(log, IsEmpty());
}

const Call kCalls[] = {
    {"SetName", "setName('a')", "None"},
    {"GetName", "getName()", ""},
    {"SetHotkeyString", "setHotkeyString('a')", "None"},
    {"SetHotkeyOfAKey", "setHotkey(65)", "None"},
    {"SetHotkey", "setHotkey(65, 0)", "None"},
    {"GetHotkey", "getHotkey()", ""},
    {"AddGeometry", "addGeometry(findNode('Switch'), 'Open')", "None"},
    {"AddTransform", "addTransform(findNode('Moved'), 'Open')", "None"},
    {"AddMaterial", "addMaterial(findMaterial('Material'), 'Red')", "None"},
    {"AddLight", "addLight(findNode('Light'), '!On')", "None"},
    {"SetClippingState", "setClippingState(1)", "None"},
    {"AddClippingPlane", "addClippingPlane(Pnt3f(), Vec3f(), True, True, True, True, True)",
     "None"},
    {"AddCurrentClippingPlane", "addCurrentClippingPlane()", "None"},
    {"AddView", "addView('a')", "None"},
    {"AddScript", "addScript('a')", "None"},
    {"GetScript", "getScript()", ""},
    {"GetTargetNodeNames", "getTargetNodeNames()", "[]"},
    {"SetValue", "setValue('a', 'b')", "None"},
    {"GetValue", "getValue('a')", ""},
};

INSTANTIATE_TEST_SUITE_P(Methods, NullSetPtr, ::testing::ValuesIn(kCalls),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
