#include <signal.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "JoinTest.h"
#include "Terminal.h"

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

namespace {

using Lines = std::vector<std::string>;

/** The events of JSON lines. */
Lines eventsOf(const std::string& out) {
  Lines events;
  for (const std::string& line : linesOf(out)) {
    const auto json = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
    events.push_back(json["event"].toString("no JSON").toStdString());
  }
  return events;
}

/** Each command has an id of its own; without it the lines are always the same. */
std::string withoutId(const std::string& line) {
  static const QRegularExpression id(R"("id": "[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}", )");
  return normalised(QString::fromStdString(line).remove(id).toStdString());
}

}  // namespace

TEST_F(JoinTest, SetThatOneSelectsIsSelectedByAll) {
  JoinedProcess& ada = join("Ada");
  JoinedProcess& ben = join("Ben");
  ada.type("select Winter");
  EXPECT_TRUE(ben.waitFor("Ada selected Winter"));
  EXPECT_TRUE(ben.waitFor("  material Paint: Red -> Blue"));
  ben.type("select Summer");
  EXPECT_TRUE(ada.waitFor("Ben selected Summer"));
  EXPECT_TRUE(ada.waitFor("  node Roof: Closed -> Open"));
  ada.closeInput();
  const std::string out = ada.finish().out;
  EXPECT_THAT(out, HasSubstr("You selected Winter\n  material Paint: Red -> Blue\n"));
  EXPECT_THAT(out, HasSubstr("Ben selected Summer\n"
                             "  node Roof: Closed -> Open\n"
                             "  transform Doors: Shut -> Wide\n"
                             "  light Sun: !Enable -> !Disable\n"
                             "  overlay Title: !None -> Deutsch\n"
                             "  viewpoint: Front -> Rear\n"
                             "  animation Wave: started\n"));
}

TEST_F(JoinTest, VariantThatOneStepsStandsInTheSameStateAtAll) {
  JoinedProcess& ada = join("Ada");
  JoinedProcess& ben = join("Ben");
  for (int step = 1; step <= 3; ++step) {
    ada.type("variant material:Paint=!Next (Loop)");
    EXPECT_TRUE(ben.waitFor("Ada changed variants", step));
  }
  EXPECT_TRUE(ben.waitFor("  material Paint: Red -> Blue", 2));
  EXPECT_TRUE(ben.waitFor("  material Paint: Blue -> Red"));
  EXPECT_TRUE(ada.waitFor("You changed variants", 3));
}

TEST_F(JoinTest, NewcomerIsToldWhatHasChangedWhenItHasCaughtUp) {
  JoinedProcess& ada = join("Ada");
  ada.type("select Winter");
  ada.type("variant light:Sun=!Disable");
  EXPECT_TRUE(ada.waitFor("  light Sun: !Enable -> !Disable"));
  const CliResult ben = talkAs("Ben", "state\n");
  EXPECT_EQ(ben.code, 0);
  EXPECT_THAT(ben.out, HasSubstr(joined("Ben") + "\n  material Paint: Red -> Blue\n"
                                                 "  light Sun: !Enable -> !Disable\n"));
}

TEST_F(JoinTest, PartnersAreSeenComingAndGoing) {
  JoinedProcess& ada = join("Ada");
  JoinedProcess& ben = join("Ben");
  EXPECT_TRUE(ada.waitFor("Ben is here"));
  EXPECT_TRUE(ben.waitFor("Ada is here"));
  ada.type("partners");
  EXPECT_TRUE(ada.waitFor("  Ada (you)"));
  EXPECT_TRUE(ada.waitFor("  Ben"));
  ben.type("quit");
  EXPECT_TRUE(ada.waitFor("Ben has left"));
  EXPECT_EQ(ben.finish().code, 0);
}

TEST_F(JoinTest, LinesOfAPipeAreObeyedInTheirOrderUntilItsEnd) {
  const CliResult result = talk("state\nselect Winter\nvariant node:Roof=Open\n\n  state  ");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, joined("Ada") +
                            "\n"
                            "  node Roof: Closed\n"
                            "  node Leaves: !Enable\n"
                            "  material Paint: Red\n"
                            "  transform Doors: Shut\n"
                            "  light Sun: !Enable\n"
                            "  overlay Title: !None\n"
                            "  viewpoint: Front\n"
                            "You selected Winter\n"
                            "  material Paint: Red -> Blue\n"
                            "You changed variants\n"
                            "  node Roof: Closed -> Open\n"
                            "  node Roof: Open\n"
                            "  node Leaves: !Enable\n"
                            "  material Paint: Blue\n"
                            "  transform Doors: Shut\n"
                            "  light Sun: !Enable\n"
                            "  overlay Title: !None\n"
                            "  viewpoint: Front\n"
                            "Left review\n");
}

TEST_F(JoinTest, SelectionThatChangesNothingIsTold) {
  EXPECT_THAT(talk("select Winter\nselect Winter\n").out,
              HasSubstr("You selected Winter\n  nothing changed\n"));
}

TEST_F(JoinTest, SetThatIsNotSharedIsSelectedHereAlone) {
  write("car.xml", QByteArray::fromStdString(read("car.xml"))
                       .replace("<VariantSet name=\"Winter\"",
                                "<VariantSet name=\"Winter\" synccollaboration=\"false\""));
  JoinedProcess& ben = join("Ben");
  JoinedProcess& ada = join("Ada");
  ada.type("select Winter");
  EXPECT_TRUE(ada.waitFor("You selected Winter, here alone"));
  EXPECT_TRUE(ada.waitFor("  material Paint: Red -> Blue"));
  ada.type("variant light:Sun=!Disable");
  EXPECT_TRUE(ben.waitFor("  light Sun: !Enable -> !Disable"));
  ben.closeInput();
  EXPECT_THAT(ben.finish().out, ::testing::Not(HasSubstr("Paint")));
}

TEST_F(JoinTest, UnknownNamesAreToldWithTheNearestOnesAndItGoesOn) {
  const CliResult result = talk(
      "select Wintr\nvariant node:Rof=Open\nvariant node:Roof=Opne\nvariant nod:Roof=Open\n"
      "variant Roof\nselct Winter\nselect\nquit now\nselect Winter\n");
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(
      linesOf(result.err),
      ElementsAre(
          "kuvariants: unknown set: Wintr: there is none of that name; did you mean \"Winter\"?",
          "kuvariants: unknown variant: node:Rof: there is none of that name; did you mean "
          "\"Roof\"?",
          "kuvariants: unknown state: node:Roof=Opne: there is none of that name; did you mean "
          "\"Open\"?",
          "kuvariants: KIND is node, material, transform, light or overlay: nod:Roof=Open",
          "kuvariants: not of the form KIND:NAME=STATE: Roof",
          "kuvariants: there is no \"selct\"; did you mean select? (help tells what there is)",
          "kuvariants: type: select NAME", "kuvariants: type: quit"));
  EXPECT_THAT(result.out, HasSubstr("You selected Winter\n"));
}

TEST_F(JoinTest, LinesThatAreTooLongOrNoTextArePassedOver) {
  const QByteArray fits = "select " + QByteArray(4096 - 7, 'x');
  const CliResult result =
      talk(fits + '\n' + fits + "x\n" + QByteArray(1000000, 'y') + "\nselect \xff\nstate" +
           QByteArray(1, '\0') + "\nselect Winter\n" + QByteArray(5000, 'z'));
  EXPECT_EQ(result.code, 0);
  const Lines lines = linesOf(result.err);
  ASSERT_EQ(lines.size(), 6u) << result.err.substr(0, 2000);
  EXPECT_THAT(lines[0], HasSubstr("unknown set: xxx"));
  EXPECT_THAT(Lines(lines.begin() + 1, lines.end()),
              ElementsAre("kuvariants: the line is too long", "kuvariants: the line is too long",
                          "kuvariants: the line is not text", "kuvariants: the line is not text",
                          "kuvariants: the line is too long"));
  EXPECT_THAT(result.out, HasSubstr("You selected Winter\n"));
}

TEST_F(JoinTest, InputFromAFileIsObeyed) {
  write("lines.txt", "select Winter\nquit\nselect Summer\n");
  const CliResult result = runInShell("", arguments("Ada"), "<lines.txt");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out,
            joined("Ada") + "\nYou selected Winter\n  material Paint: Red -> Blue\nLeft review\n");
}

TEST_F(JoinTest, WaitLetsPartnersGoOn) {
  JoinedProcess& ada = join("Ada");
  const CliResult result = [&] {
    QProcess process;
    start(process, arguments("Ben"));
    process.write("select Summer\nwait 3\nstate\n");
    EXPECT_TRUE(process.waitForBytesWritten());
    process.closeWriteChannel();
    EXPECT_TRUE(ada.waitFor("Ben selected Summer"));
    ada.type("select Winter");
    return JoinedProcess(process).finish();
  }();
  EXPECT_THAT(result.out, AllOf(HasSubstr("Ada selected Winter\n"),
                                HasSubstr("\n  node Roof: Closed\n  node Leaves: !Enable\n"
                                          "  material Paint: Blue\n")));
}

TEST_F(JoinTest, WaitThatIsNoTimeIsTold) {
  EXPECT_THAT(linesOf(talk("wait long\nwait -1\nwait 86401\nwait nan\nwait 0\n").err),
              ElementsAreArray(Lines(4, "kuvariants: SECONDS is a number from 0 to 86400")));
}

TEST_F(JoinTest, HelpTellsEveryLineThatCanBeTyped) {
  EXPECT_THAT(talk("help\n").out, HasSubstr("  select NAME               selects a set\n"
                                            "  variant KIND:NAME=STATE   puts one variant into a "
                                            "state\n"
                                            "  state                     prints the present "
                                            "states\n"
                                            "  partners                  prints who is there\n"
                                            "  wait SECONDS              lets others go on, then "
                                            "reads on\n"
                                            "  help                      prints this\n"
                                            "  quit                      leaves the session\n"));
}

TEST_F(JoinTest, JsonIsOneObjectForEachThingThatHappens) {
  const CliResult result =
      talk("select Winter\nvariant light:Sun=!Disable\nselect Wintr\npartners\nstate\nhelp\n",
           {"--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(eventsOf(result.out), ElementsAre("joined", "selected", "selected", "fault",
                                                "partners", "state", "help", "left"));
  const Lines lines = linesOf(result.out);
  const std::string address = broker->address().toStdString();
  EXPECT_EQ(normalised(lines[0]),
            normalised(R"({"event": "joined", "session": "review", "broker": ")" + address +
                       R"(", "name": "Ada", "sets": [], "changed": [], "viewpoint": "Front",
                       "animations": []})"));
  EXPECT_EQ(withoutId(lines[1]),
            normalised(R"({"event": "selected", "by": "Ada", "own": true, "shared": true,
              "sent": true, "sequence": 1, "sets": ["Winter"], "changed": [{"kind": "material", "name": "Paint",
              "before": "Red", "after": "Blue"}], "viewpoint": "Front", "animations": []})"));
  EXPECT_EQ(withoutId(lines[2]),
            normalised(R"({"event": "selected", "by": "Ada", "own": true, "shared": true,
              "sent": true, "sequence": 2, "sets": [], "changed": [{"kind": "light", "name": "Sun",
              "before": "!Enable", "after": "!Disable"}], "viewpoint": "Front",
              "animations": []})"));
  EXPECT_EQ(normalised(lines[3]), normalised(R"({"event": "fault", "line": "select Wintr", "reason":
              "unknown set: Wintr: there is none of that name; did you mean \"Winter\"?"})"));
  EXPECT_EQ(normalised(lines[4]),
            normalised(R"({"event": "partners", "name": "Ada", "partners": []})"));
  EXPECT_EQ(
      normalised(lines[5]),
      normalised(R"({"event": "state", "states": {"node": {"Roof": "Closed", "Leaves": "!Enable"},
              "material": {"Paint": "Blue"}, "transform": {"Doors": "Shut"},
              "light": {"Sun": "!Disable"}, "overlay": {"Title": "!None"}},
              "viewpoint": "Front"})"));
  EXPECT_EQ(normalised(lines[7]), normalised(R"({"event": "left", "reason": "end of input"})"));
}

TEST_F(JoinTest, NamesOfPartnersCannotReachTheTerminalAsCommands) {
  JoinedProcess& ada = join("Ada");
  talkAs("B\x1b[31m\nen", "select Winter\n");
  EXPECT_TRUE(ada.waitFor("B?[31m?en selected Winter"));
}

TEST_F(JoinTest, ScriptsThatAreHeldBackAreTold) {
  JoinedProcess& ben = join("Ben");
  EXPECT_THAT(talk("select Scripted\n").err,
              HasSubstr("1 script was held back; --allow-scripts lets scripts run"));
  EXPECT_TRUE(ben.waitForDiagnostic("1 script was held back"));
}

TEST_F(JoinTest, PromptStandsOnATerminalBelowWhatHappens) {
  const TerminalResult result = runOnTerminal(folder.path(), arguments("Ada"),
                                              std::vector<Typing>{{"> ", "select Winter\nquit\n"}});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, HasSubstr(joined("Ada") + "\n> "));
  EXPECT_THAT(result.screen, HasSubstr("You selected Winter\n  material Paint: Red -> Blue\n> "));
  EXPECT_THAT(result.screen, HasSubstr("Left review\n"));
}

TEST_F(JoinTest, EndOfInputAtATerminalLeaves) {
  const TerminalResult result =
      runOnTerminal(folder.path(), arguments("Ada"), std::vector<Typing>{{"> ", "\x04"}});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.screen, HasSubstr("Left review\n"));
}

TEST_F(JoinTest, SignalLeavesTheSessionAndAnswersItsCode) {
  struct Row {
    int signal, code;
  };
  JoinedProcess& ben = join("Ben");
  int left = 0;
  for (const Row& row : {Row{SIGINT, 130}, Row{SIGTERM, 143}, Row{SIGHUP, 129}}) {
    SCOPED_TRACE(row.code);
    JoinedProcess& ada = join("Ada", {"--trace", "trace.txt"});
    ASSERT_TRUE(ben.waitFor("Ada is here", left + 1));
    ada.type("select Winter");
    ASSERT_TRUE(ada.waitFor("You selected Winter"));
    ada.signal(row.signal);
    const CliResult result = ada.finish();
    EXPECT_EQ(result.code, row.code);
    EXPECT_EQ(linesOf(result.out).back(), "Left review");
    EXPECT_TRUE(ben.waitFor("Ada has left", ++left));
    EXPECT_THAT(read("trace.txt"), HasSubstr("variantsSetSelected"));
  }
}
