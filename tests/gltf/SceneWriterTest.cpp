#include "standalone/gltf/SceneWriter.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <limits>
#include <random>

#include "host/kuSceneInterface.h"
#include "scene/kuMaterialVariant.h"
#include "standalone/gltf/GltfSource.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/Materials.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"
#include "support/SceneDump.h"
#include "support/SceneTest.h"

using namespace kuStandalone;

namespace {

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

class SceneWriter : public SceneTest {
 protected:
  std::string pathOf(const char* name) const { return _folder.filePath(name).toStdString(); }

  /** Saves a scene, with a check that it went well, and answers the file's bytes. */
  QByteArray save(const Scene& saved, const char* name = "scene.gltf") const {
    const SceneSaveResult result = saveScene(saved, pathOf(name));
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.status, SceneSaveResult::Status::Saved);
    return contentOf(_folder.filePath(name));
  }

  static std::unique_ptr<Scene> load(const QByteArray& bytes) {
    SceneLoadResult result = loadSceneData(bytes, "f");
    EXPECT_EQ(result.error, "") << bytes.toStdString();
    return result.scene ? std::move(result.scene) : std::make_unique<Scene>();
  }

  static std::unique_ptr<Scene> loadText(const char* members) {
    return load(QByteArray(R"({"asset":{"version":"2.0"},)") + members + "}");
  }

  static QJsonObject jsonOf(const QByteArray& bytes) {
    return QJsonDocument::fromJson(bytes).object();
  }

  static QJsonObject nodeOf(const QByteArray& bytes, int index) {
    return jsonOf(bytes)["nodes"].toArray()[index].toObject();
  }

  /** Saving and loading gives the same scene, and saving that gives the same bytes. */
  void expectRoundTrip(const Scene& original) const {
    for (const char* name : {"scene.gltf", "scene.glb"}) {
      const QByteArray bytes = save(original, name);
      const std::unique_ptr<Scene> again = load(bytes);
      EXPECT_EQ(dumpScene(*again), dumpScene(original)) << name << '\n' << bytes.toStdString();
      EXPECT_EQ(save(*again, name), bytes) << name;
    }
  }

  void expectRoundTrip() const { expectRoundTrip(Scene::the()); }

  QTemporaryDir _folder;
};

TEST_F(SceneWriter, AnEmptySceneComesBackEmpty) { expectRoundTrip(); }

TEST_F(SceneWriter, EveryRoleOfAProgramsSceneComesBack) {
  const osg::MaterialPtr red = scene.material("Red"), blue = scene.material("Blue");
  const auto paint = scene.switchMaterial("Paint", {red, blue}, 1);
  scene.presetMaterial("Glass", {"Clear", "Tinted"}, -1);
  scene.environmentSwitchMaterial("Sky", {red}, 7);
  ScenePool::of(Scene::the().pool).enter(EnvironmentMaterial::create("Studio"));
  red->hostFields().locked = true;
  scene.switchNode("Roof", -2, {"Hard", "Soft"});
  scene.transforms("Door", {"Closed", "", "Open"}, 4294967295u, -1);
  scene.bare("Bare");
  const osg::NodePtr body = scene.geometry("Body", paint);
  scene.group("Below", body);
  scene.geometry("Naked");
  scene.materialGroup("Group", blue);
  scene.light("Lamp", false);
  scene.group("Below the light", scene.light("Sun", true));
  scene.sceneplateSwitch("Season", -1, {"Summer", "Winter"});
  scene.camera("Front");
  Scene::the().activeViewpoint = "Front";
  Scene::the().animationBlocks["Doors"] = {"Left", "Right"};
  scene.setActive(body, false);
  expectRoundTrip();
}

TEST_F(SceneWriter, TransformsAndMatricesComeBackExactly) {
  Transform transform;
  transform.translation = {0.1, 1e-300, -1e300};
  transform.rotation = {1.0 / 3, -0.0, 0.7071067811865476, 4.9e-324};
  SceneNode::of(scene.group("Moved")).setTransform(transform);
  Transform matrix;
  matrix.matrix.emplace();
  matrix.matrix->fill(2.0 / 3);
  SceneNode::of(scene.group("Sheared")).setTransform(matrix);
  expectRoundTrip();
}

TEST_F(SceneWriter, ACloneWithTheOriginalsContentIsWrittenAsItsIndex) {
  const osg::NodePtr wheel = scene.switchNode("Wheel", 1, {"Steel", "Alloy"});
  scene.clone(wheel, "Spare");
  EXPECT_EQ(nodeOf(save(Scene::the()), 3),
            (QJsonObject{{"name", "Spare"}, {"extras", QJsonObject{{"cloneOf", 0}}}}));
  expectRoundTrip();
}

TEST_F(SceneWriter, ACloneWhoseContentDiffersComesBackAsItIs) {
  const osg::NodePtr wheel = scene.switchNode("Wheel", 1, {"Steel", "Alloy"});
  const osg::NodePtr spare = scene.clone(wheel, "Spare");
  scene.setActive(spare->getChild(1), false);
  expectRoundTrip();
  SceneNode::of(spare).removeChild(spare->getChild(0));
  expectRoundTrip();
  SceneNode::of(spare).removeChild(spare->getChild(0));
  expectRoundTrip();
}

TEST_F(SceneWriter, AnOriginalThatStandsBehindItsCloneStaysTheOriginal) {
  const osg::NodePtr first = scene.group("First");
  const osg::NodePtr wheel = scene.geometry("Wheel", scene.material("Red"));
  scene.clone(wheel, "Clone", first);
  expectRoundTrip();
}

TEST_F(SceneWriter, NestedClonesComeBack) {
  const osg::NodePtr wheel = scene.switchNode("Wheel", 0, {"Steel"});
  const osg::NodePtr axle = scene.group("Axle");
  scene.clone(wheel, "Left", axle);
  scene.clone(wheel, "Left", axle);
  scene.clone(axle, "Axle");
  expectRoundTrip();
}

TEST_F(SceneWriter, MaterialsOutsideThePoolStayOutside) {
  const osg::MaterialPtr inner = PlainMaterial::create("Inner");
  scene.geometry("Body", createSwitchMaterial("Outer", {inner}, 0));
  expectRoundTrip();
}

TEST_F(SceneWriter, CameraAndNodeMayBearDifferentNames) {
  scene.camera("Front");
  SceneNode::of(Scene::the().cameras[0].node).setName("Renamed");
  Scene::the().activeViewpoint = "Front";
  expectRoundTrip();
}

TEST_F(SceneWriter, AViewpointStaysWhereItIsWhenItsCameraMoved) {
  scene.camera("Front");
  Transform moved;
  moved.translation = {1, 2, 3};
  moved.scale = {2, 2, 2};
  SceneNode::of(Scene::the().cameras[0].node).setTransform(moved);
  Viewpoint low;
  low.name = "Low";
  low.named = true;
  low.pose = moved;
  Scene::the().addViewpoint(low);
  expectRoundTrip();
}

TEST_F(SceneWriter, ANumberThatIsNotFiniteIsRefusedAndNothingIsWritten) {
  Transform transform;
  transform.translation[0] = std::numeric_limits<double>::quiet_NaN();
  SceneNode::of(scene.group("Lost")).setTransform(transform);
  const std::string path = pathOf("lost.gltf");
  const SceneSaveResult result = saveScene(Scene::the(), path);
  EXPECT_EQ(result.error, path + ": a number of the scene is not finite");
  EXPECT_EQ(result.status, SceneSaveResult::Status::CannotWrite);
  EXPECT_FALSE(QFile::exists(QString::fromStdString(path)));
}

TEST_F(SceneWriter, UnknownMembersSurviveEverywhere) {
  const char* members = R"("extensionsUsed":["X_any"],"extensions":{"X_any":{"a":[1]}},
      "extras":{"mine":1},"samplers":[{"wrapS":33071}],"scene":0,
      "scenes":[{"nodes":[0],"extras":{"mine":2},"extensions":{"X_any":{}}},{"name":"Other"}],
      "nodes":[{"name":"A","extras":{"mine":3,"switch":0},"extensions":{"X_any":{"b":1}}},
               {"name":"Unused","children":[2]},{}],
      "materials":[{"name":"M","extras":{"mine":4},"extensions":{"X_any":{}},"alphaMode":"BLEND",
                    "pbrMetallicRoughness":{"metallicFactor":0.25}}])";
  const std::unique_ptr<Scene> loaded = loadText(members);
  ASSERT_NE(loaded->source, nullptr);
  EXPECT_EQ(jsonOf(save(*loaded)), dynamic_cast<GltfSource&>(*loaded->source).root);
}

TEST_F(SceneWriter, AFlagIsWrittenAndTakenOutAgain) {
  const std::unique_ptr<Scene> loaded = loadText(
      R"("extensionsUsed":["KHR_node_visibility"],"scenes":[{"nodes":[0,1]}],"nodes":[{},
         {"extensions":{"KHR_node_visibility":{"visible":false},"X_any":{}}}])");
  const osg::NodePtr root = loaded->nodes.root;
  scene.setActive(root->getChild(0), false);
  scene.setActive(root->getChild(1), true);
  const QByteArray bytes = save(*loaded);
  const QJsonObject hidden{{"KHR_node_visibility", QJsonObject{{"visible", false}}}};
  EXPECT_EQ(nodeOf(bytes, 0), (QJsonObject{{"extensions", hidden}}));
  EXPECT_EQ(nodeOf(bytes, 1), (QJsonObject{{"extensions", QJsonObject{{"X_any", QJsonObject()}}}}));
}

constexpr const char* meshes = R"("meshes":[
    {"primitives":[{"attributes":{},"material":0}]},
    {"primitives":[{"attributes":{},"material":0},{"attributes":{},"material":1}]}],
    "materials":[{"name":"Red"},{"name":"Blue"}],
    "extensionsUsed":["KHR_lights_punctual"],
    "extensions":{"KHR_lights_punctual":{"lights":[{"type":"point"}]}},)";

QByteArray withMeshes(const char* rest) { return QByteArray(meshes) + rest; }

TEST_F(SceneWriter, WhatTheLoaderMadeOfAMeshOrLightIsFoldedBack) {
  const QByteArray text = withMeshes(R"("scenes":[{"nodes":[0,1,2]}],"nodes":[
      {"name":"Car","mesh":1,"children":[3],"extensions":{"KHR_lights_punctual":{"light":0}},
       "extras":{"on":false}},
      {"name":"Car","mesh":1},{"name":"Lamp","extensions":{"KHR_lights_punctual":{"light":0}}},
      {"name":"Seat","mesh":0}])");
  const std::unique_ptr<Scene> loaded = loadText(text.constData());
  EXPECT_EQ(jsonOf(save(*loaded)), dynamic_cast<GltfSource&>(*loaded->source).root);
  expectRoundTrip(*loaded);
}

TEST_F(SceneWriter, WhatTheLoaderMadeAndSomebodyChangedIsWrittenAsNodes) {
  const QByteArray text = withMeshes(R"("scenes":[{"nodes":[0,1]}],"nodes":[
      {"name":"Car","mesh":1,"extensions":{"KHR_lights_punctual":{"light":0}}},
      {"name":"Other","mesh":1}])");
  const std::unique_ptr<Scene> loaded = loadText(text.constData());
  const osg::NodePtr car = loaded->nodes.root->getChild(0);
  ASSERT_EQ(car->getNChildren(), 3u);
  scene.setActive(car->getChild(1), false);
  expectRoundTrip(*loaded);
  SceneNode::of(car->getChild(2)).setName("Renamed");
  expectRoundTrip(*loaded);
}

TEST_F(SceneWriter, AGeometryThatGotAnotherMaterialKeepsIt) {
  const std::unique_ptr<Scene> loaded = loadText(
      withMeshes(R"("scenes":[{"nodes":[0,1]}],"nodes":[{"mesh":1},{"mesh":0}])").constData());
  const osg::MaterialPtr blue = ScenePool::of(loaded->pool).find("Blue").front();
  const osg::NodePtr seat = loaded->nodes.root->getChild(1);
  {
    const osg::EditCP edit(seat->getCore());
    osg::GeometryPtr::dcast(seat->getCore())->setMaterial(blue);
  }
  expectRoundTrip(*loaded);
}

TEST_F(SceneWriter, APlainMaterialThatAVariantWrappedComesBackAsASwitch) {
  std::unique_ptr<Scene> loaded = loadText(
      withMeshes(R"("scenes":[{"nodes":[0,1]}],"nodes":[{"mesh":1},{"mesh":0}])").constData());
  Scene::install(std::move(loaded));
  const osg::MaterialPtr red = ScenePool::of(Scene::the().pool).find("Red").front();
  const kuMaterialVariant variant(red);
  ASSERT_EQ(variant.getMaterial(), "Red Switch");
  expectRoundTrip();
}

TEST_F(SceneWriter, VariantsOfTheFileBecomeSwitchesThatAreFoundAgain) {
  const std::unique_ptr<Scene> loaded = loadText(
      R"("extensionsUsed":["KHR_materials_variants"],"extensions":{"KHR_materials_variants":
         {"variants":[{"name":"Cloth"},{"name":"Hide"}]}},
         "materials":[{"name":"Fabric"},{"name":"Leather"}],
         "meshes":[{"primitives":[{"attributes":{},"material":0,"extensions":
         {"KHR_materials_variants":{"mappings":[{"material":0,"variants":[0]},
         {"material":1,"variants":[1]}]}}}]}],
         "scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}])");
  const osg::MaterialPtr made =
      osg::GeometryPtr::dcast(loaded->nodes.root->getChild(0)->getCore())->getMaterial();
  ASSERT_TRUE(made->setCurrentState(1));
  expectRoundTrip(*loaded);
}

TEST_F(SceneWriter, TheSampleComesBackAsLoadedAndWithANodeHidden) {
  SceneLoadResult result = loadScene(KU_SAMPLES_DIR "/car/car.gltf");
  ASSERT_EQ(result.error, "");
  expectRoundTrip(*result.scene);
  SceneNode::of(result.scene->nodes.root->getChild(0)).setActiveFlag(false);
  expectRoundTrip(*result.scene);
}

TEST_F(SceneWriter, BuffersAndPicturesInFilesStandInsideWhatIsWritten) {
  const auto put = [&](const char* name, const QByteArray& bytes) {
    QFile file(_folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  };
  put("data.bin", "abcd");
  put("picture.png", "\x89PNG1");
  put("in.gltf", R"({"asset":{"version":"2.0"},"scenes":[{}],"images":[{"uri":"picture.png"}],
      "buffers":[{"uri":"data.bin","byteLength":3},{"uri":"data.bin","byteLength":4}]})");
  const SceneLoadResult result = loadScene(pathOf("in.gltf"));
  ASSERT_EQ(result.error, "");
  const QByteArray text = save(*result.scene);
  const QByteArray binary = save(*result.scene, "scene.GLB");
  ASSERT_TRUE(QFile::remove(_folder.filePath("data.bin")));
  ASSERT_TRUE(QFile::remove(_folder.filePath("picture.png")));
  EXPECT_EQ(binary.left(4), QByteArray("glTF"));
  for (const QByteArray& bytes : {text, binary}) {
    const std::unique_ptr<Scene> again = load(bytes);
    const auto* source = dynamic_cast<GltfSource*>(again->source.get());
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->buffers, (std::vector<QByteArray>{"abc", "abcd"}));
    EXPECT_EQ(source->images, (std::vector<QByteArray>{"\x89PNG1"}));
  }
}

TEST_F(SceneWriter, AClipMadeByAProgramComesBack) {
  const osg::NodePtr door = scene.group("Door");
  AnimationChannel slide, turn;
  slide.node = turn.node = door;
  slide.times = {0, 0.5f};
  slide.values = {0, 0, 0, 1.5f, 2, 3};
  turn.property = AnimationChannel::Property::Rotation;
  turn.interpolation = AnimationChannel::Interpolation::Step;
  turn.times = {1};
  turn.values = {0, 0, 0, 1};
  Scene::the().animations.push_back({"Open", {slide, turn}, -1});
  expectRoundTrip();
}

TEST_F(SceneWriter, AGeometryThatLeftItsMappingsIsNotWrappedAgain) {
  const std::unique_ptr<Scene> loaded = loadText(
      R"("extensions":{"KHR_materials_variants":{"variants":[{"name":"Cloth"}]}},
         "materials":[{"name":"Fabric"},{"name":"Leather"}],
         "meshes":[{"primitives":[{"attributes":{},"material":0,"extensions":
         {"KHR_materials_variants":{"mappings":[{"material":1,"variants":[0]}]}}}]}],
         "scenes":[{"nodes":[0]}],"nodes":[{"name":"Seat","mesh":0}])");
  const osg::NodeCorePtr seat = loaded->nodes.root->getChild(0)->getCore();
  {
    const osg::EditCP edit(seat);
    osg::GeometryPtr::dcast(seat)->setMaterial(ScenePool::of(loaded->pool).find("Leather").front());
  }
  const std::unique_ptr<Scene> again = load(save(*loaded));
  EXPECT_EQ(osg::GeometryPtr::dcast(again->nodes.root->getChild(0)->getCore())->getMaterial(),
            ScenePool::of(again->pool).find("Leather").front());
}

TEST_F(SceneWriter, ADirectoryIsNoTarget) {
  const std::string path = _folder.path().toStdString();
  EXPECT_EQ(saveScene(Scene::the(), path).error, path + ": is a directory");
}

TEST_F(SceneWriter, AMissingFolderIsNamed) {
  const std::string path = pathOf("missing/scene.gltf");
  const SceneSaveResult result = saveScene(Scene::the(), path);
  EXPECT_EQ(result.error, path + ": No such file or directory");
  EXPECT_EQ(result.status, SceneSaveResult::Status::CannotWrite);
}

TEST_F(SceneWriter, ADeviceIsNotReplacedByAFile) {
  EXPECT_EQ(saveScene(Scene::the(), "/dev/null").error, "/dev/null: is no regular file");
}

TEST_F(SceneWriter, OnAFullDiskTheFormerFileStays) {
  scene.group("Big");
  const QByteArray before = save(Scene::the());
  scene.group(std::string(100000, 'x'));
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    const SceneSaveResult result = saveScene(Scene::the(), pathOf("scene.gltf"));
    const bool told = result.error == pathOf("scene.gltf") + ": File too large";
    _exit(result.status == SceneSaveResult::Status::CannotWrite && told ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(contentOf(_folder.filePath("scene.gltf")), before);
  EXPECT_EQ(QDir(_folder.path()).entryList(QDir::Files), QStringList{"scene.gltf"});
}

/** Scenes of all roles at random places; names repeat, so clones cannot go by them. */
class RandomScene {
 public:
  RandomScene(SceneBuilder& scene, unsigned seed) : _scene(scene), _random(seed) {}

  void build() {
    for (int i = 0; i < 4; ++i)
      _materials.push_back(_scene.material(name()));
    _materials.push_back(_scene.switchMaterial(name(), {_materials[0], _materials[1]}, below(4)));
    _materials.push_back(_scene.presetMaterial(name(), {"A", "B"}, int(below(3)) - 1));
    _materials.push_back(osg::NullFC);
    _nodes.push_back(_scene.root());
    for (int i = 0; i < 30; ++i)
      addNode();
    for (std::size_t i = 1; i < _nodes.size(); ++i)
      change(_nodes[i]);
  }

 private:
  unsigned below(unsigned limit) { return unsigned(_random() % limit); }
  std::string name() { return below(5) == 0 ? "" : std::string(1, char('A' + below(6))); }
  osg::MaterialPtr material() { return _materials[below(unsigned(_materials.size()))]; }
  osg::NodePtr node() { return _nodes[below(unsigned(_nodes.size()))]; }

  void addNode() {
    const osg::NodePtr parent = node();
    const osg::NodePtr original = node();
    osg::NodePtr made;
    switch (below(9)) {
      case 0:
        made = _scene.switchNode(name(), int(below(5)) - 2, {"A", "B"}, parent);
        break;
      case 1:
        made = _scene.transforms(name(), {"A", name()}, below(4), int(below(4)) - 1, parent);
        break;
      case 2:
        made = _scene.geometry(name(), material(), parent);
        break;
      case 3:
        made = _scene.materialGroup(name(), material(), parent);
        break;
      case 4:
        made = _scene.light(name(), below(2) == 0, parent);
        break;
      case 5:
        made = _scene.bare(name(), parent);
        break;
      case 6:
      case 7:
        // A clone's copy below another clone's original would make that one a clone of another.
        if (original != _scene.root() && !isAbove(original, parent)) {
          _scene.clone(original, name(), parent);
        }
        return;
      default:
        made = _scene.group(name(), parent);
    }
    _nodes.push_back(made);
  }

  static bool isAbove(const osg::NodePtr& node, osg::NodePtr other) {
    for (; other; other = other->getParent()) {
      if (other == node) return true;
    }
    return false;
  }

  void change(const osg::NodePtr& node) {
    if (below(4) == 0) SceneBuilder::setActive(node, false);
    if (below(8) == 0) SceneNode::of(node).setRenderLayer(layer());
    if (below(4) != 0) return;
    Transform transform;
    transform.translation[0] = double(below(100)) / 7;
    SceneNode::of(node).setTransform(transform);
  }

  RayVisibility visibility() { return {below(2) == 0, below(2) == 0, below(2) == 0}; }

  RenderLayerPtr layer() {
    RayVisibilities states;
    for (unsigned count = below(3); count > 0; --count)
      states[name()] = visibility();
    return RenderLayer::create(visibility(), states);
  }

  SceneBuilder& _scene;
  std::mt19937 _random;
  std::vector<osg::MaterialPtr> _materials;
  std::vector<osg::NodePtr> _nodes;
};

TEST_F(SceneWriter, ScenesOfAllRolesComeBackTheSame) {
  for (unsigned seed = 0; seed < 300 && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    scene = SceneBuilder();
    RandomScene(scene, seed).build();
    expectRoundTrip();
  }
}

}  // namespace
