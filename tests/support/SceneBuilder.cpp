#include "support/SceneBuilder.h"

#include "standalone/scene/Materials.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using namespace kuStandalone;

namespace {

osg::NodePtr cloneTree(const SceneNode& original, const std::string& name) {
  const osg::NodePtr copy = SceneNode::create(name, original.core());
  SceneNode::of(copy).setActiveFlag(original.active());
  for (const osg::NodePtr& child : original.children()) {
    SceneNode::of(copy).addChild(cloneTree(SceneNode::of(child), SceneNode::of(child).name()));
  }
  return copy;
}

}  // namespace

SceneBuilder::SceneBuilder() { Scene::install(std::make_unique<Scene>()); }

osg::NodePtr SceneBuilder::root() const { return Scene::the().nodes.root; }

osg::NodePtr SceneBuilder::place(const osg::NodePtr& node, const osg::NodePtr& parent) {
  SceneNode::of(parent ? parent : root()).addChild(node);
  return node;
}

osg::NodePtr SceneBuilder::group(const std::string& name, const osg::NodePtr& parent) {
  return place(SceneNode::create(name, GroupCore::create()), parent);
}

osg::NodePtr SceneBuilder::bare(const std::string& name, const osg::NodePtr& parent) {
  return place(SceneNode::create(name, osg::NullFC), parent);
}

osg::NodePtr SceneBuilder::switchNode(const std::string& name, int choice, const Names& children,
                                      const osg::NodePtr& parent) {
  const osg::NodePtr node = place(SceneNode::create(name, SwitchCore::create(choice)), parent);
  for (const std::string& child : children)
    group(child, node);
  return node;
}

osg::NodePtr SceneBuilder::environmentSwitch(const std::string& name, int choice,
                                             const Names& children, const osg::NodePtr& parent) {
  const osg::NodePtr node = switchNode(name, choice, children, parent);
  SwitchCore::of(node->getCore()).environment = true;
  return node;
}

osg::NodePtr SceneBuilder::transforms(const std::string& name, const Names& states, unsigned choice,
                                      int supposed, const osg::NodePtr& parent) {
  std::vector<TransformState> named;
  for (const std::string& state : states) {
    named.push_back({state, {}});
    named.back().transform.translation = {double(named.size()), 0, 0};
  }
  return place(SceneNode::create(name, TransformSwitchCore::create(named, choice, supposed)),
               parent);
}

osg::NodePtr SceneBuilder::geometry(const std::string& name, const osg::MaterialPtr& material,
                                    const osg::NodePtr& parent) {
  return place(SceneNode::create(name, GeometryCore::create(material)), parent);
}

osg::NodePtr SceneBuilder::materialGroup(const std::string& name, const osg::MaterialPtr& material,
                                         const osg::NodePtr& parent) {
  return place(SceneNode::create(name, MaterialGroupCore::create(material, false)), parent);
}

osg::NodePtr SceneBuilder::light(const std::string& name, bool on, const osg::NodePtr& parent) {
  return place(SceneNode::create(name, LightCore::create(on)), parent);
}

osg::NodePtr SceneBuilder::clone(const osg::NodePtr& original, const std::string& name,
                                 const osg::NodePtr& parent) {
  const SceneNode& node = SceneNode::of(original);
  return place(cloneTree(node, name.empty() ? node.name() : name), parent);
}

osg::NodePtr SceneBuilder::sceneplateRoot() {
  SceneTree& plates = Scene::the().sceneplates;
  if (!plates.root) plates.setRoot(SceneNode::create("Sceneplates", GroupCore::create()));
  return plates.root;
}

osg::NodePtr SceneBuilder::sceneplate(const std::string& name, const osg::NodePtr& parent) {
  return place(SceneNode::create(name, SceneplateCore::create()),
               parent ? parent : sceneplateRoot());
}

osg::NodePtr SceneBuilder::sceneplateSwitch(const std::string& name, int choice,
                                            const Names& children, const osg::NodePtr& parent) {
  const osg::NodePtr node = place(SceneNode::create(name, SwitchCore::create(choice)),
                                  parent ? parent : sceneplateRoot());
  for (const std::string& child : children)
    sceneplate(child, node);
  return node;
}

osg::MaterialPtr SceneBuilder::pooled(osg::MaterialPtr material) {
  ScenePool::of(Scene::the().pool).enter(material);
  return material;
}

osg::MaterialPtr SceneBuilder::material(const std::string& name) {
  return pooled(PlainMaterial::create(name));
}

osg::MaterialPtr SceneBuilder::presetMaterial(const std::string& name, const Names& presets,
                                              int present) {
  return pooled(PresetMaterial::create(name, presets, present));
}

osg::MaterialPtr SceneBuilder::environmentMaterial(const std::string& name) {
  return pooled(EnvironmentMaterial::create(name));
}

osg::SwitchMaterialPtr SceneBuilder::switchMaterial(const std::string& name,
                                                    const std::vector<osg::MaterialPtr>& materials,
                                                    unsigned choice) {
  const osg::SwitchMaterialPtr material = createSwitchMaterial(name, materials, choice);
  pooled(material);
  return material;
}

osg::SwitchMaterialPtr SceneBuilder::environmentSwitchMaterial(
    const std::string& name, const std::vector<osg::MaterialPtr>& materials, unsigned choice) {
  const osg::SwitchMaterialPtr material = createSwitchMaterial(name, materials, choice, true);
  pooled(material);
  return material;
}

Viewpoint& SceneBuilder::camera(const std::string& name) {
  Scene& present = Scene::the();
  Camera camera;
  camera.name = name;
  camera.node = group(name);
  present.addCamera(camera);
  Viewpoint viewpoint;
  viewpoint.name = name;
  viewpoint.camera = present.cameras.size() - 1;
  return present.addViewpoint(viewpoint);
}

void SceneBuilder::setActive(const osg::NodePtr& node, bool active) {
  SceneNode::of(node).setActiveFlag(active);
}

RenderLayerPtr SceneBuilder::renderLayer(const osg::NodePtr& node) {
  const RenderLayerPtr layer = RenderLayer::create({false, true, true});
  SceneNode::of(node).setRenderLayer(layer);
  return layer;
}

int SceneBuilder::choice(const osg::NodePtr& node) {
  return SwitchCore::of(node->getCore()).choice;
}

unsigned SceneBuilder::transformChoice(const osg::NodePtr& node) {
  return TransformSwitchCore::of(node->getCore()).choice;
}

int SceneBuilder::supposedIndex(const osg::NodePtr& node) {
  return TransformSwitchCore::of(node->getCore()).supposed;
}
