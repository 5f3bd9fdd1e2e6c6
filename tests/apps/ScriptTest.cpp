#include <QElapsedTimer>
#include <csignal>

#include "CliTest.h"

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class ScriptTest : public CliTest {};

TEST_F(ScriptTest, IsHeldBackUnlessAllowedAndTheRestOfTheSetActs) {
  const CliResult result = run({"select", "car.gltf", "car.xml", "Scripted"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.out, HasSubstr("node Roof: Closed -> Open\n"));
  EXPECT_THAT(result.out, HasSubstr("1 script was held back; --allow-scripts lets scripts run\n"));
  EXPECT_THAT(result.err, AllOf(HasSubstr("Scripted"), Not(HasSubstr("\nprinted by a script"))));
}

TEST_F(ScriptTest, HeldBackIsToldOnStandardErrorBesideJson) {
  const CliResult result = run({"select", "car.gltf", "car.xml", "Scripted", "--json"});
  EXPECT_EQ(normalised(result.out), normalised(R"({"selected": ["Scripted"], "states": {
              "node": {"Roof": "Open", "Leaves": "!Enable"}, "material": {"Paint": "Red"},
              "transform": {"Doors": "Shut"}, "light": {"Sun": "!Enable"},
              "overlay": {"Title": "!None"}}, "materials": [], "viewpoint": "Front", "animations": []})"));
  EXPECT_THAT(result.err, HasSubstr("kuvariants: 1 script was held back; --allow-scripts"));
}

TEST_F(ScriptTest, RunsWhereAllowedAndItsPrintsDoNotSpoilTheJson) {
  const CliResult result =
      run({"select", "car.gltf", "car.xml", "Scripted", "--json", "--allow-scripts"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(statesOf(result), HasSubstr("\"Roof\":\"Open\""));
  EXPECT_EQ(result.err, "printed by a script\n");
}

TEST_F(ScriptTest, ThatWritesToTheDescriptorItselfDoesNotSpoilTheJson) {
  write("raw.xml",
        "<Variants><VariantSet name=\"S\"><Script>import os\nos.write(1, b'raw\\n')\n"
        "os.system('echo child')</Script></VariantSet></Variants>");
  const CliResult result = run({"select", "car.gltf", "raw.xml", "S", "--json", "--allow-scripts"});
  EXPECT_EQ(result.code, 0);
  EXPECT_NE(normalised(result.out).substr(0, 7), "no JSON");
  EXPECT_THAT(result.err, AllOf(HasSubstr("raw\n"), HasSubstr("child\n")));
}

TEST_F(ScriptTest, CommandsOfADocumentRunWithoutPermission) {
  write("clip.xml",
        "<Variants><VariantSet name=\"S\"><Analyzer clipState=\"2\"/></VariantSet></Variants>");
  const CliResult result = run({"select", "car.gltf", "clip.xml", "S"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out, Not(HasSubstr("held back")));
}

TEST_F(ScriptTest, ThatNeverEndsIsInterrupted) {
  write("endless.xml",
        "<Variants><VariantSet name=\"S\"><Script>open('running', 'w').close()\nwhile True: pass"
        "</Script></VariantSet></Variants>");
  QProcess process;
  start(process, {"select", "car.gltf", "endless.xml", "S", "--allow-scripts", "--save-scene",
                  "saved.gltf"});
  QElapsedTimer waiting;
  waiting.start();
  while (!exists("running") && process.state() == QProcess::Running && waiting.elapsed() < 60000)
    process.waitForFinished(10);
  kill(static_cast<pid_t>(process.processId()), SIGINT);
  EXPECT_EQ(finish(process).code, 130);
  EXPECT_FALSE(exists("saved.gltf"));
}

}  // namespace
