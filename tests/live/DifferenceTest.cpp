// Machines that are not alike: each shows what it can, and nothing else differs.

#include <QJsonDocument>

#include "LiveTest.h"

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

QJsonObject without(QJsonObject state, const QString& kind, const QString& variant) {
  QJsonObject states = state["states"].toObject(), ofKind = states[kind].toObject();
  ofKind.remove(variant);
  states[kind] = ofKind;
  state["states"] = states;
  return state;
}

std::string text(const QJsonObject& object) {
  return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

/** The sample's document with a script for the set "Winter Trip". */
QByteArray withScript(QByteArray document, const QByteArray& script) {
  const int set = document.indexOf("<VariantSet name=\"Winter Trip\"");
  const int place = document.indexOf("<Script></Script>", set);
  return document.replace(place, 17, "<Script>" + script + "</Script>");
}

}  // namespace

TEST_F(LiveTest, PartnerWhoseSceneHasNoSuchSwitchShowsTheRest) {
  LivePartner &ada = join("Ada"), &cleo = join("Cleo");
  const QString own = scene;
  scene =
      write("other.gltf", sample("car.gltf").replace("\"name\": \"Roof\"", "\"name\": \"Top\""));
  ASSERT_NE(sample("car.gltf").indexOf("\"name\": \"Roof\""), -1);
  LivePartner& ben = join("Ben");
  ada.type(storm(0, 30));
  ben.type(storm(1, 30));
  cleo.type(storm(2, 30));
  settle({&ada, &ben, &cleo});
  ada.type(QString("select Sport"));
  for (LivePartner* partner : {&ada, &ben, &cleo})
    partner->waitForCommands(94);
  expectSameOrder({&ada, &ben, &cleo}, 94);
  expectSameStates({&ada, &cleo});
  EXPECT_EQ(stateOf(ada.state(), "node", "Roof"), "Open Top");
  EXPECT_EQ(stateOf(ben.state(), "node", "Roof"), "");
  EXPECT_EQ(text(without(ben.state(), "node", "Roof")), text(without(ada.state(), "node", "Roof")));
}

TEST_F(LiveTest, PartnerWhoseDocumentHasNoSuchSetAndVariantPassesThemOver) {
  LivePartner &ada = join("Ada"), &cleo = join("Cleo");
  document = write("other.xml",
                   sample("car.variants.xml")
                       .replace("<VariantSet name=\"Sport\"", "<VariantSet name=\"S\"")
                       .replace("<MaterialVariant name=\"Glass\"", "<MaterialVariant name=\"G\""));
  LivePartner& ben = join("Ben");
  ada.type(QStringList{"select Family", "select Sport", "variant material:Glass=Clear"});
  for (LivePartner* partner : {&ada, &ben, &cleo})
    partner->waitForCommands(3);
  EXPECT_EQ(stateOf(cleo.state(), "material", "Paint"), "Blue");
  EXPECT_EQ(stateOf(ben.state(), "material", "Paint"), "Silver");
  ben.type(QStringList{"select S", "select Base Model"});
  ada.waitForCommands(5);
  cleo.waitForCommands(5);
  expectSameOrder({&ada, &ben, &cleo}, 5);
  expectSameStates({&ada, &cleo});
  const QJsonObject adas = without(ada.state(), "material", "Glass");
  EXPECT_EQ(text(without(without(ben.state(), "material", "G"), "material", "Glass")), text(adas));
}

TEST_F(LiveTest, ScriptOfASetRunsOnlyWhereScriptsAreAllowed) {
  const QByteArray script = "import os\nselectVariantSet(&quot;Jack&quot;)";
  document = write("script.xml", withScript(sample("car.variants.xml"), script));
  LivePartner& ada = join("Ada");
  LivePartner& ben = join("Ben", {"--allow-scripts"});
  ada.type(QString("select Winter Trip"));
  ben.waitForCommands(1);
  EXPECT_EQ(stateOf(ada.state(), "node", "Jack"), "!Disable");
  EXPECT_EQ(stateOf(ben.state(), "node", "Jack"), "!Enable");
  EXPECT_EQ(text(without(ben.state(), "node", "Jack")), text(without(ada.state(), "node", "Jack")));
  EXPECT_THAT(ada.diagnostics().toStdString(), HasSubstr("held back"));
  EXPECT_THAT(ben.diagnostics().toStdString(), Not(HasSubstr("held back")));
  // What the script did was not sent to anybody.
  expectSameOrder({&ada, &ben}, 1);
  ben.type(QString("variant node:Jack=!Enable"));
  ada.waitForCommands(2);
  expectSameStates({&ada, &ben});
}

TEST_F(LiveTest, NodeVariantOfATransformNodeShowsItsFlagAloneWhateverItsTransform) {
  document = write("leaf.xml", sample("car.variants.xml")
                                   .replace("<NodeVariant name=\"Jack\"",
                                            "<NodeVariant name=\"Leaf\" base=\"Left Door\">"
                                            "<State name=\"!Next\"/><State name=\"!Disable\"/>"
                                            "</NodeVariant><NodeVariant name=\"Jack\""));
  LivePartner &ada = join("Ada"), &ben = join("Ben");
  ada.type(QString("variant node:Leaf=!Next"));
  ben.waitForCommands(1);
  EXPECT_EQ(stateOf(ada.state(), "node", "Leaf"), "!Enable");
  ben.type(QStringList{"variant node:Leaf=!Next", "variant node:Leaf=!Disable"});
  ada.waitForCommands(3);
  EXPECT_EQ(stateOf(ada.state(), "node", "Leaf"), "!Disable");
  expectSameOrder({&ada, &ben}, 3);
  expectSameStates({&ada, &ben});
}
