#pragma once

#include <string>
#include <vector>

#include "host/osg/Geometry.h"
#include "host/osg/Group.h"
#include "host/osg/MaterialGroup.h"
#include "host/osg/Sceneplate.h"
#include "host/osg/Switch.h"
#include "host/osg/SwitchComponentTransform.h"
#include "host/osg/UberLight.h"
#include "standalone/scene/Transform.h"

/**
 * @file
 * The cores of this host: the classes of the seam with their data. They are made with create() and
 * reached from a handle with of(), which needs a core of that class.
 */
namespace kuStandalone {

class KUHOST_EXPORT GroupCore final : public osg::Group {
 public:
  static osg::NodeCorePtr create();

 private:
  GroupCore();
};

class KUHOST_EXPORT SwitchCore final : public osg::Switch {
 public:
  static osg::NodeCorePtr create(int choice);
  static SwitchCore& of(const osg::NodeCorePtr& core) { return static_cast<SwitchCore&>(*core); }

  int choice;
  /** Whether the file marks it as the switch that selects environment geometry. */
  bool environment = false;

 private:
  explicit SwitchCore(int firstChoice);
};

/** A named state of a transform. */
struct TransformState {
  std::string name;
  Transform transform;

  bool operator==(const TransformState& other) const {
    return name == other.name && transform == other.transform;
  }
};

class KUHOST_EXPORT TransformSwitchCore final : public osg::SwitchComponentTransform {
 public:
  /** @param supposed the index that the node is meant to stand in, -1 for none. */
  static osg::NodeCorePtr create(std::vector<TransformState> states, unsigned choice, int supposed);
  static TransformSwitchCore& of(const osg::NodeCorePtr& core) {
    return static_cast<TransformSwitchCore&>(*core);
  }

  static constexpr osg::FieldMask SupposedFieldMask = osg::FieldMask(1) << 9;
  static constexpr osg::FieldMask StatesFieldMask = osg::FieldMask(1) << 10;

  /** Stands in an edit bracket whose mask has SupposedFieldMask. */
  void setSupposed(int index);
  /** Stands in an edit bracket whose mask has StatesFieldMask. @param index of a state. */
  void setStateName(std::size_t index, std::string name);

  std::vector<TransformState> states;
  unsigned choice;
  int supposed;

 private:
  TransformSwitchCore(std::vector<TransformState> firstStates, unsigned firstChoice,
                      int firstSupposed);
};

class KUHOST_EXPORT MaterialGroupCore final : public osg::MaterialGroup {
 public:
  static osg::NodeCorePtr create(const osg::MaterialPtr& material, bool ignore);
  static MaterialGroupCore& of(const osg::NodeCorePtr& core) {
    return static_cast<MaterialGroupCore&>(*core);
  }

  osg::MaterialPtr material;
  /** Whether the group's material is passed over. */
  bool ignore;

 private:
  explicit MaterialGroupCore(bool firstIgnore);
  ~MaterialGroupCore() override;
};

class KUHOST_EXPORT GeometryCore final : public osg::Geometry {
 public:
  /** @param mesh, primitive where the triangles stand in the scene's file; -1 for none. */
  static osg::NodeCorePtr create(const osg::MaterialPtr& material, int mesh = -1,
                                 int primitive = -1);
  static GeometryCore& of(const osg::NodeCorePtr& core) {
    return static_cast<GeometryCore&>(*core);
  }

  osg::MaterialPtr material;
  int mesh;
  int primitive;

 private:
  GeometryCore(int fileMesh, int filePrimitive);
  ~GeometryCore() override;
};

class KUHOST_EXPORT LightCore final : public osg::UberLight {
 public:
  /** @param light index of the light in the scene's file, -1 for none. */
  static osg::NodeCorePtr create(bool on, int light = -1);
  static LightCore& of(const osg::NodeCorePtr& core) { return static_cast<LightCore&>(*core); }

  static constexpr osg::FieldMask OnFieldMask = osg::FieldMask(1) << 8;

  /** Stands in an edit bracket whose mask has OnFieldMask. */
  void setOn(bool isOn);

  bool on;
  int light;

 private:
  LightCore(bool isOn, int fileLight);
};

class KUHOST_EXPORT SceneplateCore final : public osg::Sceneplate {
 public:
  /** @param image index of the picture in the scene's file; @param rect x, y, w, h in fractions
   * of the frame from its top left. */
  static osg::NodeCorePtr create(int image = -1, std::array<double, 4> rect = {0, 0, 1, 1});
  static SceneplateCore& of(const osg::NodeCorePtr& core) {
    return static_cast<SceneplateCore&>(*core);
  }

  int image;
  std::array<double, 4> rect;

 private:
  SceneplateCore(int fileImage, std::array<double, 4> place);
};

}  // namespace kuStandalone
