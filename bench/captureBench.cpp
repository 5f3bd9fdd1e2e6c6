// What it costs to capture a scene of N nodes, beside a bare walk that pushes a name and a state
// for each node and fills a hash of paths; what inactive nodes cost whose namesakes have to be
// looked for; a second capture where 100 sets remember 10,000 materials; and a third one, where the
// second has made switch materials.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "benchMain.h"
#include "host/osg/EditCP.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

constexpr int materialCount = 100;
constexpr int nodesOfAPart = 10;

std::vector<osg::MaterialPtr> materials;

osg::NodePtr addNode(const osg::NodePtr& parent, const std::string& name,
                     const osg::NodeCorePtr& core) {
  osg::NodePtr node = SceneNode::create(name, core);
  SceneNode::of(parent).addChild(node);
  return node;
}

void addGeometry(const osg::NodePtr& parent, const std::string& name, int number) {
  addNode(parent, name, GeometryCore::create(materials[std::size_t(number % materialCount)]));
}

/** Ten nodes: two groups, a switch over two geometries, a transform with one, a light, and two
 * geometries more. */
void addPart(const osg::NodePtr& parent, int number) {
  const std::string of = " " + std::to_string(number);
  const osg::NodePtr part = addNode(parent, "Part" + of, GroupCore::create());
  const osg::NodePtr choice = addNode(part, "Choice" + of, SwitchCore::create(number % 2));
  addGeometry(choice, "First" + of, number);
  addGeometry(choice, "Second" + of, number + 1);
  const osg::NodePtr door =
      addNode(part, "Door" + of,
              TransformSwitchCore::create({{"Open", Transform()}, {"Shut", Transform()}}, 0, 0));
  addGeometry(door, "Panel" + of, number + 2);
  addNode(part, "Lamp" + of, LightCore::create(true));
  const osg::NodePtr rest = addNode(part, "Rest" + of, GroupCore::create());
  addGeometry(rest, "Left" + of, number + 3);
  addGeometry(rest, "Right" + of, number + 4);
}

void beginScene() {
  kuController::call("clearAllVariants", 1);
  materials.clear();
  Scene::install(std::make_unique<Scene>());
  for (int i = 0; i < materialCount; ++i) {
    materials.push_back(PlainMaterial::create("Material " + std::to_string(i)));
    ScenePool::of(Scene::the().pool).enter(materials.back());
  }
}

/** A scene of that many nodes, in groups of a hundred parts. */
void makeScene(int nodes) {
  static int present = 0;
  if (present == nodes) return;
  present = nodes;
  beginScene();
  osg::NodePtr group;
  for (int part = 0; part < nodes / nodesOfAPart; ++part) {
    if (part % 100 == 0) {
      group = addNode(Scene::the().nodes.root, "Group " + std::to_string(part / 100),
                      GroupCore::create());
    }
    addPart(group, part);
  }
}

/** 100,000 nodes, the first of them inactive. */
void makeSceneWithInactive(int inactive) {
  makeScene(0);
  beginScene();
  for (int i = 0; i < 100000; ++i) {
    const osg::NodePtr node =
        addNode(Scene::the().nodes.root, "Node " + std::to_string(i), GroupCore::create());
    if (i < inactive) SceneNode::of(node).setActiveFlag(false);
  }
}

void capture(kuVariantSet* set) {
  kuVariants::captureVariantsFromRootNodes(set, {Scene::the().nodes.root}, true, true, true, true,
                                           false, true, true, true, false, true);
}

kuVariantSet* newSet(const QString& name) {
  return kuVariants::createVariantSet(name, false, nullptr);
}

struct BareResult {
  std::vector<std::pair<QString, QString>> states;
  QHash<QString, osg::NodePtr> paths;
};

void walkBare(const osg::NodePtr& node, const QString& path, BareResult& result) {
  const QString name = QString::fromUtf8(kuNodeUtils::getName(node));
  const QString own = path.isEmpty() ? name : path + '/' + name;
  result.states.emplace_back(
      name, node->getActive() ? QStringLiteral("!Enable") : QStringLiteral("!Disable"));
  result.paths.insert(own, node);
  for (const osg::NodePtr& child : SceneNode::of(node).children())
    walkBare(child, own, result);
}

void perNode(benchmark::State& state, double nodes) {
  state.counters["ns_per_node"] = benchmark::Counter(
      nodes * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void bareWalk(benchmark::State& state) {
  makeScene(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    BareResult result;
    walkBare(Scene::the().nodes.root, QString(), result);
    benchmark::DoNotOptimize(result.paths.size());
  }
  perNode(state, static_cast<double>(state.range(0)));
}

/** What the rule that events are handled at every node costs alone. */
void eventsAlone(benchmark::State& state) {
  const auto nodes = state.range(0);
  for (auto _ : state) {
    for (auto node = nodes; node > 0; --node)
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  perNode(state, static_cast<double>(nodes));
}

void captureScene(benchmark::State& state) {
  makeScene(static_cast<int>(state.range(0)));
  kuController::call("clearAllVariants", 1);
  kuVariantSet* set = newSet("Captured");
  for (auto _ : state)
    capture(set);
  perNode(state, static_cast<double>(state.range(0)));
}

void captureInactive(benchmark::State& state) {
  makeSceneWithInactive(static_cast<int>(state.range(0)));
  kuVariantSet* set = newSet("Captured");
  for (auto _ : state)
    capture(set);
  perNode(state, 100000);
}

constexpr int rememberedNodes = 10000;

/** Gives the first nodes other materials: every node's is a number of materials behind its first.
 */
void changeMaterials(int changed, int behind) {
  for (int i = 0; i < changed; ++i) {
    const osg::NodePtr node = SceneNode::of(Scene::the().nodes.root).children()[std::size_t(i)];
    kuNodeUtils::setMaterial(node, materials[std::size_t((i + behind) % materialCount)], false,
                             false);
  }
}

/** @p changed of the nodes have another material than the sets remember. */
void makeSets(int sets, int changed) {
  makeScene(0);
  beginScene();
  std::vector<osg::NodePtr> nodes;
  for (int i = 0; i < rememberedNodes; ++i)
    addGeometry(Scene::the().nodes.root, "Node " + std::to_string(i), i);
  kuVariantSet* first = newSet("Set 0");
  capture(first);
  for (int i = 1; i < sets; ++i) {
    newSet("Set " + QString::number(i))
        ->setMaterialSnapshots(std::map<QString, QString>(first->getMaterialSnapshots()));
  }
  changeMaterials(changed, 7);
}

void captureAgain(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    makeSets(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    kuVariantSet* set = newSet("Again");
    state.ResumeTiming();
    capture(set);
  }
  perNode(state, rememberedNodes);
}

/** The sets of two captures remember switch materials for the nodes that change once more. */
void captureThird(benchmark::State& state) {
  const int changed = static_cast<int>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    makeSets(1, changed);
    capture(newSet("Again"));
    changeMaterials(changed, 13);
    kuVariantSet* set = newSet("Third");
    state.ResumeTiming();
    capture(set);
  }
  perNode(state, rememberedNodes);
}

void addBenchmarks() {
  for (const int nodes : {10000, 100000, 1000000}) {
    for (const auto& [name, function] :
         {std::make_pair("bare", bareWalk), std::make_pair("events", eventsAlone),
          std::make_pair("capture", captureScene)})
      benchmark::RegisterBenchmark(name, function)->Arg(nodes)->Unit(benchmark::kMillisecond);
  }
  for (const int inactive : {0, 1000}) {
    benchmark::RegisterBenchmark("inactive", captureInactive)
        ->Arg(inactive)
        ->Unit(benchmark::kMillisecond);
  }
  for (const auto& [sets, changed] :
       {std::make_pair(1, 0), {100, 0}, {1, 100}, {100, 100}, {1, rememberedNodes}}) {
    benchmark::RegisterBenchmark("again", captureAgain)
        ->Args({sets, changed})
        ->Unit(benchmark::kMillisecond);
  }
  for (const int changed : {100, 1000, rememberedNodes}) {
    benchmark::RegisterBenchmark("third", captureThird)
        ->Arg(changed)
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace

int main(int argc, char** argv) {
  return benchMain(argc, argv, [] {
    addBenchmarks();
    return true;
  });
}
