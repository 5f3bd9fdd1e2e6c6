#include "CliTest.h"

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class SelectCommandTest : public CliTest {
 protected:
  CliResult select(const QStringList& arguments) {
    return run(QStringList{"select", "car.gltf", "car.xml"} + arguments);
  }
  /** The state of one variant after a request that must succeed. */
  std::string stateAfter(const QString& request, const char* variant) {
    const CliResult result = select({"--variant", request});
    EXPECT_EQ(result.code, 0) << result.err;
    for (const std::string& line : linesOf(result.out)) {
      const std::string start = std::string("  ") + variant + ": ";
      if (line.rfind(start, 0) == 0) return line.substr(start.size());
    }
    return "not there";
  }
};

TEST_F(SelectCommandTest, TellsWhatTheSetChanged) {
  const CliResult result = select({"Summer"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, R"(Selected: Summer

Changed
  node Roof: Closed -> Open
  transform Doors: Shut -> Wide
  light Sun: !Enable -> !Disable
  overlay Title: !None -> Deutsch
  viewpoint: Front -> Rear
  animation Wave: started

Unchanged
  node Leaves: !Enable
  material Paint: Red
)");
}

TEST_F(SelectCommandTest, JsonHoldsTheWholeResult) {
  const CliResult result = select({"Summer", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(normalised(result.out), normalised(R"({
    "selected": ["Summer"],
    "states": {"node": {"Roof": "Open", "Leaves": "!Enable"}, "material": {"Paint": "Red"},
      "transform": {"Doors": "Wide"}, "light": {"Sun": "!Disable"},
      "overlay": {"Title": "Deutsch"}},
    "viewpoint": "Rear",
    "materials": [],
    "animations": ["Wave"]
  })"));
}

TEST_F(SelectCommandTest, SetsAreSelectedInOrder) {
  const CliResult result = select({"Summer", "Winter", "--json"});
  EXPECT_THAT(result.out, HasSubstr("\"selected\": [\"Summer\", \"Winter\"]"));
  EXPECT_EQ(statesOf(result), normalised(R"({
    "node": {"Roof": "Closed", "Leaves": "!Enable"}, "material": {"Paint": "Blue"},
    "transform": {"Doors": "Wide"}, "light": {"Sun": "!Disable"},
    "overlay": {"Title": "Deutsch"}})"));
}

TEST_F(SelectCommandTest, SingleVariantsFollowTheSetsInOrder) {
  const CliResult result = select({"--variant", "node:Roof=!Next", "--variant", "node:Roof=Closed",
                                   "--variant", "node:Roof=!Next", "Summer", "--json"});
  EXPECT_THAT(statesOf(result), HasSubstr("\"Roof\":\"Open\""));
}

TEST_F(SelectCommandTest, NothingChangedIsSaid) {
  EXPECT_THAT(select({"--variant", "node:Roof=Closed"}).out,
              HasSubstr("Selected: node Roof = Closed\n\nChanged\n  nothing\n"));
}

TEST_F(SelectCommandTest, DefaultPutsTheVariantsOfTheSetIntoTheirOwnDefaults) {
  const CliResult result =
      select({"--default", "Summer", "--variant", "material:Paint=Blue", "--json"});
  EXPECT_EQ(statesOf(result), normalised(R"({
    "node": {"Roof": "Closed", "Leaves": "!Enable"}, "material": {"Paint": "Blue"},
    "transform": {"Doors": "Shut"}, "light": {"Sun": "!Enable"}, "overlay": {"Title": "!None"}})"));
  EXPECT_THAT(result.out, HasSubstr("\"viewpoint\": \"Front\",\n  \"animations\": []"));
}

TEST_F(SelectCommandTest, SkipViewpointLeavesTheCameraAlone) {
  const CliResult result = select({"Summer", "--skip-viewpoint"});
  EXPECT_THAT(result.out, HasSubstr("\nUnchanged\n  node Leaves: !Enable\n  material Paint: Red\n"
                                    "  viewpoint: Front\n"));
}

TEST_F(SelectCommandTest, NoViewpointIsNull) {
  write("bare.gltf", R"({"asset": {"version": "2.0"}, "scenes": [{"nodes": []}]})");
  const CliResult result = run({"select", "bare.gltf", "car.xml", "Winter", "--json"});
  EXPECT_THAT(result.out, HasSubstr("\"viewpoint\": null,"));
}

// Keywords that the document does not list.

TEST_F(SelectCommandTest, NodeOnASwitchObeysAllKeywords) {
  EXPECT_EQ(stateAfter("node:Roof=!All", "node Roof"), "Closed -> !All");
  EXPECT_EQ(stateAfter("node:Roof=!None", "node Roof"), "Closed -> !None");
  EXPECT_EQ(stateAfter("node:Roof=!Next", "node Roof"), "Closed -> Open");
  EXPECT_EQ(stateAfter("node:Roof=!Next (Loop)", "node Roof"), "Closed -> Open");
  EXPECT_EQ(stateAfter("node:Roof=!Previous", "node Roof"), "Closed");
  EXPECT_EQ(stateAfter("node:Roof=!Previous (Loop)", "node Roof"), "Closed -> Open");
  for (const char* keyword : {"!Enable", "!Disable", "!Toggle"}) {
    EXPECT_EQ(stateAfter(QString("node:Roof=") + keyword, "node Roof"), "Closed");
  }
}

TEST_F(SelectCommandTest, NodeOnATransformObeysStepsNumbersAndVisibility) {
  for (const char* keyword : {"!Next", "!Next (Loop)", "!Previous", "!Previous (Loop)",
                              "Transform 1", "Transform 99", "!Enable"}) {
    EXPECT_EQ(stateAfter(QString("node:Leaves=") + keyword, "node Leaves"), "!Enable");
  }
  EXPECT_EQ(stateAfter("node:Leaves=!Disable", "node Leaves"), "!Enable -> !Disable");
  EXPECT_EQ(stateAfter("node:Leaves=!Toggle", "node Leaves"), "!Enable -> !Disable");
}

TEST_F(SelectCommandTest, MaterialAndTransformObeySteps) {
  EXPECT_EQ(stateAfter("material:Paint=!Next", "material Paint"), "Red -> Blue");
  EXPECT_EQ(stateAfter("transform:Doors=!Previous (Loop)", "transform Doors"), "Shut -> Wide");
}

TEST_F(SelectCommandTest, LightObeysToggle) {
  EXPECT_EQ(stateAfter("light:Sun=!Toggle", "light Sun"), "!Enable -> !Disable");
}

TEST_F(SelectCommandTest, OverlayOnASwitchObeysAllKeywords) {
  EXPECT_EQ(stateAfter("overlay:Title=!All", "overlay Title"), "!None -> !All");
  EXPECT_EQ(stateAfter("overlay:Title=!Next", "overlay Title"), "!None -> English");
  for (const char* keyword : {"!Enable", "!Disable", "!Toggle"}) {
    EXPECT_EQ(stateAfter(QString("overlay:Title=") + keyword, "overlay Title"), "!None");
  }
}

struct UnknownName {
  const char* name;
  QStringList arguments;
  const char* error;
};

class UnknownNameTest : public CliTest, public ::testing::WithParamInterface<UnknownName> {};

TEST_P(UnknownNameTest, AnswersFourAndNothingIsWritten) {
  const QStringList before = files();
  const CliResult result = run(QStringList{"select", "car.gltf", "car.xml", "--save-scene",
                                           "saved.gltf", "--trace", "trace.jsonl"} +
                               GetParam().arguments);
  EXPECT_EQ(result.code, 4);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, std::string("kuvariants: ") + GetParam().error + "\n");
  EXPECT_EQ(files(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Names, UnknownNameTest,
    ::testing::Values(
        UnknownName{"Set", {"Summer", "Autumn"}, "unknown set: Autumn: there is none of that name"},
        UnknownName{"MisspeltSet",
                    {"Sumer"},
                    "unknown set: Sumer: there is none of that name; did you mean \"Summer\"?"},
        UnknownName{"SetInOtherCase",
                    {"winter"},
                    "unknown set: winter: there is none of that name; did you mean \"Winter\"?"},
        UnknownName{"Variant",
                    {"Summer", "--variant", "node:Chimney=Open"},
                    "unknown variant: node:Chimney: there is none of that name"},
        UnknownName{"VariantOfAnotherKind",
                    {"--variant", "light:Roof=!Enable"},
                    "unknown variant: light:Roof: there is none of that name"},
        UnknownName{"State",
                    {"--variant", "node:Roof=Opn"},
                    "unknown state: node:Roof=Opn: there is none of that name; "
                    "did you mean \"Open\"?"},
        UnknownName{"EmptyState",
                    {"--variant", "node:Roof="},
                    "unknown state: node:Roof=: there is none of that name"},
        UnknownName{"KeywordOfAnotherKind",
                    {"--variant", "light:Sun=!Next"},
                    "unknown state: light:Sun=!Next: there is none of that name"},
        UnknownName{"NumberedTransformOfASwitch",
                    {"--variant", "node:Roof=Transform 1"},
                    "unknown state: node:Roof=Transform 1: there is none of that name"},
        UnknownName{"TransformWithoutNumber",
                    {"--variant", "node:Leaves=Transform "},
                    "unknown state: node:Leaves=Transform : there is none of that name; "
                    "did you mean \"Transform 0\"?"},
        UnknownName{"HostileName",
                    {"a\n\x1b[2J\""},
                    "unknown set: a\\n\\u001b[2J\": there is none of that name"}),
    [](const auto& test) { return test.param.name; });

TEST_F(SelectCommandTest, NameAndStateAreSplitAtTheFirstSigns) {
  write("signs.xml",
        "<Variants><LightVariant name=\"a:b\" base=\"Sun\"><State name=\"c=d:e\"/></LightVariant>"
        "</Variants>");
  const CliResult result = run({"select", "car.gltf", "signs.xml", "--variant", "light:a:b=c=d:e"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("Selected: light a:b = c=d:e\n"));
}

TEST_F(SelectCommandTest, StateThatOnlyTheDocumentListsIsAccepted) {
  write("stale.xml",
        "<Variants><NodeVariant name=\"Roof\" base=\"Roof\"><State name=\"Gone\"/></NodeVariant>"
        "</Variants>");
  const CliResult result = run({"select", "car.gltf", "stale.xml", "--variant", "node:Roof=Gone"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "kuvariants: error: Nodevariant Roof does not have a child called Gone\n");
}

TEST_F(SelectCommandTest, UnknownStateOfASetIsTheSetsAffair) {
  write("stale.xml",
        "<Variants><VariantSet name=\"S\"><NodeVariantRef ref=\"Gone\" state=\"Open\"/>"
        "</VariantSet></Variants>");
  EXPECT_EQ(run({"select", "car.gltf", "stale.xml", "S"}).code, 0);
}

TEST_F(SelectCommandTest, SavedSceneStandsInTheSelectedState) {
  const CliResult result = select({"Summer", "--save-scene", "summer.gltf"});
  ASSERT_EQ(result.code, 0) << result.err;
  const CliResult again =
      run({"select", "summer.gltf", "car.xml", "--variant", "node:Roof=Open", "--json"});
  EXPECT_EQ(statesOf(again), normalised(R"({
    "node": {"Roof": "Open", "Leaves": "!Enable"}, "material": {"Paint": "Red"},
    "transform": {"Doors": "Wide"}, "light": {"Sun": "!Disable"},
    "overlay": {"Title": "Deutsch"}})"));
}

TEST_F(SelectCommandTest, SceneMayBeSavedInThePlaceOfTheInput) {
  ASSERT_EQ(select({"Summer", "--save-scene", "car.gltf"}).code, 0);
  EXPECT_THAT(run({"scene", "car.gltf"}).out, HasSubstr("Roof  Switch: Open\n"));
}

TEST_F(SelectCommandTest, HostileNamesAreEscaped) {
  write("odd.xml",
        "<Variants><VariantSet name=\"a&#10;&quot;&#x9b;31m\"/><LightVariant name=\"l&#9;\" "
        "base=\"Sun\"/></Variants>");
  const CliResult result =
      run({"select", "car.gltf", "odd.xml", QString::fromUtf8("a\n\"\u009b31m")});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(linesOf(result.out)[0], "Selected: a\\n\\\"\\u009b31m");
  EXPECT_THAT(result.out, HasSubstr("  light l\\t: !Enable\n"));
}

}  // namespace
