// What it costs to optimise and to verify N variants and the sets over them in a scene of 100,000
// nodes: at two sizes, since the time per state has to be of the same order at both. What is left
// of growth are the caches, which the smaller size fits into.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <cstdio>
#include <memory>
#include <string>

#include "benchMain.h"
#include "document/kuVariantVerifier.h"
#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

constexpr int nodeCount = 100000;
constexpr int statesOfASet = 100;
/** How many sets name each variant. */
constexpr int setsOfAVariant = 10;

/** Sends standard output to nowhere as long as it lives. */
class SilentOutput {
 public:
  SilentOutput() : _former(dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
  }
  ~SilentOutput() {
    std::fflush(stdout);
    dup2(_former, STDOUT_FILENO);
    close(_former);
  }
  SilentOutput(const SilentOutput&) = delete;
  SilentOutput& operator=(const SilentOutput&) = delete;

 private:
  int _former;
};

osg::NodePtr addNode(const osg::NodePtr& parent, const std::string& name,
                     const osg::NodeCorePtr& core) {
  osg::NodePtr node = SceneNode::create(name, core);
  SceneNode::of(parent).addChild(node);
  return node;
}

std::string nameOf(int variant) { return "Variant " + std::to_string(variant); }

/** Of four variants two are of nodes, one of a material and one of a light. */
void makeVariant(int number) {
  const std::string name = nameOf(number);
  const osg::NodePtr& root = Scene::the().nodes.root;
  if (number % 4 < 2) {
    const osg::NodePtr node = addNode(root, name, SwitchCore::create(0));
    addNode(node, "Open", GroupCore::create());
    addNode(node, "Shut", GroupCore::create());
    kuVariants::createNodeVariant(node, false);
  } else if (number % 4 == 2) {
    const osg::MaterialPtr material = PresetMaterial::create(name, {"Open", "Shut"}, 0);
    ScenePool::of(Scene::the().pool).enter(material);
    kuVariants::createMaterialVariant(material, false);
  } else {
    kuVariants::createLightVariant(addNode(root, name, LightCore::create(true)), false);
  }
}

void makeVariants(int count) {
  static int present = 0;
  if (present == count) return;
  kuController::call("clearAllVariants", 1);
  Scene::install(std::make_unique<Scene>());
  for (int i = 0; i < count; ++i)
    makeVariant(i);
  for (int i = 2 * count; i < nodeCount; ++i)
    addNode(Scene::the().nodes.root, "Node " + std::to_string(i), GroupCore::create());
  present = count;
}

/** Every second one of a kind asks for a state that there is not. */
void addState(kuVariantSet& set, int variant) {
  const QString name = QString::fromStdString(nameOf(variant));
  const QString state = variant / 4 % 2 ? QStringLiteral("Open") : QStringLiteral("Lost");
  if (variant % 4 < 2) {
    set.addNodeVariant(name, state);
  } else if (variant % 4 == 2) {
    set.addMaterialVariant(name, state);
  } else {
    set.addLightVariant(name, state);
  }
}

void makeSets(int variants) {
  kuVariants::clearVariantSets();
  const int sets = variants * setsOfAVariant / statesOfASet;
  for (int i = 0; i < sets; ++i) {
    kuVariantSet* set = kuVariants::createVariantSet(
        QString::fromStdString("Set " + std::to_string(i)), false, nullptr);
    for (int state = 0; state < statesOfASet; ++state)
      addState(*set, (i * statesOfASet + state) % variants);
  }
}

void perState(benchmark::State& state, int states) {
  state.counters["ns_per_state"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * states * 1e-9,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void optimise(benchmark::State& state) {
  const int variants = static_cast<int>(state.range(0));
  makeVariants(variants);
  for (auto _ : state) {
    state.PauseTiming();
    makeSets(variants);
    state.ResumeTiming();
    kuVariants::optimizeVariantSets();
  }
  perState(state, variants * setsOfAVariant);
}

/** One set that names all variants. */
void optimiseOneSet(benchmark::State& state) {
  const int variants = static_cast<int>(state.range(0));
  makeVariants(variants);
  kuVariantSet full;
  for (int i = 0; i < variants; ++i)
    addState(full, i);
  for (auto _ : state) {
    state.PauseTiming();
    kuVariantSet set = full;
    state.ResumeTiming();
    set.optimize();
  }
  perState(state, variants);
}

void verify(benchmark::State& state) {
  const int variants = static_cast<int>(state.range(0));
  makeVariants(variants);
  makeSets(variants);
  const QTemporaryDir directory;
  const SilentOutput silent;
  for (auto _ : state) {
    if (!kuVariantVerifier().verify(directory.filePath("report.csv")))
      state.SkipWithError("the report was not written");
  }
  perState(state, variants * setsOfAVariant);
}

bool registerAll() {
  for (const int variants : {1000, 10000}) {
    benchmark::RegisterBenchmark("optimise", optimise)->Arg(variants)->Iterations(5);
    benchmark::RegisterBenchmark("optimiseOneSet", optimiseOneSet)->Arg(variants)->Iterations(5);
    benchmark::RegisterBenchmark("verify", verify)->Arg(variants)->Iterations(5);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) { return benchMain(argc, argv, registerAll); }
