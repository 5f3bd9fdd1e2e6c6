#include "scene/kuTransformVariant.h"

#include <array>
#include <sstream>

#include "host/kernel/kuController.h"
#include "host/services/kuKernelServiceFactory.h"
#include "host/services/kuTransformService.h"
#include "manager/kuVariants.h"
#include "support/VariantText.h"
#include "support/VariantsTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** Stands in for the host's service and notes its calls: "node:index" for each, one list a call. */
class RecordingService : public kuTransformService {
 public:
  RecordingService() : _former(kuKernelServiceFactory::the().getService<kuTransformService>()) {
    kuKernelServiceFactory::the().registerService<kuTransformService>(this);
  }
  ~RecordingService() override {
    kuKernelServiceFactory::the().registerService<kuTransformService>(_former);
  }
  void switchTransformVariants(const QList<QRPC::NodeTrafoId>& states, int a, int b) override {
    EXPECT_EQ(states.size(), 1);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    for (const QRPC::NodeTrafoId& state : states)
      calls.emplace_back(state.getNodeId(), state.getTransformIndex());
  }
  std::vector<std::pair<unsigned, int>> calls;

 private:
  kuTransformService* _former;
};

using kuTransformVariantTest = VariantsTest;

std::vector<std::string> optionsOf(const kuTransformVariant& variant) {
  std::vector<std::string> result;
  for (const kuVariantOption& option : variant.getOptions())
    result.push_back(option.getName().toStdString() + (option.getAction() ? "*" : ""));
  return result;
}

TEST_F(kuTransformVariantTest, StepsComeFirstAndAreActions) {
  scene.transforms("Door", {"A", "B"}, 0, 0);
  const kuTransformVariant variant("Door");
  EXPECT_THAT(optionsOf(variant),
              ElementsAre("!Next*", "!Next (Loop)*", "!Previous*", "!Previous (Loop)*", "A", "B"));
  EXPECT_EQ(variant.getDefault(), "!Next");
  EXPECT_EQ(variant.getName(), "Door");
}

TEST_F(kuTransformVariantTest, AnEmptyNameStaysEmpty) {
  const kuTransformVariant variant{QString()};
  EXPECT_EQ(variant.getName(), "");
  EXPECT_THAT(optionsOf(variant), IsEmpty());
}

TEST_F(kuTransformVariantTest, HotkeyAndDefaultOfAStateSurviveAnUpdate) {
  scene.transforms("Door", {"A", "B"}, 0, 0);
  kuTransformVariant variant("Door");
  variant.find("B")->setHotkey("Ctrl+B");
  variant.setDefault(QString("B"));
  variant.updateVariants();
  EXPECT_EQ(variant.find("B")->getHotkey(), "Ctrl+B");
  EXPECT_EQ(variant.getDefault(), "B");
  variant.setDefault(QString("!Previous"));
  variant.updateVariants();
  EXPECT_EQ(variant.getDefault(), "!Next");
}

TEST_F(kuTransformVariantTest, UpdateWithoutTransformsEmptiesOptionsAndKeepsTheDefault) {
  scene.group("Door");
  kuTransformVariant variant("Door");
  variant.add("A", "");
  variant.setDefault(QString("A"));
  variant.updateVariants();
  EXPECT_THAT(optionsOf(variant), IsEmpty());
  EXPECT_EQ(variant.getDefault(), "A");
}

TEST_F(kuTransformVariantTest, ANodeWithoutTheStateIsPassedOver) {
  const osg::NodePtr first = scene.transforms("Door", {"A", "B"}, 0, 0);
  const osg::NodePtr second = scene.transforms("Door", {"A", "C"}, 0, 0);
  kuTransformVariant("Door").select(QString("C"));
  EXPECT_EQ(SceneBuilder::transformChoice(first), 0u);
  EXPECT_EQ(SceneBuilder::transformChoice(second), 1u);
  EXPECT_EQ(SceneBuilder::supposedIndex(second), 1);
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuTransformVariantTest, TwoClonesReceiveTwoCalls) {
  const osg::NodePtr door = scene.transforms("Door", {"A", "B"}, 0, 0);
  const osg::NodePtr twin = scene.clone(door);
  RecordingService service;
  kuTransformVariant("Door").select(QString("B"));
  EXPECT_THAT(service.calls, ElementsAre(std::make_pair(kuNodePtr(door).getID(), 1),
                                         std::make_pair(kuNodePtr(twin).getID(), 1)));
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuTransformVariantTest, ANegativeIndexNeedsNoService) {
  scene.transforms("Door", {"A", "B"}, 0, 0);
  RecordingService keepsTheFormer;
  kuKernelServiceFactory::the().unregisterService<kuTransformService>();
  kuTransformVariant("Door").select(QString("unknown"));
  EXPECT_THAT(keepsTheFormer.calls, IsEmpty());
  EXPECT_THAT(messages.lines(), IsEmpty());
}

TEST_F(kuTransformVariantTest, CurrentIsTheFirstSupposedStateWhateverTheChoice) {
  scene.group("Door");
  scene.transforms("Door", {"A", "B"}, 0, -1);
  scene.transforms("Door", {"A", "B"}, 0, 1);
  EXPECT_EQ(kuTransformVariant("Door").getCurrent(), "B");
  EXPECT_EQ(kuTransformVariant("Nowhere").getCurrent(), "");
}

/** What a step calls the service with, from each supposed index; "." for no call. */
struct StepRow {
  const char* state;
  int count;
  const char* indices;
};

//                     from: -3 -2 -1  0  1  2  3  4  5  6  7
constexpr StepRow Steps[] = {
    {"!Next", 0, "            .  .  .  .  .  .  .  .  .  .  ."},
    {"!Next", 1, "            .  .  0  0  0  0  0  0  0  0  0"},
    {"!Next", 2, "            .  .  0  1  1  1  1  1  1  1  1"},
    {"!Next", 3, "            .  .  0  1  2  2  2  2  2  2  2"},
    {"!Next", 4, "            .  .  0  1  2  3  3  3  3  3  3"},
    {"!Next", 5, "            .  .  0  1  2  3  4  4  4  4  4"},
    {"!Next (Loop)", 0, "     .  .  0  0  0  0  0  0  0  0  0"},
    {"!Next (Loop)", 1, "     .  .  0  0  0  0  0  0  0  0  0"},
    {"!Next (Loop)", 2, "     .  .  0  1  0  0  0  0  0  0  0"},
    {"!Next (Loop)", 3, "     .  .  0  1  2  0  0  0  0  0  0"},
    {"!Next (Loop)", 4, "     .  .  0  1  2  3  0  0  0  0  0"},
    {"!Next (Loop)", 5, "     .  .  0  1  2  3  4  0  0  0  0"},
    {"!Previous", 0, "        0  0  0  0  0  1  2  3  4  5  6"},
    {"!Previous", 1, "        0  0  0  0  0  1  2  3  4  5  6"},
    {"!Previous", 2, "        0  0  0  0  0  1  2  3  4  5  6"},
    {"!Previous", 3, "        0  0  0  0  0  1  2  3  4  5  6"},
    {"!Previous", 4, "        0  0  0  0  0  1  2  3  4  5  6"},
    {"!Previous", 5, "        0  0  0  0  0  1  2  3  4  5  6"},
    {"!Previous (Loop)", 0, " .  .  .  .  0  1  2  3  4  5  6"},
    {"!Previous (Loop)", 1, " 0  0  0  0  0  1  2  3  4  5  6"},
    {"!Previous (Loop)", 2, " 1  1  1  1  0  1  2  3  4  5  6"},
    {"!Previous (Loop)", 3, " 2  2  2  2  0  1  2  3  4  5  6"},
    {"!Previous (Loop)", 4, " 3  3  3  3  0  1  2  3  4  5  6"},
    {"!Previous (Loop)", 5, " 4  4  4  4  0  1  2  3  4  5  6"},
};
constexpr const char* Unheeded[] = {"!All", "!None", "!Enable", "!Disable", "!Toggle"};

/** What the service is called with in a scene of one node; "." for no call. */
std::string called(SceneBuilder& scene, const char* state, int count, int supposed) {
  const std::array<std::string, 5> all{"A", "B", "C", "D", "E"};
  const osg::NodePtr door = scene.transforms("Door" + std::to_string(supposed),
                                             {all.begin(), all.begin() + count}, 0, supposed);
  RecordingService service;
  kuTransformVariant(QString("Door%1").arg(supposed)).select(QString(state));
  if (service.calls.empty()) return ".";
  EXPECT_EQ(service.calls.size(), 1u);
  EXPECT_EQ(service.calls[0].first, kuNodePtr(door).getID());
  return std::to_string(service.calls[0].second);
}

TEST_F(kuTransformVariantTest, StepsFollowTheTable) {
  for (const StepRow& row : Steps) {
    SceneBuilder fresh;
    std::istringstream indices(row.indices);
    for (int supposed = -3; supposed <= 7; ++supposed) {
      std::string expected;
      indices >> expected;
      EXPECT_EQ(called(fresh, row.state, row.count, supposed), expected)
          << row.state << " from " << supposed << " of " << row.count;
    }
  }
}

TEST_F(kuTransformVariantTest, KeywordsOfOtherKindsCallNothing) {
  for (const char* keyword : Unheeded) {
    for (int count = 0; count <= 5; ++count) {
      SceneBuilder fresh;
      for (int supposed = -3; supposed <= 7; ++supposed)
        EXPECT_EQ(called(fresh, keyword, count, supposed), ".") << keyword << count << supposed;
    }
  }
}

TEST_F(kuTransformVariantTest, OptionsComeFromTheFirstNodeThatHasTransforms) {
  scene.group("Door");
  scene.transforms("Door", {"C", "D", "C"}, 0, 0);
  scene.transforms("Door", {"A"}, 0, 0);
  EXPECT_THAT(optionsOf(kuTransformVariant("Door")),
              ElementsAre("!Next*", "!Next (Loop)*", "!Previous*", "!Previous (Loop)*", "C", "D"));
}

TEST_F(kuTransformVariantTest, UpdateKeepsHotkeysButNoFlags) {
  scene.transforms("Door", {"A"}, 0, 0);
  kuTransformVariant variant;
  variant.setNode("Door");
  variant.add(true, "A", "F1");
  variant.add(false, "!Next", "F2");
  variant.add(false, "Gone", "F3");
  variant.setDefault(QString("Gone"));
  variant.updateVariants();
  EXPECT_THAT(optionTexts(variant), ElementsAre("!Next * [F2]", "!Next (Loop) *", "!Previous *",
                                                "!Previous (Loop) *", "A [F1]"));
  EXPECT_EQ(variant.find("A")->getShortcutKey(), Qt::Key_F1);
  EXPECT_EQ(variant.getDefault(), "!Next");
  EXPECT_EQ(variant.getName(), "");
}

TEST_F(kuTransformVariantTest, UpdateWithoutANodeEmptiesOptionsAndKeepsTheDefault) {
  kuTransformVariant variant("Door");
  EXPECT_EQ(variant.getName(), "Door");
  EXPECT_EQ(variant.getNode(), "Door");
  variant.add("A", "");
  variant.setDefault(QString("A"));
  variant.updateVariants();
  EXPECT_THAT(optionsOf(variant), IsEmpty());
  EXPECT_EQ(variant.getDefault(), "A");
}

TEST_F(kuTransformVariantTest, EachNodeStepsFromItsOwnIndex) {
  const osg::NodePtr first = scene.transforms("Door", {"A", "B", "C"}, 0, 1);
  scene.group("Door");
  const osg::NodePtr second = scene.transforms("Door", {"A", "B", "C"}, 2, 0);
  RecordingService service;
  kuTransformVariant("Door").select(QString("!Next"));
  EXPECT_THAT(service.calls, ElementsAre(std::make_pair(kuNodePtr(first).getID(), 2),
                                         std::make_pair(kuNodePtr(second).getID(), 1)));
}

TEST_F(kuTransformVariantTest, NoSelectionSendsAnyMessage) {
  scene.transforms("Door", {"A", "B"}, 0, 0);
  kuTransformVariant& variant = *kuVariants::createTransformVariant("Door", false);
  variant.setNode("Door");
  messages.clear();
  for (const char* state :
       {"A", "B", "!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)", "unknown", ""}) {
    variant.select(QString(state));
  }
  variant.setNode("Nowhere");
  variant.select(QString("A"));
  EXPECT_THAT(messages.lines(), IsEmpty());
  EXPECT_TRUE(log.empty());
}

TEST_F(kuTransformVariantTest, CopyAndAssignmentHaveTheNodeToo) {
  scene.transforms("Door", {"A"}, 0, 0);
  kuTransformVariant variant("Door");
  variant.setName("Gate");
  const kuTransformVariant copy(variant);
  kuTransformVariant assigned;
  assigned = variant;
  for (const kuTransformVariant* other :
       {&copy, static_cast<const kuTransformVariant*>(&assigned)}) {
    EXPECT_EQ(other->getName(), "Gate");
    EXPECT_EQ(other->getNode(), "Door");
    EXPECT_EQ(other->getDefault(), "!Next");
    EXPECT_EQ(other->getOptions().size(), 5u);
  }
}

/** A service that removes variants whenever it is called. */
class RemovingService final : public RecordingService {
 public:
  explicit RemovingService(void (*remove)()) : _remove(remove) {}
  void switchTransformVariants(const QList<QRPC::NodeTrafoId>& states, int a, int b) override {
    _remove();
    RecordingService::switchTransformVariants(states, a, b);
  }

 private:
  void (*_remove)();
};

struct RemovalRow {
  const char* title;
  void (*remove)();
};

class TransformVariantRemoval : public VariantsTest,
                                public ::testing::WithParamInterface<RemovalRow> {};

TEST_P(TransformVariantRemoval, TheSelectionReachesEveryNodeAllTheSame) {
  const osg::NodePtr first = scene.transforms("Door", {"A", "B"}, 0, 0);
  const osg::NodePtr second = scene.transforms("Door", {"B", "A"}, 0, 0);
  kuTransformVariant& variant = *kuVariants::createTransformVariant("Door", false);
  variant.setNode("Door");
  variant.setDefault(QString("B"));
  RemovingService service(GetParam().remove);
  variant.select();  // the state's text is the variant's own
  EXPECT_EQ(kuVariants::findTransformVariant("Door"), nullptr);
  EXPECT_THAT(service.calls, ElementsAre(std::make_pair(kuNodePtr(first).getID(), 1),
                                         std::make_pair(kuNodePtr(second).getID(), 0)));
}

INSTANTIATE_TEST_SUITE_P(
    kuTransformVariant, TransformVariantRemoval,
    ::testing::Values(RemovalRow{"TheVariant", [] { kuVariants::removeTransformVariant("Door"); }},
                      RemovalRow{"AllVariants", [] { kuVariants::clearTransformVariants(); }},
                      RemovalRow{"Everything", [] { kuController::call("clearAllVariants", 1); }}),
    [](const auto& row) { return std::string(row.param.title); });

}  // namespace
