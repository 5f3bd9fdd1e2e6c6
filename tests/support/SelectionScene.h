#pragma once

#include "model/kuVariantSet.h"
#include "support/VariantsTest.h"

/**
 * Fixture of the selections: a scene with something for each of the five kinds, two cameras, and
 * variants for all of it.
 *
 * Roof is a switch among Open and Closed, Paint one among the materials Red and Blue, Door has the
 * transforms Shut and Ajar, Lamp is off, Badge is a sceneplate switch among Small and Large. All
 * stand in the first of their states. The cameras are Front and Rear.
 */
class SelectionScene : public VariantsTest {
 protected:
  SelectionScene();
  ~SelectionScene() override;

  /** A scene and variants as at the beginning, with one set "Summer" that has nothing in it. */
  void build();
  /** Gives the set the second state of each variant, and all else that a set has. */
  void fill();

  kuVariantSet& set() const;
  int roof() const { return SceneBuilder::choice(_roof); }
  /** Frames asked for since build(), and whether the last was to come at once. */
  static std::uint64_t frames();
  static bool lastFrameAtOnce();
  static std::string viewpoint();

  osg::NodePtr roofNode() const { return _roof; }
  osg::NodePtr doorNode() const { return _door; }
  osg::NodePtr lampNode() const { return _lamp; }
  osg::NodePtr badgeNode() const { return _badge; }
  osg::SwitchMaterialPtr paint() const { return _paint; }

 private:
  osg::NodePtr _roof, _door, _lamp, _badge;
  osg::SwitchMaterialPtr _paint;
};
