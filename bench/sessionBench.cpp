// What a command of a live session costs, beside a bare publication that the same broker
// acknowledges: until the push returns, until the last partner has run it, how many go through in a
// second, and how long a selection is on its way.

#include <nats/nats.h>

#include <chrono>

#include "SessionMachines.h"
#include "benchMain.h"
#include "host/session/kuSession.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "session/kuSessionVariantSetCommand.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/session/Session.h"
#include "standalone/session/SessionCommand.h"
#include "standalone/session/SessionFrame.h"

using namespace kuStandalone;

namespace {

using Clock = std::chrono::steady_clock;

/** Commands that are pushed in a row where the throughput is measured. */
constexpr int commandsInARow = 1000;
constexpr int statesOfTheSet = 10;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/** A set that changes nothing, so that the way of a command is measured and not what it does. */
kuVariantSet* emptySet() { return kuVariants::createVariantSet("Empty", false, nullptr); }

kuVariantSet* setOfSwitches() {
  kuVariantSet* set = kuVariants::createVariantSet("Switches", false, nullptr);
  for (int i = 0; i < statesOfTheSet; ++i) {
    const std::string name = "Switch " + std::to_string(i);
    const osg::NodePtr node = SceneNode::create(name, SwitchCore::create(0));
    SceneNode::of(Scene::the().nodes.root).addChild(node);
    SceneNode::of(node).addChild(SceneNode::create("Open", GroupCore::create()));
    set->add(kuVariants::createNodeVariant(node, false), "Open");
  }
  return set;
}

QByteArray frameOf(kuVariantSet* set) {
  SessionFrame frame;
  frame.kind = SessionFrame::Kind::Command;
  frame.senderName = "Ada";
  frame.type = "SelectVariantSet";
  frame.payload = payloadOf(kuSessionVariantSetCommand(set, true, false));
  return writeFrame(frame);
}

/** A connection of the client library, with a stream, and nothing of ours. */
class BareStream {
 public:
  explicit BareStream(const QString& url) {
    natsConnection_ConnectTo(&_connection, url.toUtf8().constData());
    natsConnection_JetStream(&_context, _connection, nullptr);
    jsStreamConfig config;
    jsStreamConfig_Init(&config);
    const char* subjects[] = {"bare"};
    config.Name = "bare";
    config.Subjects = subjects;
    config.SubjectsLen = 1;
    config.MaxMsgsPerSubject = 1000;
    jsStreamInfo* info = nullptr;
    js_AddStream(&info, _context, &config, nullptr, nullptr);
    jsStreamInfo_Destroy(info);
  }
  ~BareStream() {
    jsCtx_Destroy(_context);
    natsConnection_Destroy(_connection);
  }
  BareStream(const BareStream&) = delete;
  BareStream& operator=(const BareStream&) = delete;

  bool publish(const QByteArray& bytes) {
    jsPubAck* acknowledgement = nullptr;
    const natsStatus status = js_Publish(&acknowledgement, _context, "bare", bytes.constData(),
                                         bytes.size(), nullptr, nullptr);
    jsPubAck_Destroy(acknowledgement);
    return status == NATS_OK;
  }

 private:
  natsConnection* _connection = nullptr;
  jsCtx* _context = nullptr;
};

void publish(benchmark::State& state, const QString& url, const QByteArray& frame) {
  BareStream stream(url);
  for (auto _ : state) {
    if (!stream.publish(frame)) state.SkipWithError("the broker does not acknowledge");
  }
}

std::unique_ptr<Session> joinAs(const QString& session, const QString& url) {
  SessionOptions options;
  options.url = url;
  options.session = session;
  options.partner = "Ada";
  std::unique_ptr<Session> joined = Session::join(options).session;
  while (joined && !joined->isJoinCompleted())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return joined;
}

/** One command at a time; the next when it has run at all partners. */
void push(benchmark::State& state, const QString& url, kuVariantSet* set) {
  const QString name = QString("push%1").arg(state.range(0));
  const auto session = joinAs(name, url);
  BenchPartners partners(int(state.range(0)), url, name);
  double untilAllRan = 0;
  for (auto _ : state) {
    const Clock::time_point start = Clock::now();
    set->select(true, false, false);
    state.SetIterationTime(secondsSince(start));
    if (!partners.waitForRuns(1)) state.SkipWithError("a partner is gone");
    untilAllRan += secondsSince(start);
  }
  state.counters["last_run_us"] =
      benchmark::Counter(untilAllRan * 1e6, benchmark::Counter::kAvgIterations);
}

/** Many in a row, until the last has run at all partners. */
void row(benchmark::State& state, const QString& url, kuVariantSet* set) {
  const QString name = QString("row%1").arg(state.range(0));
  const auto session = joinAs(name, url);
  BenchPartners partners(int(state.range(0)), url, name);
  for (auto _ : state) {
    for (int i = 0; i < commandsInARow; ++i)
      set->select(true, false, false);
    if (!partners.waitForRuns(commandsInARow)) state.SkipWithError("a partner is gone");
  }
  state.counters["commands_per_second"] =
      benchmark::Counter(double(state.iterations()) * commandsInARow, benchmark::Counter::kIsRate);
}

/** No time: how long a selection is on its way. */
void bytes(benchmark::State& state, int empty, int ofSwitches) {
  for (auto _ : state)
    benchmark::DoNotOptimize(empty);
  state.counters["empty"] = empty;
  state.counters["ten_states"] = ofSwitches;
}

bool registerAll(const QString& url) {
  if (url.isEmpty()) return false;
  kuVariantSet* set = emptySet();
  const QByteArray frame = frameOf(set);
  benchmark::RegisterBenchmark("publish", publish, url, frame)->UseRealTime();
  benchmark::RegisterBenchmark("push", push, url, set)
      ->Arg(0)
      ->Arg(1)
      ->Arg(3)
      ->Arg(8)
      ->UseManualTime();
  benchmark::RegisterBenchmark("row", row, url, set)->Arg(1)->Arg(3)->Arg(8)->UseRealTime();
  benchmark::RegisterBenchmark("bytes", bytes, frame.size(), frameOf(setOfSwitches()).size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && QByteArray(argv[1]) == "--partner") return benchPartner(argc, argv);
  const BenchBroker broker;
  return benchMain(argc, argv, [&] { return registerAll(broker.url()); });
}
