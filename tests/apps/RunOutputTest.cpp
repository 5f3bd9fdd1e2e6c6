#include "RunTest.h"

namespace {

/** What becomes of what a script has written but not flushed. */
class RunOutputTest : public RunTest {};

TEST_F(RunOutputTest, WritesFilesThatAScriptLeftOpen) {
  EXPECT_EQ(printed("import csv\n"
                    "text = open('text', 'w')\ntext.write('a')\n"
                    "table = csv.writer(open('table', 'w', newline=''))\ntable.writerow([1, 2])\n"
                    "raw = open('bytes', 'wb')\nraw.write(b'b')\n"
                    "both = open('both', 'w+b')\nboth.write(b'c')"),
            "");
  EXPECT_EQ(read("text") + read("table") + read("bytes") + read("both"), "a1,2\r\nbc");
}

TEST_F(RunOutputTest, WritesThemAlsoAfterAnError) {
  EXPECT_EQ(runScript("text = open('text', 'w')\ntext.write('a')\n1 / 0").code, 1);
  EXPECT_EQ(read("text"), "a");
}

struct StreamRow {
  const char* name;
  const char* script;
  const char* printed;
};

void PrintTo(const StreamRow& row, std::ostream* out) { *out << row.name; }

class ReplacedOutputTest : public RunTest, public ::testing::WithParamInterface<StreamRow> {};

TEST_P(ReplacedOutputTest, EndsAsWithPython) {
  EXPECT_EQ(printed(std::string("import io, sys\n").append(GetParam().script).c_str()),
            GetParam().printed);
}

const StreamRow streams[] = {
    {"Closed", "print(1)\nsys.stdout.close()", "1\n"},
    {"None", "print(1)\nsys.stdout = None\nprint(2)", "1\n"},
    {"Missing", "print(1)\ndel sys.stdout", "1\n"},
    {"Wrapped", "sys.stdout = io.TextIOWrapper(sys.stdout.buffer, 'latin-1')\nprint('\\xe4')",
     "\xE4\n"},
    {"Detached", "sys.stdout = io.TextIOWrapper(sys.stdout.detach(), 'latin-1')\nprint('\\xe4')",
     "\xE4\n"},
    {"LeftDetached", "print(1)\nsys.stdout.detach()", "1\n"},
    {"OfAClassOfItsOwn",
     "class Loud:\n    def write(self, text): sys.__stdout__.write(text.upper())\n"
     "sys.stdout = Loud()\nprint('a')",
     "A\n"},
    {"File", "sys.stdout = open('log', 'w')\nprint(1)\nsys.__stdout__.write('2')", "2"},
};

INSTANTIATE_TEST_SUITE_P(Streams, ReplacedOutputTest, ::testing::ValuesIn(streams),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
