#pragma once

#include "CliTest.h"

/**
 * Has a body that is red in "red.gltf" and blue in "blue.gltf", beside a roof that is a switch, a
 * hidden jack and a camera. In "twins.gltf" two nodes are named "Closed".
 */
class CaptureTest : public CliTest {
 protected:
  CaptureTest();

  /** A scene whose body bears the material of that index: Red, Blue, Green, Paint (a switch). */
  static QByteArray scene(int material);

  CliResult capture(const QStringList& arguments) {
    return run(QStringList{"capture"} + arguments);
  }
  /** Writes "paints.xml", with the sets Red and Blue, each captured from the scene of its name. */
  void capturePaints();
  /** The material of the body in a scene file, and the switch's choice where it is a switch. */
  std::string bodyOf(const QString& sceneFile);
};
