#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include "standalone/gltf/SceneFile.h"

using namespace kuStandalone;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/** A whole file that the page shows, and the heading that it stands under. */
struct Example {
  std::string heading;
  QByteArray text;
};

QString page() {
  QFile file(KU_SCENE_FILES_PAGE);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

std::vector<Example> examples() {
  static const QRegularExpression part(
      "^(## (?<heading>[^\\n]+)|```json scene\\n(?<text>.*?)```)$",
      QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
  std::vector<Example> found;
  std::string heading;
  auto matches = part.globalMatch(page());
  while (matches.hasNext()) {
    const QRegularExpressionMatch match = matches.next();
    if (!match.captured("heading").isEmpty()) heading = match.captured("heading").toStdString();
    const QByteArray text = match.captured("text").toUtf8();
    if (!text.isEmpty()) found.push_back({heading, text});
  }
  return found;
}

TEST(DocumentedScenes, EachExampleLoadsWithoutErrorOrWarning) {
  for (const Example& example : examples()) {
    const SceneLoadResult result = loadSceneData(example.text, example.heading);
    EXPECT_EQ(result.status, SceneLoadResult::Status::Loaded);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(result.warnings, IsEmpty()) << example.heading;
  }
}

TEST(DocumentedScenes, EachWordOfTheConventionStandsInAnExample) {
  std::string all;
  for (const Example& example : examples())
    all += example.text.toStdString();
  for (const char* word : {"switch",
                           "environmentSwitch",
                           "transforms",
                           "transform",
                           "supposed",
                           "materialGroup",
                           "ignore",
                           "cloneOf",
                           "on",
                           "sceneplates",
                           "sceneplate",
                           "rect",
                           "choice",
                           "environment",
                           "states",
                           "state",
                           "locked",
                           "activeCamera",
                           "viewpoints",
                           "animationBlocks",
                           "KHR_node_visibility",
                           "KHR_lights_punctual",
                           "KHR_materials_variants"}) {
    EXPECT_THAT(all, HasSubstr("\"" + std::string(word) + "\":"));
  }
}

}  // namespace
