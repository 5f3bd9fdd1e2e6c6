#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

#include "circle/SceneLook.h"
#include "host/kuSceneInterface.h"
#include "support/VariantsTest.h"

/** Where the captures of a circle take place. */
enum class Capturing {
  /** In this process, one after the other, as in an application. */
  Here,
  /** By the command, each in a process of its own over the files of the one before. */
  ByCommand
};

/**
 * Fixture of the tests that capture a scene, write what came of it, and bring it back elsewhere:
 * the document is selected from by a process of its own, over the scene as it was before the
 * captures or as it was after the last.
 */
class CircleTest : public VariantsTest {
 protected:
  using Texts = std::vector<std::string>;

  /** Writes the scene as it stands: what later comes in "from the original". */
  void begin(Capturing capturing = Capturing::Here);

  /** Captures the scene, which looks the same afterwards. @return what the capture changed of it */
  Texts capture(const QString& set);

  /** What is different in the scene of before the captures once the set is selected in it. */
  Texts fromTheOriginal(const QString& set);
  /** The same in the scene of after the last capture. */
  Texts fromTheCaptured(const QString& set);
  /** Selects a set in one of the scenes and makes the result the present scene. */
  void bringBack(const QString& set, const char* sceneFile);

  /** The scene of a file of the circle: "original.gltf" or "captured.gltf". */
  std::unique_ptr<kuStandalone::Scene> sceneOf(const char* file) const;

  // How the user changes the scene between captures; nodes and materials go by their names.

  static osg::NodePtr node(const std::string& name);
  static osg::NodePtr plate(const std::string& name);
  static osg::MaterialPtr material(const std::string& name);
  static void setActive(const osg::NodePtr& node, bool active);
  static void setChoice(const osg::NodePtr& node, int choice);
  static void setState(const std::string& transforms, unsigned state);
  static void setLight(const std::string& light, bool on);
  static void setIgnored(const std::string& group, bool ignored);
  static void bear(const std::string& node, const std::string& material);
  static void showInSwitch(const std::string& switchMaterial, unsigned choice);
  static void move(const std::string& node, double x);
  static void setRays(const std::string& node, const kuStandalone::RayVisibility& rays);

  /** The switch that a node bears: its name and the materials, "Switch: Red Blue". */
  static std::string switchAt(const std::string& node);

 private:
  struct Captured {
    QString set;
    SceneLook look;
  };

  void captureHere(const QString& set);
  void captureByCommand(const QString& set);
  void writeResults();
  const SceneLook& lookOf(const QString& set) const;
  std::string pathOf(const char* name) const { return _folder.filePath(name).toStdString(); }
  void run(const QStringList& arguments) const;
  static void save(const std::string& path);
  static void load(const std::string& path);

  QTemporaryDir _folder;
  Capturing _capturing = Capturing::Here;
  std::vector<Captured> _captured;
};
