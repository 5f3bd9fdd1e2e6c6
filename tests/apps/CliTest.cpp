#include "CliTest.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr const char* scene = R"({
  "asset": {"version": "2.0"},
  "extensionsUsed": ["KHR_lights_punctual", "KHR_node_visibility"],
  "extensions": {"KHR_lights_punctual": {"lights": [{"type": "directional"}]}},
  "scene": 0,
  "scenes": [{"nodes": [0, 9], "extras": {"activeCamera": "Front"}}],
  "nodes": [
    {"name": "Car", "children": [1, 4, 5, 6, 7, 8]},
    {"name": "Roof", "children": [2, 3], "extras": {"switch": 0}},
    {"name": "Closed"},
    {"name": "Open", "extensions": {"KHR_node_visibility": {"visible": false}}},
    {"name": "Doors", "extras": {"transform": 0, "transforms": [
      {"name": "Shut"}, {"name": "Wide", "translation": [1, 0, 0]}]}},
    {"name": "Sun", "extensions": {"KHR_lights_punctual": {"light": 0}}},
    {"name": "Body", "extras": {"materialGroup": {"material": 2}}},
    {"name": "Front", "camera": 0},
    {"name": "Rear", "camera": 0},
    {"name": "Plates", "children": [10], "extras": {"sceneplates": true}},
    {"name": "Title", "children": [11, 12], "extras": {"switch": -1}},
    {"name": "English", "extras": {"sceneplate": {"image": 0, "rect": [0, 0, 0.5, 0.1]}}},
    {"name": "Deutsch", "extras": {"sceneplate": {"image": 0, "rect": [0, 0, 0.5, 0.1]}}}
  ],
  "materials": [
    {"name": "Red"}, {"name": "Blue"},
    {"name": "Paint", "extras": {"switch": {"materials": [0, 1], "choice": 0}}}
  ],
  "cameras": [{"type": "perspective", "perspective": {"yfov": 0.8, "znear": 0.01}}],
  "images": [{"uri": "data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAQAAAC1HAwCAAAAC0lEQVR42mNk+A8AAQUBAScY42YAAAAASUVORK5CYII="}],
  "buffers": [{"byteLength": 32,
    "uri": "data:application/octet-stream;base64,AAAAAAAAgD8AAAAAAAAAAAAAAAAAAAAAAAAAQAAAAAA="}],
  "bufferViews": [{"buffer": 0, "byteLength": 8},
    {"buffer": 0, "byteOffset": 8, "byteLength": 24}],
  "accessors": [
    {"bufferView": 0, "componentType": 5126, "count": 2, "type": "SCALAR", "min": [0], "max": [1]},
    {"bufferView": 1, "componentType": 5126, "count": 2, "type": "VEC3"}],
  "animations": [{"name": "Wave", "samplers": [{"input": 0, "output": 1}],
    "channels": [{"sampler": 0, "target": {"node": 0, "path": "translation"}}]}]
})";

constexpr const char* document = R"(<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE variants>
<Variants>
  <VariantGroup name="Looks" comment="How it looks">
    <VariantSet name="Summer" comment="Open and sunny" default-viewpoint="Rear">
      <Hotkey>Ctrl+1</Hotkey>
      <NodeVariantRef ref="Roof" state="Open"/>
      <TransformRef ref="Doors" state="Wide"/>
      <LightVariantRef ref="Sun" state="!Disable"/>
      <ViewpointRef ref="Front"/>
      <SceneplateRef ref="Title" state="Deutsch"/>
      <AnimationRef ref="Wave"/>
      <Value name="Price">100</Value>
    </VariantSet>
    <VariantSet name="Winter">
      <NodeVariantRef ref="Roof" state="Closed"/>
      <MaterialVariantRef ref="Paint" state="Blue"/>
    </VariantSet>
  </VariantGroup>
  <VariantSet name="Scripted">
    <Script>print("printed by a script")</Script>
    <NodeVariantRef ref="Roof" state="Open"/>
  </VariantSet>
  <NodeVariant name="Roof" base="Roof">
    <Default ref="Closed"/>
    <State name="Closed"><Hotkey>F1</Hotkey></State>
    <State name="Open"/>
  </NodeVariant>
  <NodeVariant name="Leaves" base="Doors">
    <Default ref="Transform 0"/>
    <State name="Transform 0"/>
  </NodeVariant>
  <MaterialVariant name="Paint" base="Paint">
    <Default ref="Red"/>
    <State name="Red"/>
    <State name="Blue"/>
  </MaterialVariant>
  <LightVariant name="Sun" base="Sun">
    <Default ref="!Enable"/>
    <State name="!Enable"/>
    <State name="!Disable"/>
  </LightVariant>
  <SceneplateVariant name="Title" base="Title">
    <Default ref="English"/>
    <State name="!None"/>
    <State name="English"/>
    <State name="Deutsch"/>
  </SceneplateVariant>
  <TransformVariant name="Doors" base="Doors">
    <Default ref="Shut"/>
    <State name="Shut"/>
    <State name="Wide"/>
  </TransformVariant>
</Variants>
)";

}  // namespace

CliTest::CliTest() {
  write("car.gltf", scene);
  write("car.xml", document);
}

void CliTest::write(const QString& name, const QByteArray& content) {
  QFile file(folder.filePath(name));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << file.errorString().toStdString();
  ASSERT_EQ(file.write(content), content.size());
}

std::string CliTest::read(const QString& name) {
  QFile file(folder.filePath(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return file.readAll().toStdString();
}

bool CliTest::exists(const QString& name) const { return QFile::exists(folder.filePath(name)); }

QStringList CliTest::files() const {
  return QDir(folder.path()).entryList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
}

void CliTest::start(QProcess& process, const QStringList& arguments) {
  process.setWorkingDirectory(folder.path());
  process.start(KUVARIANTS_EXECUTABLE, arguments);
  ASSERT_TRUE(process.waitForStarted());
}

CliResult CliTest::finish(QProcess& process) {
  constexpr int milliseconds = 60000;
  if (!process.waitForFinished(milliseconds)) {
    process.kill();
    process.waitForFinished();
    ADD_FAILURE() << "the executable did not end";
  }
  const bool exited = process.exitStatus() == QProcess::NormalExit;
  return {exited ? process.exitCode() : -1, process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

void CliTest::makeFullDevice(const QString& name) {
  const QByteArray path = folder.filePath(name).toUtf8();
  if (mknod(path.constData(), S_IFCHR | 0666, makedev(1, 7)) == 0) return;
  ASSERT_EQ(symlink("/dev/full", path.constData()), 0);
}

bool CliTest::isDevice(const QString& name) const {
  struct stat status {};
  return stat(folder.filePath(name).toUtf8().constData(), &status) == 0 && S_ISCHR(status.st_mode);
}

CliResult CliTest::run(const QStringList& arguments) {
  QProcess process;
  start(process, arguments);
  return finish(process);
}

CliResult CliTest::runInShell(const QString& setUp, const QStringList& arguments,
                              const QString& redirection) {
  QProcess process;
  process.setWorkingDirectory(folder.path());
  const QString command = setUp + "\nexec \"$0\" \"$@\" " + redirection;
  process.start("/bin/sh", QStringList{"-c", command, KUVARIANTS_EXECUTABLE} + arguments);
  return finish(process);
}

std::string CliTest::statesOf(const CliResult& result) {
  const QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out));
  EXPECT_TRUE(json.isObject()) << result.out << result.err;
  return QJsonDocument(json.object()["states"].toObject())
      .toJson(QJsonDocument::Compact)
      .toStdString();
}

std::string normalised(const std::string& json) {
  const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(json));
  return document.isNull() ? "no JSON: " + json
                           : document.toJson(QJsonDocument::Compact).toStdString();
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  QStringList parts = QString::fromStdString(text).split('\n');
  if (!parts.empty() && parts.back().isEmpty()) parts.pop_back();
  for (const QString& line : parts)
    lines.push_back(line.toStdString());
  return lines;
}
