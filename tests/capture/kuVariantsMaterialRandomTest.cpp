// Random scenes, captured four times with changes in between, held against a model of the rules.

#include <random>

#include "capture/MaterialCaptureTest.h"
#include "capture/MaterialModel.h"

using ::testing::Gt;

namespace {

class kuVariantsMaterialRandomTest : public MaterialCaptureTest {
 protected:
  void build(unsigned seed) {
    kuVariants::clearAll(_nothing);
    scene = SceneBuilder();
    _random.seed(seed);
    model = MaterialModel();
    _materials.clear();
    _nodes.clear();
    addMaterials();
    addNodes();
  }

  void captureBoth(const std::string& name) {
    capture(name.c_str());
    model.capture(name);
    for (std::size_t index = _materials.size(); index < model.materials.size(); ++index)
      _materials.emplace_back(findSwitch(model.materials[index].name.c_str()));
  }

  /** What the user does between captures. */
  void change() {
    for (std::size_t node = 0; node < _nodes.size(); ++node) {
      if (upTo(3) == 0) give(node, upTo(int(_materials.size()) - 1));
    }
    for (std::size_t index = 0; index < _materials.size(); ++index) {
      const auto material = osg::SwitchMaterialPtr::dcast(_materials[index]);
      if (!material || upTo(2) != 0) continue;
      model.materials[index].choice = unsigned(upTo(4));
      choose(material, model.materials[index].choice);
    }
  }

  MaterialModel model;

 private:
  int upTo(int most) { return int(_random() % unsigned(most + 1)); }

  void addMaterials() {
    for (int left = 3 + upTo(3); left > 0; --left)
      addPlain("M" + std::to_string(left));
    addPlain("M1");  // a second one of that name
    for (int left = 1 + upTo(1); left > 0; --left)
      addShared("Shared" + std::to_string(left), someEntries());
    const std::vector<int> last = model.materials.back().entries;
    addShared("Twin", last);
  }
  void addPlain(const std::string& name) {
    _materials.push_back(scene.material(name));
    model.materials.push_back({name, false, {}, 0});
  }
  std::vector<int> someEntries() {
    std::vector<int> entries;
    for (int left = upTo(3); left > 0; --left)
      entries.push_back(upTo(3));  // a plain one: those come first
    return entries;
  }
  void addShared(const std::string& name, const std::vector<int>& entries) {
    std::vector<osg::MaterialPtr> materials;
    for (const int entry : entries)
      materials.push_back(_materials[std::size_t(entry)]);
    _materials.emplace_back(scene.switchMaterial(name, materials, 0));
    model.materials.push_back({name, true, entries, 0});
  }

  void addNodes() {
    for (const char* name : {"Left", "Right", "Middle"}) {
      const osg::NodePtr group = scene.group(name);
      for (int left = 4 + upTo(9); left > 0; --left)
        addNode(name, "N" + std::to_string(upTo(30)), group);
    }
  }
  /** Names may be drawn twice; the nodes then share a path. */
  void addNode(const std::string& group, const std::string& name, const osg::NodePtr& parent) {
    const int material = upTo(int(_materials.size()) - 1);
    const osg::MaterialPtr borne = _materials[std::size_t(material)];
    _nodes.push_back(upTo(3) == 0 ? scene.materialGroup(name, borne, parent)
                                  : scene.geometry(name, borne, parent));
    model.nodes.push_back({group + '/' + name, material});
  }
  void give(std::size_t node, int material) {
    bear(_nodes[node], _materials[std::size_t(material)]);
    model.nodes[node].material = material;
  }

  std::mt19937 _random;
  kuMessage _nothing;
  std::vector<osg::MaterialPtr> _materials;
  std::vector<osg::NodePtr> _nodes;
};

}  // namespace

TEST_F(kuVariantsMaterialRandomTest, CapturesFollowTheModel) {
  std::map<std::string, int> met;
  for (unsigned seed = 1; seed <= 60; ++seed) {
    build(seed);
    for (const char* name : {"A", "B", "C", "D"}) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", capture " + name);
      captureBoth(name);
      ASSERT_EQ(sets(), model.setTexts());
      ASSERT_EQ(switches(), model.switchTexts());
      ASSERT_EQ(nodes(), model.nodeTexts());
      change();
    }
    for (const auto& [rule, times] : model.met)
      met[rule] += times;
  }
  for (const char* rule :
       {"same name", "handled", "split", "grown", "new switch", "present switch", "equal switches",
        "different switches", "state copied", "state named", "has it", "levelled"})
    EXPECT_THAT(met[rule], Gt(20)) << rule;
}
