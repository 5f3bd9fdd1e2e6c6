#pragma once

#include <string>
#include <vector>

#include "host/kuSceneInterface.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/RenderLayer.h"
#include "standalone/scene/Scene.h"

/**
 * Builds the present scene, which it empties first. Without a parent, nodes go below the root, and
 * sceneplates below the sceneplate root, which is made with the first of them ("Sceneplates").
 */
class SceneBuilder {
 public:
  using Names = std::vector<std::string>;

  SceneBuilder();

  osg::NodePtr root() const;
  osg::NodePtr group(const std::string& name, const osg::NodePtr& parent = {});
  /** A node without a core. */
  osg::NodePtr bare(const std::string& name, const osg::NodePtr& parent = {});
  /** A switch whose children are groups of those names. */
  osg::NodePtr switchNode(const std::string& name, int choice, const Names& children,
                          const osg::NodePtr& parent = {});
  /** A switch that selects environment geometry. */
  osg::NodePtr environmentSwitch(const std::string& name, int choice, const Names& children,
                                 const osg::NodePtr& parent = {});
  /** A transform with named states; @p supposed -1 for none. */
  osg::NodePtr transforms(const std::string& name, const Names& states, unsigned choice,
                          int supposed, const osg::NodePtr& parent = {});
  osg::NodePtr geometry(const std::string& name, const osg::MaterialPtr& material = {},
                        const osg::NodePtr& parent = {});
  osg::NodePtr materialGroup(const std::string& name, const osg::MaterialPtr& material,
                             const osg::NodePtr& parent = {});
  osg::NodePtr light(const std::string& name, bool on, const osg::NodePtr& parent = {});
  /** Another node over the same core, its children cloned likewise. @param name empty for the
   * original's. */
  osg::NodePtr clone(const osg::NodePtr& original, const std::string& name = {},
                     const osg::NodePtr& parent = {});

  osg::NodePtr sceneplateRoot();
  osg::NodePtr sceneplate(const std::string& name, const osg::NodePtr& parent = {});
  /** A switch whose children are sceneplates of those names. */
  osg::NodePtr sceneplateSwitch(const std::string& name, int choice, const Names& children,
                                const osg::NodePtr& parent = {});

  osg::MaterialPtr material(const std::string& name);
  osg::MaterialPtr presetMaterial(const std::string& name, const Names& presets, int present);
  osg::MaterialPtr environmentMaterial(const std::string& name);
  osg::SwitchMaterialPtr switchMaterial(const std::string& name,
                                        const std::vector<osg::MaterialPtr>& materials,
                                        unsigned choice);
  osg::SwitchMaterialPtr environmentSwitchMaterial(const std::string& name,
                                                   const std::vector<osg::MaterialPtr>& materials,
                                                   unsigned choice);

  /** A camera on a node of its own, with the viewpoint of its name. */
  kuStandalone::Viewpoint& camera(const std::string& name);

  /** Sets the node's flag as data, without an edit bracket. */
  static void setActive(const osg::NodePtr& node, bool active);
  /** Gives the node a render layer that is not in its default state. */
  static kuStandalone::RenderLayerPtr renderLayer(const osg::NodePtr& node);
  static int choice(const osg::NodePtr& node);
  static unsigned transformChoice(const osg::NodePtr& node);
  static int supposedIndex(const osg::NodePtr& node);

 private:
  osg::NodePtr place(const osg::NodePtr& node, const osg::NodePtr& parent);
  osg::MaterialPtr pooled(osg::MaterialPtr material);
};
