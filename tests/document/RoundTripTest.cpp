// Managers with everything that one can hold, drawn by a seed, written and read again. What must
// come back is told by the model that the manager was built from.

#include "RoundTripTest.h"

#include "DocumentModelGenerator.h"
#include "SchemaCheck.h"

using ::testing::Each;
using ::testing::IsEmpty;

namespace {

constexpr unsigned managersInABatch = 40;

class RoundTrip : public RoundTripTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  /** The models of this batch. */
  static std::vector<DocumentModel> models() {
    std::vector<DocumentModel> made;
    for (unsigned i = 0; i < managersInABatch; ++i)
      made.push_back(DocumentModelGenerator(GetParam() * managersInABatch + i).make());
    return made;
  }
};

TEST_P(RoundTrip, ManagersComeBackWhole) {
  for (const bool withSceneplates : {false, true}) {
    DocumentModel::Names plates;
    if (withSceneplates) {
      scene.sceneplateSwitch("Season", 0, {"Plate A", "Plate B"});
      plates = {"Plate A", "Plate B"};
    }
    for (const DocumentModel& model : models()) {
      const DocumentModel expected = model.afterReload(plates);
      model.build();
      reload();
      ASSERT_EQ(managerDump(), expected.dump());
      ASSERT_EQ(exactClipping(), expected.clippingDump());
      clear();
    }
  }
  EXPECT_THAT(log, IsEmpty());
}

TEST_P(RoundTrip, WritingChangesNothing) {
  for (const DocumentModel& model : models()) {
    model.build();
    const std::string before = managerDump();
    messages.clear();
    written();
    ASSERT_EQ(managerDump(), before);
    ASSERT_THAT(messages.lines(), IsEmpty());
    clear();
  }
}

TEST_P(RoundTrip, FromTheSecondTimeOnTheBytesAreTheSame) {
  for (const DocumentModel& model : models()) {
    model.build();
    reload();
    const QByteArray second = reload();
    ASSERT_EQ(written().toStdString(), second.toStdString());
    clear();
  }
}

TEST_P(RoundTrip, DocumentsAreValid) {
  std::vector<QByteArray> documents;
  for (const DocumentModel& model : models()) {
    model.build();
    documents.push_back(reload());
    documents.push_back(written());
    clear();
  }
  EXPECT_THAT(schemaFaults(documents), Each(std::string()));
}

INSTANTIATE_TEST_SUITE_P(Batches, RoundTrip, ::testing::Range(0u, 9u));

}  // namespace
