// What it costs to select a set of N node states in a scene of M nodes, beside a floor: the same
// messages over the same bus, N hash look-ups by name and N stores. And beside a plain walk of the
// tree per name, which is what a viewer does that keeps no index.

#include <benchmark/benchmark.h>

#include <QHash>
#include <memory>
#include <string>
#include <vector>

#include "benchMain.h"
#include "host/kernel/kuController.h"
#include "host/kernel/kuScenegraph.h"
#include "host/osg/EditCP.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

using namespace kuStandalone;

namespace {

constexpr int childrenOfASwitch = 3;
constexpr int switchesOfAGroup = 64;

osg::NodePtr makeSwitch(int number) {
  const std::string name = "Switch " + std::to_string(number);
  const osg::NodePtr node = SceneNode::create(name, SwitchCore::create(0));
  for (int i = 0; i < childrenOfASwitch; ++i) {
    const std::string child = name + " child " + std::to_string(i);
    SceneNode::of(node).addChild(SceneNode::create(child, GroupCore::create()));
  }
  return node;
}

/** A scene of about that many nodes: groups of switches, each with three children of own names. */
std::vector<std::string> buildScene(int nodes) {
  Scene::install(std::make_unique<Scene>());
  const int switches = nodes / (childrenOfASwitch + 1);
  std::vector<std::string> names;
  osg::NodePtr group;
  for (int i = 0; i < switches; ++i) {
    if (i % switchesOfAGroup == 0) {
      group =
          SceneNode::create("Group " + std::to_string(i / switchesOfAGroup), GroupCore::create());
      SceneNode::of(Scene::the().nodes.root).addChild(group);
    }
    const osg::NodePtr node = makeSwitch(i);
    names.push_back(SceneNode::of(node).name());
    SceneNode::of(group).addChild(node);
  }
  return names;
}

/** Every k-th switch of the scene, so that the choice is spread over all of it. */
std::vector<std::string> spread(const std::vector<std::string>& names, std::size_t count) {
  std::vector<std::string> chosen;
  for (std::size_t i = 0; i < count; ++i)
    chosen.push_back(names[i * names.size() / count]);
  return chosen;
}

/** The present scene with variants and a set for some of its switches; made once per size. */
struct Workload {
  int states = 0;
  int nodes = 0;
  std::vector<std::string> switches;
  kuVariantSet* set = nullptr;
  std::vector<kuVariant*> variants;
};

Workload& workload(int states, int nodes) {
  static Workload present;
  if (present.states == states && present.nodes == nodes) return present;
  kuController::call("clearAllVariants", 1);
  if (present.nodes != nodes) present.switches = buildScene(nodes);
  present.states = states;
  present.nodes = nodes;
  present.set = kuVariants::createVariantSet("Set", false, nullptr);
  present.variants.clear();
  for (const std::string& name : spread(present.switches, static_cast<std::size_t>(states))) {
    const kuNodePtr node = kuScenegraph::findNode(name.c_str());
    present.variants.push_back(kuVariants::createNodeVariant(node.getNode(), false));
    present.set->addNodeVariant(QString::fromStdString(name),
                                QString::fromStdString(name + " child 1"));
  }
  return present;
}

void perState(benchmark::State& state, int states) {
  state.SetItemsProcessed(state.iterations() * states);
  state.counters["ns_per_state"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * states * 1e-9,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void select(benchmark::State& state) {
  const int states = static_cast<int>(state.range(0));
  Workload& work = workload(states, static_cast<int>(state.range(1)));
  for (auto _ : state)
    work.set->select(true, false, false);
  perState(state, states);
}

/** What one state puts into its messages. */
struct MessageContent {
  QString name;
  std::string variantName;
  std::vector<std::string> visible;
  std::vector<std::string> invisible;
  std::string parent;
  std::string path;
  kuVariant* variant = nullptr;
};

MessageContent contentOf(const std::string& name, kuVariant* variant) {
  const osg::NodePtr node = kuScenegraph::findNode(name.c_str()).getNode();
  MessageContent content;
  content.name = QString::fromStdString(name);
  content.variantName = name;
  content.visible = {name + " child 1"};
  content.invisible = {name + " child 0", name + " child 2"};
  content.parent = name;
  content.path = SceneNode::of(node->getParent()).name() + "|" + name + "|";
  content.variant = variant;
  return content;
}

void sendMessages(const MessageContent& content) {
  kuMessage changed;
  changed.set("variantName", content.variantName, true);
  changed.set("visible", content.visible, true);
  changed.set("invisible", content.invisible, true);
  changed.set("parent", content.parent, true);
  changed.set("path", content.path, true);
  kuController::call("variantsNodesChanged", changed, 1);
  kuMessage selected;
  selected.set("variant", static_cast<void*>(content.variant), true);
  kuController::call("nodeVariantSelected", selected, 1);
}

void hashEveryNode(const osg::NodePtr& node, QHash<QString, SceneNode*>& hash) {
  SceneNode& own = SceneNode::of(node);
  hash.insert(QString::fromStdString(own.name()), &own);
  for (const osg::NodePtr& child : own.children())
    hashEveryNode(child, hash);
}

void floorOfSelection(benchmark::State& state) {
  const int states = static_cast<int>(state.range(0));
  const Workload& work = workload(states, static_cast<int>(state.range(1)));
  QHash<QString, SceneNode*> nodes;
  nodes.reserve(static_cast<int>(state.range(1)));
  hashEveryNode(Scene::the().nodes.root, nodes);
  std::vector<MessageContent> contents;
  const std::vector<std::string> names = spread(work.switches, static_cast<std::size_t>(states));
  for (std::size_t i = 0; i < names.size(); ++i) {
    contents.push_back(contentOf(names[i], work.variants[i]));
  }
  for (auto _ : state) {
    for (const MessageContent& content : contents) {
      SwitchCore::of(nodes.value(content.name)->core()).choice = 1;
      sendMessages(content);
    }
  }
  perState(state, states);
}

const SceneNode* walkTo(const SceneNode& node, const std::string& name) {
  if (node.name() == name) return &node;
  for (const osg::NodePtr& child : node.children()) {
    if (const SceneNode* found = walkTo(SceneNode::of(child), name)) return found;
  }
  return nullptr;
}

void walkPerName(benchmark::State& state) {
  const int states = static_cast<int>(state.range(0));
  const Workload& work = workload(states, static_cast<int>(state.range(1)));
  const std::vector<std::string> names = spread(work.switches, static_cast<std::size_t>(states));
  for (auto _ : state) {
    for (const std::string& name : names) {
      SwitchCore::of(walkTo(SceneNode::of(Scene::the().nodes.root), name)->core()).choice = 1;
    }
  }
  perState(state, states);
}

/** Both sides of a ratio run behind one another on the same scene. */
bool registerAll() {
  for (const int nodes : {10000, 100000, 1000000}) {
    for (const int states : {10, 100, 1000, 10000}) {
      if (states > nodes / (childrenOfASwitch + 1)) continue;
      benchmark::RegisterBenchmark("floor", floorOfSelection)->Args({states, nodes});
      benchmark::RegisterBenchmark("select", select)->Args({states, nodes});
      if (states <= 10) {
        benchmark::RegisterBenchmark("walk", walkPerName)->Args({states, nodes});
      }
    }
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) { return benchMain(argc, argv, registerAll); }
