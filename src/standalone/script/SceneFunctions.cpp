#include <boost/python.hpp>

#include "host/kernel/kuLog.h"
#include "host/kernel/kuScenegraph.h"
#include "host/osg/EditCP.h"
#include "host/utils/kuMaterials.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/DefineCommand.h"
#include "standalone/script/HostFunctions.h"
#include "standalone/script/LogText.h"
#include "standalone/script/NodePath.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

constexpr std::size_t kLogPathBytes = 300;

void setIgnoreMaterialGroup(const std::string& path, bool ignore) {
  const osg::NodePtr node = findNodeByPath(path);
  const osg::MaterialGroupPtr group =
      node ? osg::MaterialGroupPtr::dcast(node->getCore()) : osg::MaterialGroupPtr();
  if (!group) {
    kuLog::warning("setIgnoreMaterialGroup: there is no material group at \"%s\"",
                   oneLine(path, kLogPathBytes).c_str());
    return;
  }
  const osg::EditCP edit(group, osg::MaterialGroup::IgnoreFieldMask);
  EditBrackets::noteChange(*group, osg::MaterialGroup::IgnoreFieldMask, "setIgnoreMaterialGroup");
  MaterialGroupCore::of(group).ignore = ignore;
}

kuNodePtr findNode(const std::string& name) { return kuScenegraph::findNode(name.c_str()); }

bp::list findNodes(const std::string& name) {
  bp::list nodes;
  for (const kuNodePtr& node : kuScenegraph::findNodes(name.c_str()))
    nodes.append(node);
  return nodes;
}

kuMaterialPtr findMaterial(const std::string& name) {
  return kuMaterials::findMaterial(name.c_str());
}

bp::list findMaterials(const std::string& name) {
  bp::list materials;
  for (const kuMaterialPtr& material : kuMaterials::findMaterials(name.c_str()))
    materials.append(material);
  return materials;
}

void activateRenderLayerState(const std::string& name) {
  std::vector<RenderLayerPtr> layers;
  for (const auto& [id, node] : Scene::the().nodes.layered)
    layers.push_back(node->renderLayer());
  for (const RenderLayerPtr& layer : layers)
    layer->activateState(name);
}

}  // namespace

kuNodePtr findNodePath(const std::string& path) {
  const osg::NodePtr node = findNodeByPath(path);
  if (!node) {
    kuLog::warning("findNodePath: there is no node at \"%s\"",
                   oneLine(path, kLogPathBytes).c_str());
  }
  return node;
}

void defineSceneFunctions() {
  const bp::scope globals{bp::import("__main__")};
  // What a script alone may call; those behind it are commands.
  defineFunction("findNode", findNode, bp::arg("name"),
                 "The first node of that name; a kuNodePtr that is not valid if there is none.");
  defineFunction("findNodes", findNodes, bp::arg("name"),
                 "All nodes of that name, clones included, as a list.");
  defineFunction(
      "findMaterial", findMaterial, bp::arg("name"),
      "The first material of that name; a kuMaterialPtr that is not valid if there is none.");
  defineFunction("findMaterials", findMaterials, bp::arg("name"),
                 "All materials of that name, as a list.");
  defineCommand("findNodePath", findNodePath, bp::arg("path"),
                "The node of that path: the names from below the scene's root down to the node, "
                "joined by \"/\". A kuNodePtr that is not valid, and a warning, if there is none.");
  defineCommand("setIgnoreMaterialGroup", setIgnoreMaterialGroup,
                (bp::arg("path"), bp::arg("ignore")),
                "Has the material group of that path ignored or not.");
  defineCommand("activateRenderLayerState", activateRenderLayerState, bp::arg("name"),
                "Gives every node that has a render layer its stored state of that name, or the "
                "default one where it has none of that name.");
}

}  // namespace kuStandalone
