#include "circle/SceneLook.h"

#include <algorithm>
#include <sstream>

#include "host/kuSceneInterface.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/SceneNode.h"

using namespace kuStandalone;

namespace {

template <class Numbers>
void print(std::ostream& out, const Numbers& numbers) {
  for (const double number : numbers)
    out << (number == 0 ? 0 : number) << ' ';
}

std::string textOf(const Transform& transform) {
  std::ostringstream out;
  out.precision(9);
  print(out, transform.translation);
  print(out, transform.rotation);
  print(out, transform.scale);
  if (transform.matrix) print(out, *transform.matrix);
  return out.str();
}

std::string shownMaterial(const osg::MaterialPtr& material) {
  if (!material) return "nothing";
  if (const auto choices = osg::SwitchMaterialPtr::dcast(material)) {
    return shownMaterial(choices->getMaterial(choices->getChoice()));
  }
  std::string state;
  const bool hasState = material->getCurrentStateName(state);
  return kuMaterials::getName(material) + (hasState ? ' ' + state : std::string());
}

std::string shownChild(const SceneNode& node, int choice) {
  if (choice == -2) return "all";
  if (choice == -1) return "none";
  if (choice < 0 || std::size_t(choice) >= node.children().size()) return "beyond";
  return SceneNode::of(node.children()[std::size_t(choice)]).name();
}

std::string shownState(const TransformSwitchCore& core) {
  return core.choice < core.states.size() ? core.states[core.choice].name : "beyond";
}

std::string raysOf(const RenderLayerPtr& layer) {
  const RayVisibility seen = layer ? layer->present() : RayVisibility();
  return std::string(seen.camera ? "camera " : "") + (seen.reflections ? "reflections " : "") +
         (seen.shadows ? "shadows" : "");
}

class Look {
 public:
  explicit Look(const Scene& scene) {
    lookAt(scene.nodes.root, {});
    lookAt(scene.sceneplates.root, {});
    const Camera* camera = scene.activeCamera();
    _things.push_back({"scene", "camera", camera ? camera->name : "none"});
  }

  const SceneLook& things() const { return _things; }

 private:
  void lookAt(const osg::NodePtr& handle, const std::string& above) {
    if (!handle) return;
    const SceneNode& node = SceneNode::of(handle);
    const std::string path = node.parent() ? above + node.name() : std::string();
    if (node.parent()) {
      _things.push_back({path, "name", node.name()});
      _things.push_back({path, "active", node.active() ? "yes" : "no"});
      _things.push_back({path, "place", textOf(node.transform())});
      _things.push_back({path, "rays", raysOf(node.renderLayer())});
      lookAtCore(node, path);
    }
    for (const osg::NodePtr& child : node.children())
      lookAt(child, path.empty() ? path : path + '/');
  }

  void lookAtCore(const SceneNode& node, const std::string& path) {
    const osg::NodeCorePtr& core = node.core();
    if (osg::SwitchPtr::dcast(core)) {
      _things.push_back({path, "choice", shownChild(node, SwitchCore::of(core).choice)});
    } else if (osg::SwitchComponentTransformPtr::dcast(core)) {
      _things.push_back({path, "state", shownState(TransformSwitchCore::of(core))});
    } else if (osg::MaterialGroupPtr::dcast(core)) {
      const MaterialGroupCore& own = MaterialGroupCore::of(core);
      _things.push_back({path, "material", shownMaterial(own.material)});
      _things.push_back({path, "ignored", own.ignore ? "yes" : "no"});
    } else if (osg::GeometryPtr::dcast(core)) {
      _things.push_back({path, "material", shownMaterial(GeometryCore::of(core).material)});
    } else if (osg::UberLightPtr::dcast(core)) {
      _things.push_back({path, "light", LightCore::of(core).on ? "on" : "off"});
    }
  }

  SceneLook _things;
};

}  // namespace

SceneLook lookAt(const Scene& scene) { return Look(scene).things(); }

std::vector<std::string> differences(const SceneLook& before, const SceneLook& after) {
  if (before.size() != after.size()) return {"the scenes have different trees"};
  std::vector<std::string> result;
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i].value == after[i].value) continue;
    std::ostringstream line;
    line << before[i] << " -> " << after[i].value;
    result.push_back(line.str());
  }
  return result;
}
