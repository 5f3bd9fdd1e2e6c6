#include <CLI/CLI.hpp>

#include "Commands.h"
#include "JsonWriter.h"
#include "SceneState.h"
#include "SceneText.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

void writeNode(JsonWriter& json, const osg::NodePtr& handle);

void writeCore(JsonWriter& json, const osg::NodeCorePtr& core) {
  if (const osg::SwitchPtr choice = osg::SwitchPtr::dcast(core)) {
    json.entry("choice", choice->getChoice());
  }
  if (osg::SwitchComponentTransformPtr::dcast(core)) {
    const TransformSwitchCore& states = TransformSwitchCore::of(core);
    json.entry("choice", states.choice);
    json.key("states");
    json.array(
        states.states, [&](const TransformState& state) { json.value(state.name); },
        JsonWriter::Layout::OneLine);
  }
  if (const osg::MaterialPtr material = materialOf(core)) {
    json.entry("material", kuMaterials::getName(material));
  }
  if (osg::UberLightPtr::dcast(core)) json.entry("on", LightCore::of(core).on);
}

void writeLayer(JsonWriter& json, const RenderLayer& layer) {
  json.key("renderLayer");
  json.object(
      [&] {
        json.entry("camera", layer.present().camera);
        json.entry("reflections", layer.present().reflections);
        json.entry("shadows", layer.present().shadows);
        json.key("states");
        json.array(layer.states(), [&](const auto& state) { json.value(state.first); });
      },
      JsonWriter::Layout::OneLine);
}

void writeNode(JsonWriter& json, const osg::NodePtr& handle) {
  const SceneNode& node = SceneNode::of(handle);
  json.object([&] {
    json.entry("name", node.name());
    json.key("kind");
    node.core() ? json.value(node.core()->getType().getName()) : json.null();
    json.entry("active", node.active());
    writeCore(json, node.core());
    if (node.renderLayer()) writeLayer(json, *node.renderLayer());
    json.key("children");
    json.array(node.children(), [&](const osg::NodePtr& child) { writeNode(json, child); });
  });
}

void writeMaterial(JsonWriter& json, const osg::MaterialPtr& material) {
  json.object(
      [&] {
        json.entry("name", kuMaterials::getName(material));
        json.entry("kind", material->getType().getName());
        json.key("states");
        json.list(stateNames(*material));
        json.key("state");
        const std::optional<std::string> state = presentState(*material);
        state ? json.value(*state) : json.null();
      },
      JsonWriter::Layout::OneLine);
}

template <class List>
void writeNames(JsonWriter& json, const char* key, const List& list) {
  json.key(key);
  json.array(
      list, [&](const auto& one) { json.value(one.name); }, JsonWriter::Layout::OneLine);
}

std::string sceneJson(const Scene& scene) {
  JsonWriter json;
  json.object([&] {
    json.key("scene");
    writeNode(json, scene.nodes.root);
    json.key("sceneplates");
    scene.sceneplates.root ? writeNode(json, scene.sceneplates.root) : json.null();
    json.key("materials");
    json.array(ScenePool::of(scene.pool).materials(),
               [&](const osg::MaterialPtr& material) { writeMaterial(json, material); });
    writeNames(json, "viewpoints", scene.viewpoints);
    writeNames(json, "animations", scene.animations);
  });
  return json.text() + '\n';
}

}  // namespace

void addSceneCommand(CLI::App& app, Invocation& invocation) {
  CLI::App* command =
      app.add_subcommand("scene", "Show a scene as a tree with names, kinds, states");
  addSceneArgument(*command, invocation);
  command->footer("Example:\n  kuvariants scene car.gltf");
  command->callback([&invocation] {
    invocation.run = [](const Invocation& chosen) {
      return chosen.common.json ? sceneJson(Scene::the()) : sceneText(Scene::the());
    };
  });
}
