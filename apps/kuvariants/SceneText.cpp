#include "SceneText.h"

#include <QStringList>

#include "SceneState.h"
#include "Text.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

std::string shownName(const std::string& name) {
  return name.empty() ? "(unnamed)" : escaped(name);
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names)
    text += (text.empty() ? "" : ", ") + shownName(name);
  return text;
}

std::string switchState(const SceneNode& node, int choice) {
  if (choice == -2) return "all";
  if (choice == -1) return "none";
  const auto& children = node.children();
  const bool isChild = choice >= 0 && static_cast<std::size_t>(choice) < children.size();
  return isChild ? shownName(SceneNode::of(children[static_cast<std::size_t>(choice)]).name())
                 : "choice " + std::to_string(choice);
}

std::string transformState(const TransformSwitchCore& core) {
  std::vector<std::string> names;
  for (const TransformState& state : core.states)
    names.push_back(state.name);
  const std::string present = core.choice < names.size() ? shownName(names[core.choice])
                                                         : "choice " + std::to_string(core.choice);
  return present + " of " + (names.empty() ? "none" : joined(names));
}

/** What the core stands in: ": Open". Empty for a core without a state. */
std::string coreState(const SceneNode& node) {
  const osg::NodeCorePtr& core = node.core();
  if (const osg::SwitchPtr choice = osg::SwitchPtr::dcast(core)) {
    return ": " + switchState(node, choice->getChoice());
  }
  if (osg::SwitchComponentTransformPtr::dcast(core)) {
    return ": " + transformState(TransformSwitchCore::of(core));
  }
  if (osg::UberLightPtr::dcast(core)) return LightCore::of(core).on ? ": on" : ": off";
  return {};
}

/** What is not as in a node without a render layer; empty if nothing is. */
std::string layerState(const RenderLayer& layer) {
  const RayVisibility& seen = layer.present();
  std::string text;
  for (const auto& [sees, rays] :
       {std::pair(seen.camera, "camera"), std::pair(seen.reflections, "reflections"),
        std::pair(seen.shadows, "shadows")}) {
    if (!sees) text += std::string(", no ") + rays;
  }
  std::vector<std::string> names;
  for (const auto& state : layer.states())
    names.push_back(state.first);
  return names.empty() ? text : text + ", layer states " + joined(names);
}

std::string nodeLine(const SceneNode& node) {
  std::string line = shownName(node.name()) + "  ";
  line += node.core() ? node.core()->getType().getName() : "no core";
  line += coreState(node);
  if (const osg::MaterialPtr material = materialOf(node.core())) {
    line += ", material " + shownName(kuMaterials::getName(material));
  }
  if (node.renderLayer()) line += layerState(*node.renderLayer());
  if (!node.active()) line += ", hidden";
  return line + '\n';
}

/** @param lead what stands before the lines of everything below the node. */
void appendChildren(std::string& text, const SceneNode& node, const std::string& lead) {
  for (const osg::NodePtr& handle : node.children()) {
    const SceneNode& child = SceneNode::of(handle);
    const bool last = handle == node.children().back();
    text += lead + (last ? "└─ " : "├─ ") + nodeLine(child);
    appendChildren(text, child, lead + (last ? "   " : "│  "));
  }
}

void appendTree(std::string& text, const osg::NodePtr& root) {
  text += nodeLine(SceneNode::of(root));
  appendChildren(text, SceneNode::of(root), "");
}

std::string materialLine(const osg::MaterialPtr& handle) {
  const osg::Material& material = *handle;
  std::string line = "  " + shownName(kuMaterials::getName(handle)) + "  ";
  line += material.getType().getName();
  const std::vector<std::string> states = stateNames(material);
  if (!states.empty()) {
    const std::optional<std::string> present = presentState(material);
    line += ": " + (present ? shownName(*present) : "none") + " of " + joined(states);
  }
  return line + '\n';
}

void appendMaterials(std::string& text, const Scene& scene) {
  const osg::MFMaterialPtr& materials = ScenePool::of(scene.pool).materials();
  if (!materials.empty()) text += "\nMaterials\n";
  for (const osg::MaterialPtr& material : materials)
    text += materialLine(material);
}

void appendViewpoints(std::string& text, const Scene& scene) {
  if (!scene.viewpoints.empty()) text += "\nViewpoints\n";
  for (const Viewpoint& viewpoint : scene.viewpoints) {
    const bool active = viewpoint.name == scene.activeViewpoint;
    text += "  " + shownName(viewpoint.name) + (active ? "  active\n" : "\n");
  }
}

void appendAnimations(std::string& text, const Scene& scene) {
  if (!scene.animations.empty()) text += "\nAnimations\n";
  for (const AnimationClip& clip : scene.animations)
    text += "  " + shownName(clip.name) + '\n';
}

}  // namespace

std::string sceneText(const Scene& scene) {
  std::string text = "Scene\n";
  appendTree(text, scene.nodes.root);
  if (scene.sceneplates.root) {
    text += "\nSceneplates\n";
    appendTree(text, scene.sceneplates.root);
  }
  appendMaterials(text, scene);
  appendViewpoints(text, scene);
  appendAnimations(text, scene);
  return text;
}
