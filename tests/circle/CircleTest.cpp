#include "circle/CircleTest.h"

#include <QFile>
#include <QProcess>
#include <algorithm>

#include "document/kuVariantWriter.h"
#include "host/osg/EditCP.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/SceneNode.h"
#include "support/kuVariantsTestAccess.h"

using namespace kuStandalone;

void CircleTest::begin(Capturing capturing) {
  _capturing = capturing;
  save(pathOf("original.gltf"));
  const SceneLook built = lookAt(Scene::the());
  if (capturing == Capturing::ByCommand) load(pathOf("original.gltf"));
  EXPECT_EQ(lookAt(Scene::the()), built);
}

CircleTest::Texts CircleTest::capture(const QString& set) {
  _captured.push_back({set, lookAt(Scene::the())});
  _capturing == Capturing::Here ? captureHere(set) : captureByCommand(set);
  return differences(_captured.back().look, lookAt(Scene::the()));
}

void CircleTest::captureHere(const QString& set) {
  kuVariantSet* made = kuVariants::createVariantSet(set, true, nullptr);
  ASSERT_NE(made, nullptr);
  kuVariants::captureVariantsFromRootNodes(made, {kuOpenSGUtils::getRoot()}, true, true, true, true,
                                           true, true, true, true, false, true);
  // The states that switches have gained since their variants were made.
  for (kuMaterialVariant* variant : kuVariants::getMaterialVariants())
    variant->updateVariants();
  writeResults();
}

void CircleTest::captureByCommand(const QString& set) {
  save(pathOf("arranged.gltf"));
  QStringList arguments{"capture", "arranged.gltf"};
  if (_captured.size() > 1) arguments += "sets.xml";
  run(arguments + QStringList{"--set", set, "--rename-duplicates", "yes", "-o", "sets.xml",
                              "--save-scene", "captured.gltf"});
  load(pathOf("captured.gltf"));
}

void CircleTest::writeResults() {
  QFile document(_folder.filePath("sets.xml"));
  ASSERT_TRUE(document.open(QIODevice::WriteOnly));
  document.write(kuVariantWriter().write());
  save(pathOf("captured.gltf"));
}

const SceneLook& CircleTest::lookOf(const QString& set) const {
  return std::find_if(_captured.begin(), _captured.end(),
                      [&](const Captured& one) { return one.set == set; })
      ->look;
}

CircleTest::Texts CircleTest::fromTheOriginal(const QString& set) {
  bringBack(set, "original.gltf");
  return differences(lookOf(set), lookAt(Scene::the()));
}

CircleTest::Texts CircleTest::fromTheCaptured(const QString& set) {
  bringBack(set, "captured.gltf");
  return differences(lookOf(set), lookAt(Scene::the()));
}

void CircleTest::bringBack(const QString& set, const char* sceneFile) {
  run({"select", sceneFile, "sets.xml", set, "--allow-scripts", "--save-scene", "back.gltf"});
  load(pathOf("back.gltf"));
}

void CircleTest::run(const QStringList& arguments) const {
  constexpr int milliseconds = 60000;
  QProcess process;
  process.setWorkingDirectory(_folder.path());
  process.start(KUVARIANTS_EXECUTABLE, arguments);
  ASSERT_TRUE(process.waitForFinished(milliseconds));
  ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
}

void CircleTest::save(const std::string& path) {
  const SceneSaveResult saved = saveScene(Scene::the(), path);
  ASSERT_EQ(saved.error, "");
}

void CircleTest::load(const std::string& path) {
  SceneLoadResult loaded = loadScene(path);
  ASSERT_EQ(loaded.error, "");
  Scene::install(std::move(loaded.scene));
}

std::unique_ptr<Scene> CircleTest::sceneOf(const char* file) const {
  return loadScene(pathOf(file)).scene;
}

osg::NodePtr CircleTest::node(const std::string& name) {
  return kuScenegraph::findNode(name.c_str()).getNode();
}

osg::NodePtr CircleTest::plate(const std::string& name) {
  std::vector<osg::NodePtr> found;
  kuSceneplateUtils::findNodes(name, found);
  return found.front();
}

osg::MaterialPtr CircleTest::material(const std::string& name) {
  return kuMaterials::findMaterial(name.c_str()).getMaterial();
}

void CircleTest::setActive(const osg::NodePtr& node, bool active) {
  SceneNode::of(node).setActiveFlag(active);
}

void CircleTest::setChoice(const osg::NodePtr& node, int choice) {
  SwitchCore::of(node->getCore()).choice = choice;
}

void CircleTest::setState(const std::string& transforms, unsigned state) {
  TransformSwitchCore& core = TransformSwitchCore::of(node(transforms)->getCore());
  core.choice = state;
  core.supposed = int(state);
}

void CircleTest::setLight(const std::string& light, bool on) {
  LightCore::of(node(light)->getCore()).on = on;
}

void CircleTest::setIgnored(const std::string& group, bool ignored) {
  MaterialGroupCore::of(node(group)->getCore()).ignore = ignored;
}

void CircleTest::bear(const std::string& bearer, const std::string& worn) {
  kuVariantsTestAccess::changeMaterial(node(bearer), material(worn));
}

void CircleTest::showInSwitch(const std::string& switchMaterial, unsigned choice) {
  const auto choices = osg::SwitchMaterialPtr::dcast(material(switchMaterial));
  const osg::EditCP edit(choices, osg::SwitchMaterialBase::ChoiceFieldMask);
  choices->setChoice(choice);
}

void CircleTest::move(const std::string& name, double x) {
  Transform place;
  place.translation = {x, 0, 0};
  SceneNode::of(node(name)).setTransform(place);
}

void CircleTest::setRays(const std::string& name, const RayVisibility& rays) {
  SceneNode& own = SceneNode::of(node(name));
  own.setRenderLayer(RenderLayer::create(
      rays, own.renderLayer() ? own.renderLayer()->states() : RayVisibilities()));
}

std::string CircleTest::switchAt(const std::string& name) {
  const auto choices = osg::SwitchMaterialPtr::dcast(kuNodeUtils::getMaterial(node(name)));
  if (!choices) return "no switch";
  std::string text = std::string(kuMaterials::getName(choices)) + ':';
  for (const osg::MaterialPtr& entry : choices->getMaterials())
    text += std::string(" ") + kuMaterials::getName(entry);
  return text;
}
