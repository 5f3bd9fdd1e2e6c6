#include <vector>

#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "support/VariantsTest.h"

// Names that are easily taken for one another, or cut short on their way through the host's texts.

using ::testing::ElementsAre;

namespace {

/** Text with a NUL in its midst. */
QString withNul(const char* behind) { return "Roof" + QString(QChar(0)) + behind; }

const std::vector<QString>& alike() {
  static const std::vector<QString> names = {
      "Roof",
      "roof",
      "ROOF",
      "Roof ",
      withNul(""),
      withNul("A"),
      withNul("B"),
      QString::fromUtf8("Roof\xf0\x9f\x9a\x97"),  // beyond the basic plane
      QString::fromUtf8("Roof\xf0\x9f\x9a\x98"),  // its neighbour, with the same first half
      QString::fromUtf8("Roof\xf0\x90\x90\x80"),  // a capital letter beyond the basic plane
      QString::fromUtf8("Roof\xf0\x90\x90\xa8"),  // its small form
      QString::fromUtf8("Roof\xc3\xa4"),          // one character
      QString::fromUtf8("Roof\x61\xcc\x88"),      // the same to the eye, of two
      QString::fromUtf8("Stra\xc3\x9f\x65"),
      "Strasse"};
  return names;
}

class kuVariantsNamesTest : public VariantsTest {};

}  // namespace

TEST_F(kuVariantsNamesTest, VariantsWhoseNamesAreAlikeAreFoundEachByItsOwn) {
  std::vector<kuNodeVariant*> made;
  for (const QString& name : alike())
    made.push_back(kuVariants::createNodeVariant(name, false));
  EXPECT_EQ(kuVariants::getNodeVariants(), made);
  for (std::size_t i = 0; i < made.size(); ++i) {
    EXPECT_EQ(kuVariants::findNodeVariant(alike()[i]), made[i]) << alike()[i].toStdString();
    EXPECT_EQ(made[i]->getName(), alike()[i]);
  }
}

TEST_F(kuVariantsNamesTest, SetsAndGroupsWhoseNamesAreAlikeAreRemovedEachByItsOwn) {
  for (const QString& name : alike()) {
    ASSERT_TRUE(kuVariants::createVariantSet(name, false, nullptr)) << name.toStdString();
    ASSERT_TRUE(kuVariants::createVariantGroup(name, false, true)) << name.toStdString();
  }
  std::size_t left = alike().size();
  for (const QString& name : alike()) {
    EXPECT_EQ(kuVariants::countVariantGroup(name), 1);
    kuVariants::removeVariantSet(name);
    kuVariants::removeVariantGroup(name);
    EXPECT_EQ(kuVariants::findVariantSet(name), nullptr);
    EXPECT_EQ(kuVariants::getVariantSets().size(), --left);
    EXPECT_EQ(kuVariants::getVariantGroups().size(), left);
  }
}

TEST_F(kuVariantsNamesTest, NamesGoOutWhole) {
  kuVariantSet* set = kuVariants::createVariantSet(withNul("A"), false, nullptr);
  set->select(false, true, false);
  set->setName(QString::fromUtf8("Roof\xf0\x9f\x9a\x97"));
  EXPECT_THAT(
      messages.lines(),
      ElementsAre(std::string("variantsSetSelected/1 variantSetName:string=Roof\0A", 50),
                  "variantsSetSelected/1 variantSetName:string=", "variantSetSelected/1 bare",
                  std::string("variantSetRenamed/0 oldName:string=Roof\0A ", 42) +
                      "newName:string=Roof\xf0\x9f\x9a\x97 groupName:string=ungrouped"));
}

TEST_F(kuVariantsNamesTest, FreeNamesComeBackAsTheyAre) {
  for (const QString& name : alike()) {
    EXPECT_EQ(kuVariants::getUniqueVariantSetName(name), name);
    EXPECT_EQ(kuVariants::getUniqueVariantGroupName(name), name);
    kuVariants::createVariantSet(name, false, nullptr);
    kuVariants::createVariantGroup(name, false, true);
  }
  for (const QString& name : alike()) {
    EXPECT_EQ(kuVariants::findVariantSet(kuVariants::getUniqueVariantSetName(name)), nullptr);
    EXPECT_EQ(kuVariants::countVariantGroup(kuVariants::getUniqueVariantGroupName(name)), 0);
  }
}

TEST_F(kuVariantsNamesTest, SelectionByNameReadsCharactersBeyondTheBasicPlane) {
  kuVariants::createVariantSet(QString::fromUtf8("\xf0\x9f\x9a\x98"), false, nullptr);
  kuVariants::createVariantSet(QString::fromUtf8("\xf0\x9f\x9a\x97"), false, nullptr);
  kuVariants::selectVariantSet("\xf0\x9f\x9a\x97", false);
  EXPECT_EQ(messages.lines().at(0), "variantsSetSelected/1 variantSetName:string=\xf0\x9f\x9a\x97");
}

TEST_F(kuVariantsNamesTest, RenameToANameThatOthersBearKeepsTheOrderOfTheList) {
  kuVariantSet* a = kuVariants::createVariantSet("A", false, nullptr);
  kuVariantSet* b = kuVariants::createVariantSet("B", false, nullptr);
  kuVariantSet* c = kuVariants::createVariantSet("C", false, nullptr);
  c->setName("A");
  EXPECT_EQ(kuVariants::findVariantSet("A"), a);
  a->setName("B");
  EXPECT_EQ(kuVariants::findVariantSet("A"), c);
  EXPECT_EQ(kuVariants::findVariantSet("B"), a);
  kuVariants::removeVariantSet("B");
  EXPECT_EQ(kuVariants::findVariantSet("B"), b);
  EXPECT_EQ(kuVariants::createVariantSet("A", false, nullptr), nullptr);
  EXPECT_TRUE(kuVariants::createVariantSet("C", false, nullptr));
  EXPECT_THAT(log, ElementsAre("warning: A variant set with that name already exists."));
}

TEST_F(kuVariantsNamesTest, RenameToTheOwnNameChangesNothing) {
  kuVariantSet* a = kuVariants::createVariantSet("A", false, nullptr);
  a->setName(a->getName());
  EXPECT_EQ(kuVariants::findVariantSet("A"), a);
  EXPECT_THAT(messages.lines(), ElementsAre("variantSetRenamed/0 oldName:string=A newName:string=A "
                                            "groupName:string=ungrouped"));
}
