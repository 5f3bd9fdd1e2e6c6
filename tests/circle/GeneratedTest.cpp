#include <map>
#include <memory>
#include <random>

#include "circle/CircleTest.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"

// Random scenes, arranged at random between captures. What each rule of the captures leaves out is
// computed; all else comes back.

using namespace kuStandalone;

namespace {

using ::testing::IsEmpty;

/** What a walk over the scene knows of a node. */
struct NodeFacts {
  /** Whether all above it is active: a capture and a restore come to it then, and else not. */
  bool isReached = false;
  bool isActive = false;
  bool isLight = false;
  bool bearsSwitch = false;
};

using FactsByPath = std::map<std::string, NodeFacts>;

void collect(FactsByPath& facts, const osg::NodePtr& handle, const std::string& above,
             bool isReached) {
  const SceneNode& node = SceneNode::of(handle);
  const std::string path = above + node.name();
  const osg::MaterialPtr material = kuNodeUtils::getMaterial(handle);
  facts[path] = {isReached, node.active(), osg::UberLightPtr::dcast(node.core()) != osg::NullFC,
                 osg::SwitchMaterialPtr::dcast(material) != osg::NullFC};
  for (const osg::NodePtr& child : node.children())
    collect(facts, child, path + '/', isReached && node.active());
}

FactsByPath factsOf(const Scene& scene) {
  FactsByPath facts;
  for (const osg::NodePtr& child : SceneNode::of(scene.nodes.root).children())
    collect(facts, child, {}, true);
  return facts;
}

/** How a scene stood: what it showed, and what decides which of that can come back. */
struct Stand {
  SceneLook look;
  FactsByPath facts;
};

Stand standOf(const Scene& scene) { return {lookAt(scene), factsOf(scene)}; }

constexpr const char* anything = "?";

std::string materialBack(const SeenThing& seen, const NodeFacts& then, const SeenThing& own,
                         const NodeFacts& now) {
  if (!then.isReached || !then.isActive) return anything;
  return (now.isReached && now.isActive) || now.bearsSwitch ? seen.value : own.value;
}

std::string choiceBack(const SeenThing& seen, const NodeFacts& then, const SeenThing& own) {
  if (!then.isReached || !then.isActive || seen.value == "beyond") return own.value;
  return seen.value == "all" ? "none" : seen.value;
}

/** @param seen when it was captured, @param own in the scene that the set is selected in. */
std::string valueBack(const SeenThing& seen, const NodeFacts& then, const SeenThing& own,
                      const NodeFacts& now) {
  if (seen.what == "material") return materialBack(seen, then, own, now);
  if (seen.what == "choice") return choiceBack(seen, then, own);
  if (seen.what == "active") {
    return then.isActive || !then.isReached || then.isLight ? "yes" : "no";
  }
  if (seen.what == "light" && then.isReached) return then.isActive ? seen.value : "off";
  if (seen.what == "state" && then.isReached) return seen.value;
  if (seen.what == "ignored" && then.isReached && then.isActive) return seen.value;
  return own.value;
}

class Generated : public CircleTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  using Nodes = std::vector<osg::NodePtr>;

  unsigned upTo(unsigned most) { return std::uniform_int_distribution<unsigned>(0, most)(_random); }
  bool oneIn(unsigned count) { return upTo(count - 1) == 0; }
  std::string newName() { return "N" + std::to_string(++_count); }

  void build() {
    for (const char* name : {"Red", "Blue", "Green"})
      scene.material(name);
    scene.switchMaterial("Paint", {material("Red"), material("Blue"), material("Green")}, 0);
    for (int i = 0; i < 4; ++i)
      addNode(scene.root(), 3);
  }

  void addNode(const osg::NodePtr& parent, unsigned depth) {
    const osg::NodePtr made = makeNode(parent, upTo(depth > 0 ? 6 : 2));
    _nodes.push_back(made);
    if (depth == 0 || !osg::GroupPtr::dcast(made->getCore())) return;
    for (unsigned children = upTo(2); children > 0; --children)
      addNode(made, depth - 1);
  }

  osg::NodePtr makeNode(const osg::NodePtr& parent, unsigned kind) {
    switch (kind) {
      case 0:
        return scene.light(newName(), oneIn(2), parent);
      case 1:
        return scene.geometry(newName(), material("Paint"), parent);
      case 2:
        return plainBearer(scene.geometry(newName(), material("Red"), parent));
      case 3:
        return plainBearer(scene.materialGroup(newName(), material("Blue"), parent));
      case 4:
        return scene.switchNode(newName(), 0, {newName(), newName()}, parent);
      case 5:
        return scene.transforms(newName(), {"One", "Two", "Three"}, 0, 0, parent);
      default:
        return scene.group(newName(), parent);
    }
  }

  osg::NodePtr plainBearer(const osg::NodePtr& made) {
    _plainBearers.push_back(SceneNode::of(made).name());
    return made;
  }

  void arrange() {
    for (const osg::NodePtr& each : _nodes)
      arrange(each);
    for (const std::string& bearer : _plainBearers) {
      const char* const worn[] = {"Red", "Blue", "Green"};
      if (oneIn(2)) bear(bearer, worn[upTo(2)]);
    }
    showInSwitch("Paint", upTo(2));
  }

  void arrange(const osg::NodePtr& each) {
    const std::string name = SceneNode::of(each).name();
    setActive(each, !oneIn(6));
    const osg::NodeCorePtr core = each->getCore();
    if (osg::SwitchPtr::dcast(core)) setChoice(each, int(upTo(each->getNChildren() + 2)) - 2);
    if (osg::SwitchComponentTransformPtr::dcast(core)) setState(name, upTo(2));
    if (osg::UberLightPtr::dcast(core)) setLight(name, oneIn(2));
    if (osg::MaterialGroupPtr::dcast(core)) setIgnored(name, oneIn(2));
  }

  /** What is different from what the rules promise. */
  Texts departures(const QString& set, const Stand& captured, const char* file) {
    const Stand own = standOf(*sceneOf(file));
    bringBack(set, file);
    SceneLook promised = captured.look, back = lookAt(Scene::the());
    EXPECT_EQ(promised.size(), back.size());
    for (std::size_t i = 0; i < back.size(); ++i) {
      const std::string& path = promised[i].path;
      if (path == "scene") continue;
      promised[i].value =
          valueBack(captured.look[i], captured.facts.at(path), own.look[i], own.facts.at(path));
      if (promised[i].value == anything) back[i].value = anything;
    }
    return differences(promised, back);
  }

 private:
  std::mt19937 _random{GetParam()};
  int _count = 0;
  Nodes _nodes;
  std::vector<std::string> _plainBearers;
};

TEST_P(Generated, SetsComeBackButForWhatTheRulesLeaveOut) {
  build();
  if (oneIn(2)) arrange();
  begin();
  const QStringList sets{"A", "B", "C"};
  std::vector<Stand> captured;
  for (const QString& set : sets) {
    arrange();
    captured.push_back(standOf(Scene::the()));
    EXPECT_THAT(capture(set), IsEmpty());
  }
  for (int i = 0; i < sets.size(); ++i) {
    for (const char* file : {"original.gltf", "captured.gltf"})
      EXPECT_THAT(departures(sets[i], captured[std::size_t(i)], file), IsEmpty())
          << sets[i].toStdString() << " in " << file;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Generated, ::testing::Range(1u, 13u));

}  // namespace
