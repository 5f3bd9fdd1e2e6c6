#include <QCoreApplication>
#include <QTranslator>

#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "scene/kuAnalyzerVariant.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "standalone/kernel/MessageWatch.h"
#include "support/VariantsTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** The operations of one kind, and what they say. */
struct Family {
  const char* kind;
  int type;
  kuVariant* (*create)(const QString& name, bool sendMessage);
  kuVariant* (*find)(const QString& name);
  bool (*remove)(const QString& name);
  void (*clear)();
  std::size_t (*count)();
  const char* addedRoof;
  const char* removed;
  const char* changed;
};

template <class Variant>
kuVariant* up(Variant* variant) {
  return variant;
}

using Name = const QString&;
using V = kuVariants;

const Family families[] = {
    {"Node", 2, [](Name name, bool send) { return up(V::createNodeVariant(name, send)); },
     [](Name name) { return up(V::findNodeVariant(name)); }, V::removeNodeVariant,
     V::clearNodeVariants, [] { return V::getNodeVariants().size(); },
     "nodeVariantAdded/1 variant:void*=kuVariant Roof", "nodeVariantRemoved/1 bare",
     "nodeVariantChanged/1 bare"},
    {"Material", 1, [](Name name, bool send) { return up(V::createMaterialVariant(name, send)); },
     [](Name name) { return up(V::findMaterialVariant(name)); }, V::removeMaterialVariant,
     V::clearMaterialVariants, [] { return V::getMaterialVariants().size(); },
     "materialVariantAdded/1 variant:void*=kuVariant Roof", "materialVariantRemoved/1 bare",
     "materialVariantChanged/1 bare"},
    {"Light", 0, [](Name name, bool send) { return up(V::createLightVariant(name, send)); },
     [](Name name) { return up(V::findLightVariant(name)); }, V::removeLightVariant,
     V::clearLightVariants, [] { return V::getLightVariants().size(); },
     "lightVariantAdded/1 variant:void*=kuVariant Roof", "lightVariantRemoved/1 bare",
     "lightVariantChanged/1 bare"},
    {"Overlay", 3, [](Name name, bool send) { return up(V::createOverlayVariant(name, send)); },
     [](Name name) { return up(V::findOverlayVariant(name)); }, V::removeOverlayVariant,
     V::clearOverlayVariants, [] { return V::getOverlayVariants().size(); },
     "overlayVariantAdded/1 variant:void*=kuVariant Roof", "overlayVariantRemoved/1 bare",
     "overlayVariantChanged/1 bare"},
    {"Transform", 4, [](Name name, bool send) { return up(V::createTransformVariant(name, send)); },
     [](Name name) { return up(V::findTransformVariant(name)); }, V::removeTransformVariant,
     V::clearTransformVariants, [] { return V::getTransformVariants().size(); },
     "transformVariantAdded/0 variant:void*=kuVariant Roof", "transformVariantRemoved/0 bare",
     "transformVariantChanged/0 bare"}};

class KindsOfVariants : public VariantsTest, public ::testing::WithParamInterface<Family> {
 protected:
  const Family& kind = GetParam();
};

class kuVariantsRegistryTest : public VariantsTest {};

}  // namespace

TEST_P(KindsOfVariants, NewVariantIsAnnounced) {
  const kuVariant* roof = kind.create("Roof", true);
  ASSERT_TRUE(roof);
  EXPECT_EQ(roof->getName(), "Roof");
  EXPECT_TRUE(roof->getOptions().empty());
  EXPECT_EQ(roof->getDefault(), "");
  EXPECT_EQ(kind.count(), 1u);
  EXPECT_THAT(messages.lines(), ElementsAre(kind.addedRoof));
}

TEST_P(KindsOfVariants, NewVariantIsSilentWhereNoMessageIsWanted) {
  EXPECT_TRUE(kind.create("Roof", false));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_P(KindsOfVariants, ExistingVariantIsAnsweredInSilence) {
  const kuVariant* roof = kind.create("Roof", false);
  EXPECT_EQ(kind.create("Roof", true), roof);
  EXPECT_EQ(kind.count(), 1u);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_P(KindsOfVariants, NewVariantThatAReceiverRemovesIsNotAnswered) {
  const kuStandalone::MessageWatch watch([this](const kuStandalone::PassedMessage& message) {
    if (message.name.find("Added") != std::string::npos) kind.remove("Roof");
  });
  EXPECT_EQ(kind.create("Roof", true), nullptr);
  EXPECT_EQ(kind.count(), 0u);
}

TEST_P(KindsOfVariants, NamesCompareExactly) {
  const kuVariant* roof = kind.create("Roof", false);
  EXPECT_EQ(kind.find("Roof"), roof);
  EXPECT_EQ(kind.find("roof"), nullptr);
  EXPECT_EQ(kind.find("Roof "), nullptr);
  EXPECT_EQ(kind.find("Door"), nullptr);
}

TEST_P(KindsOfVariants, EmptyNameFindsNothingAlsoWhereAVariantBearsIt) {
  kind.create("Roof", false)->setName("");
  EXPECT_EQ(kind.find(""), nullptr);
  EXPECT_EQ(kind.find(QString()), nullptr);
}

TEST_P(KindsOfVariants, RenamedVariantIsFoundByItsNewName) {
  kuVariant* roof = kind.create("Roof", false);
  roof->setName("Top");
  EXPECT_EQ(kind.find("Roof"), nullptr);
  EXPECT_EQ(kind.find("Top"), roof);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_P(KindsOfVariants, FirstOfTheListWinsAmongEqualNames) {
  kuVariant* roof = kind.create("Roof", false);
  kuVariant* door = kind.create("Door", false);
  roof->setName("Door");
  EXPECT_EQ(kind.find("Door"), roof);
  EXPECT_TRUE(kind.remove("Door"));
  EXPECT_EQ(kind.find("Door"), door);
  EXPECT_EQ(kind.count(), 1u);
}

TEST_P(KindsOfVariants, RemovalIsAnnouncedWithoutAttributes) {
  kind.create("Roof", false);
  EXPECT_TRUE(kind.remove("Roof"));
  EXPECT_EQ(kind.find("Roof"), nullptr);
  EXPECT_EQ(kind.count(), 0u);
  EXPECT_THAT(messages.lines(), ElementsAre(kind.removed));
}

TEST_P(KindsOfVariants, VariantsAreGoneWhenTheirRemovalOrClearingIsTold) {
  std::vector<std::size_t> counts;
  const kuStandalone::MessageWatch watch(
      [&](const kuStandalone::PassedMessage&) { counts.push_back(kind.count()); });
  kind.create("Roof", false);
  kind.create("Door", false);
  kind.remove("Roof");
  kind.clear();
  EXPECT_THAT(counts, ElementsAre(1u, 0u));
}

TEST_P(KindsOfVariants, ListsKeepTheOrderOfCreationAmongNamesThatMove) {
  kuVariant* a = kind.create("A", false);
  kuVariant* b = kind.create("B", false);
  kuVariant* c = kind.create("C", false);
  c->setName("A");
  EXPECT_EQ(kind.find("A"), a);
  a->setName("B");
  EXPECT_EQ(kind.find("A"), c);
  EXPECT_EQ(kind.find("B"), a);
  a->setName("A");
  EXPECT_EQ(kind.find("A"), a);
  EXPECT_EQ(kind.find("B"), b);
  EXPECT_EQ(kind.create("A", true), a);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_P(KindsOfVariants, RemovalOfAnUnknownNameIsAnnouncedAndTrue) {
  kind.create("Roof", false);
  EXPECT_TRUE(kind.remove("Door"));
  EXPECT_EQ(kind.count(), 1u);
  EXPECT_THAT(messages.lines(), ElementsAre(kind.removed));
}

TEST_P(KindsOfVariants, RemovalOfTheEmptyNameIsSilentAndFalse) {
  kind.create("Roof", false)->setName("");
  EXPECT_FALSE(kind.remove(""));
  EXPECT_EQ(kind.count(), 1u);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_P(KindsOfVariants, RemovalTakesTheVariantsOwnNameAsArgument) {
  const kuVariant* roof = kind.create("Roof", false);
  EXPECT_TRUE(kind.remove(roof->getName()));
  EXPECT_EQ(kind.count(), 0u);
}

TEST_P(KindsOfVariants, ClearingTellsOnceAlsoAnEmptyList) {
  kind.create("Roof", false);
  kind.create("Door", false);
  kind.clear();
  EXPECT_EQ(kind.count(), 0u);
  EXPECT_EQ(kind.find("Roof"), nullptr);
  kind.clear();
  EXPECT_THAT(messages.lines(), ElementsAre(kind.changed, kind.changed));
}

TEST_P(KindsOfVariants, TypeIsTheNumberOfItsList) {
  const kuVariant* roof = kind.create("Roof", false);
  EXPECT_EQ(kuVariants::getVariantType(roof), kind.type);
  EXPECT_EQ(kuVariants::findVariant(VariantType(kind.type), "Roof"), roof);
  for (int other = 0; other < 5; ++other) {
    if (other != kind.type) {
      EXPECT_EQ(kuVariants::findVariant(VariantType(other), "Roof"), nullptr);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Each, KindsOfVariants, ::testing::ValuesIn(families),
                         [](const auto& tested) { return std::string(tested.param.kind); });

TEST_F(kuVariantsRegistryTest, EmptyNameMakesAnotherNamelessVariantEachTime) {
  for (const Family& kind : families) {
    if (kind.type == OverlayVariantType) continue;
    const kuVariant* first = kind.create("", true);
    const kuVariant* second = kind.create("", true);
    ASSERT_TRUE(first && second) << kind.kind;
    EXPECT_NE(first, second) << kind.kind;
    EXPECT_EQ(first->getName(), "") << kind.kind;
    EXPECT_EQ(kind.count(), 2u) << kind.kind;
  }
  EXPECT_EQ(messages.lines().size(), 8u);
}

TEST_F(kuVariantsRegistryTest, EmptyNameMakesNoOverlay) {
  EXPECT_EQ(kuVariants::createOverlayVariant("", true), nullptr);
  EXPECT_THAT(kuVariants::getOverlayVariants(), IsEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuVariantsRegistryTest, NumbersThatAreNoKindFindNothing) {
  for (const Family& kind : families)
    kind.create("Roof", false);
  for (const int number : {5, -1, 6, 1000}) {
    EXPECT_EQ(kuVariants::findVariant(VariantType(number), "Roof"), nullptr) << number;
  }
}

TEST_F(kuVariantsRegistryTest, OtherVariantsAreOfUnknownType) {
  const kuVariant plain;
  const kuAnalyzerVariant clipping;
  EXPECT_EQ(kuVariants::getVariantType(&plain), -1);
  EXPECT_EQ(kuVariants::getVariantType(&clipping), -1);
  EXPECT_EQ(kuVariants::getVariantType(nullptr), -1);
}

TEST_F(kuVariantsRegistryTest, ListsKeepTheOrderOfCreation) {
  kuVariant* c = kuVariants::createNodeVariant("C", false);
  kuVariants::createNodeVariant("B", false);
  kuVariant* a = kuVariants::createNodeVariant("A", false);
  kuVariants::removeNodeVariant("B");
  EXPECT_THAT(kuVariants::getNodeVariants(), ElementsAre(c, a));
}

TEST_F(kuVariantsRegistryTest, RecursionIsPlainAccess) {
  EXPECT_FALSE(kuVariants::getRecursion());
  kuVariants::setRecursion(true);
  EXPECT_TRUE(kuVariants::getRecursion());
  kuVariants::setRecursion(false);
  EXPECT_FALSE(kuVariants::getRecursion());
}

TEST_F(kuVariantsRegistryTest, TranslationHasItsOwnContext) {
  class Echo : public QTranslator {
   public:
    QString translate(const char* context, const char* text, const char* comment,
                      int n) const override {
      return QString("%1/%2/%3/%4").arg(context, text, comment).arg(n);
    }
    bool isEmpty() const override { return false; }
  };
  Echo echo;
  QCoreApplication::installTranslator(&echo);
  EXPECT_EQ(kuVariants::tr("Set", "note", 3), "kuVariants/Set/note/3");
  EXPECT_EQ(kuVariants::trUtf8("Set", "note", 3), "kuVariants/Set/note/3");
  QCoreApplication::removeTranslator(&echo);
  EXPECT_EQ(kuVariants::tr("Set", nullptr, -1), "Set");
}
