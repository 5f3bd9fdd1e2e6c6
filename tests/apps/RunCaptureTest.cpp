#include "RunTest.h"
#include "Terminal.h"

using ::testing::EndsWith;
using ::testing::HasSubstr;

namespace {

/** Captures in scripts, where two nodes share a name and the library asks. */
class RunCaptureTest : public RunTest {
 protected:
  RunCaptureTest() {
    write("twins.gltf", R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0, 1]}],
      "nodes": [{"name": "Door"}, {"name": "Door"}]})");
    write("script.py", "createAndCaptureVariantSet('New', 'Looks')\nprint(variants.sets()[3:])");
    write("own.xml",
          "<Variants><VariantSet name=\"S\"><Script>createAndCaptureVariantSet('New', 'Looks')"
          "</Script></VariantSet></Variants>");
  }
};

const char* const refusal =
    "kuvariants: warning: a script's capture did nothing: nodes share a name, and the question "
    "whether to rename them was answered \"no\"\n";

TEST_F(RunCaptureTest, DoesNothingWithoutATerminalToAskOn) {
  const CliResult result = run({"run", "twins.gltf", "car.xml", "script.py"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "[]\n");
  EXPECT_THAT(result.err, HasSubstr(refusal));
}

TEST_F(RunCaptureTest, AsksOnTheTerminal) {
  const QStringList arguments{"run", "twins.gltf", "car.xml", "script.py"};
  EXPECT_THAT(runOnTerminal(folder.path(), arguments, "y\n").screen, EndsWith("\r\x1b[K['New']\n"));
  EXPECT_THAT(runOnTerminal(folder.path(), arguments, "n\n").screen, HasSubstr("\n[]\n"));
}

TEST_F(RunCaptureTest, OfASetsScriptDoesNotWaitForAnAnswerEither) {
  const CliResult selected = run({"--allow-scripts", "select", "twins.gltf", "own.xml", "S"});
  EXPECT_EQ(selected.code, 0);
  EXPECT_THAT(selected.err, HasSubstr(refusal));
  const CliResult rendered = run({"--allow-scripts", "render", "twins.gltf", "own.xml", "-o",
                                  "pictures", "--size", "8x8", "--samples", "1"});
  EXPECT_EQ(rendered.code, 0);
  EXPECT_THAT(rendered.err, HasSubstr(refusal));
}

}  // namespace
