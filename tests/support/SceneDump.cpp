#include "support/SceneDump.h"

#include <map>
#include <set>
#include <sstream>

#include "standalone/scene/Cores.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/NodeCoreFields.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

template <std::size_t N>
void printNumbers(std::ostream& out, const char* name, const std::array<double, N>& numbers,
                  const std::array<double, N>& standard) {
  if (numbers == standard) return;
  out << ' ' << name << " (";
  for (const double number : numbers)
    out << (number == 0 ? 0 : number) << ',';
  out << ')';
}

void print(std::ostream& out, const Transform& transform) {
  const Transform standard;
  printNumbers(out, "translation", transform.translation, standard.translation);
  printNumbers(out, "rotation", transform.rotation, standard.rotation);
  printNumbers(out, "scale", transform.scale, standard.scale);
  if (transform.matrix) printNumbers(out, "matrix", *transform.matrix, {});
}

class Dump {
 public:
  explicit Dump(const Scene& scene) : _scene(scene) { _out.precision(17); }

  std::string text() {
    number(_scene.nodes.root);
    number(_scene.sceneplates.root);
    printMaterials();
    printNode(_scene.nodes.root, 0);
    _out << "sceneplates\n";
    printNode(_scene.sceneplates.root, 0);
    printCameras();
    printAnimations();
    return _out.str();
  }

 private:
  void number(const osg::NodePtr& node) {
    if (!node) return;
    _nodes.emplace(node.get(), _nodes.size());
    for (const osg::NodePtr& child : SceneNode::of(node).children())
      number(child);
  }

  std::string nodeText(const osg::NodePtr& node) const {
    const auto found = _nodes.find(node.get());
    return found == _nodes.end() ? "none" : "#" + std::to_string(found->second);
  }

  /** Materials of the pool go by their place in it, others are printed where they stand. */
  void printMaterials() {
    const osg::MFMaterialPtr& pool = ScenePool::of(_scene.pool).materials();
    for (std::size_t i = 0; i < pool.size(); ++i)
      _materials.emplace(pool[i].get(), "m" + std::to_string(i));
    for (const osg::MaterialPtr& material : pool) {
      _out << "material " << _materials[material.get()];
      printMaterial(material);
      _out << '\n';
    }
  }

  void printMaterial(const osg::MaterialPtr& material) {
    const osg::MaterialFields& fields = material->hostFields();
    _out << " '" << fields.name << "' " << material->getType().getName();
    if (fields.locked) _out << " locked";
    if (const auto presets = osg::FCPtr<PresetMaterial>::dcast(material)) {
      for (const std::string& preset : presets->presets)
        _out << " '" << preset << "'";
      _out << " present " << presets->present;
    }
    if (!osg::SwitchMaterialPtr::dcast(material)) return;
    _out << " choice " << fields.choice << " of";
    for (const osg::MaterialPtr& sub : fields.subMaterials)
      printReference(sub);
  }

  void printReference(const osg::MaterialPtr& material) {
    if (!material) {
      _out << " no-material";
      return;
    }
    const auto [known, isNew] =
        _materials.emplace(material.get(), "x" + std::to_string(_materials.size()));
    _out << ' ' << known->second;
    if (!isNew) return;
    _out << "{";
    printMaterial(material);
    _out << "}";
  }

  void printNode(const osg::NodePtr& handle, int depth) {
    if (!handle) return;
    const SceneNode& node = SceneNode::of(handle);
    _out << std::string(std::size_t(depth), ' ') << nodeText(handle) << " '" << node.name() << "'"
         << (node.active() ? "" : " hidden");
    print(_out, node.transform());
    if (node.renderLayer()) printLayer(*node.renderLayer());
    printCore(node);
    _out << '\n';
    for (const osg::NodePtr& child : node.children())
      printNode(child, depth + 1);
  }

  void printLayer(const RenderLayer& layer) {
    _out << " layer";
    printSeen(layer.present());
    for (const auto& [name, visibility] : layer.states()) {
      _out << " '" << name << "'";
      printSeen(visibility);
    }
  }

  void printSeen(const RayVisibility& seen) {
    _out << ' ' << (seen.camera ? 'c' : '-') << (seen.reflections ? 'r' : '-')
         << (seen.shadows ? 's' : '-');
  }

  void printCore(const SceneNode& node) {
    const osg::NodeCorePtr& core = node.core();
    if (!core) {
      _out << " bare";
      return;
    }
    const SceneNode* first = core->hostFields().parents.front();
    if (first != &node) {
      const auto found = _nodes.find(first);
      _out << " clone of " << (found == _nodes.end() ? -1 : int(found->second));
    }
    _out << ' ' << core->getType().getName();
    printFields(core);
  }

  void printFields(const osg::NodeCorePtr& core) {
    if (osg::SwitchPtr::dcast(core)) {
      const SwitchCore& own = SwitchCore::of(core);
      _out << ' ' << own.choice << (own.environment ? " environment" : "");
    } else if (osg::SwitchComponentTransformPtr::dcast(core)) {
      printStates(TransformSwitchCore::of(core));
    } else if (osg::MaterialGroupPtr::dcast(core)) {
      const MaterialGroupCore& own = MaterialGroupCore::of(core);
      printReference(own.material);
      _out << (own.ignore ? " ignored" : "");
    } else if (osg::GeometryPtr::dcast(core)) {
      printReference(GeometryCore::of(core).material);
      _out << (GeometryCore::of(core).mesh < 0 ? "" : " with triangles");
    } else if (osg::UberLightPtr::dcast(core)) {
      _out << (LightCore::of(core).on ? " on" : " off");
    } else if (osg::SceneplatePtr::dcast(core)) {
      _out << " image " << SceneplateCore::of(core).image;
      printNumbers(_out, "rect", SceneplateCore::of(core).rect, {});
    }
  }

  void printStates(const TransformSwitchCore& core) {
    _out << ' ' << core.choice << " supposed " << core.supposed;
    for (const TransformState& state : core.states) {
      _out << " ['" << state.name << "'";
      print(_out, state.transform);
      _out << ']';
    }
  }

  void printCameras() {
    for (const Camera& camera : _scene.cameras) {
      _out << "camera '" << camera.name << "' at " << nodeText(camera.node) << ' '
           << camera.perspective << ' ' << camera.yfov << ' ' << camera.aspectRatio << ' '
           << camera.xmag << ' ' << camera.ymag << ' ' << camera.znear << ' ' << camera.zfar
           << '\n';
    }
    for (const Viewpoint& viewpoint : _scene.viewpoints) {
      _out << "viewpoint '" << viewpoint.name << "' of camera " << viewpoint.camera;
      print(_out, viewpoint.pose);
      _out << '\n';
    }
    _out << "active '" << _scene.activeViewpoint << "'\n";
  }

  void printAnimations() {
    for (const AnimationClip& clip : _scene.animations) {
      _out << "clip '" << clip.name << "'\n";
      for (const AnimationChannel& channel : clip.channels)
        printChannel(channel);
    }
    for (const auto& [name, clips] : _scene.animationBlocks) {
      _out << "block '" << name << "'";
      for (const std::string& clip : clips)
        _out << " '" << clip << "'";
      _out << '\n';
    }
    for (const FileVariant& variant : _scene.fileVariants) {
      _out << "variant '" << variant.name << "'";
      for (const auto& [material, choice] : variant.choices) {
        printReference(material);
        _out << ':' << choice;
      }
      _out << '\n';
    }
  }

  void printChannel(const AnimationChannel& channel) {
    _out << " channel " << nodeText(channel.node) << ' ' << int(channel.property) << ' '
         << int(channel.interpolation) << " times";
    for (const float time : channel.times)
      _out << ' ' << time;
    _out << " values";
    for (const float value : channel.values)
      _out << ' ' << value;
    _out << '\n';
  }

  const Scene& _scene;
  std::ostringstream _out;
  std::map<const osg::Node*, std::size_t> _nodes;
  std::map<const osg::Material*, std::string> _materials;
};

}  // namespace

std::string dumpScene(const Scene& scene) { return Dump(scene).text(); }
