#include <boost/python.hpp>

#include "host/kernel/kuLog.h"
#include "host/osg/EditCP.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/EditBrackets.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/DefineCommand.h"
#include "standalone/script/HostFunctions.h"
#include "standalone/script/LogText.h"
#include "standalone/script/NodePath.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

constexpr std::size_t kLogPathBytes = 300;

std::string nodeName(const kuNodePtr& node) {
  return node.isValid() ? SceneNode::of(node.getNode()).name() : std::string();
}

bool nodeActive(const kuNodePtr& node) { return node.isValid() && node.getNode()->getActive(); }

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

}  // namespace

kuNodePtr findNodePath(const std::string& path) {
  const osg::NodePtr node = findNodeByPath(path);
  if (!node) {
    kuLog::warning("findNodePath: there is no node at \"%s\"",
                   oneLine(path, kLogPathBytes).c_str());
  }
  return node;
}

void setNodeActive(const kuNodePtr& node, bool active) {
  if (!node.isValid()) return;
  const osg::EditCP edit(node.getNode(), osg::Node::TravMaskFieldMask);
  node.getNode()->setActive(active);
}

void defineSceneFunctions() {
  const bp::scope globals{bp::import("__main__")};
  bp::class_<kuNodePtr>("kuNodePtr", "A node of the scene, or none.")
      .def("isValid", &kuNodePtr::isValid, "Whether it holds a node.")
      .def("getName", nodeName, "The node's name; empty without a node.")
      .def("getActive", nodeActive, "The node's visibility flag; False without a node.")
      .def("setActive", setNodeActive, bp::arg("active"),
           "Sets the node's visibility flag; nothing happens without a node.");
  defineCommand("findNodePath", findNodePath, bp::arg("path"));
  defineCommand("setIgnoreMaterialGroup", setIgnoreMaterialGroup,
                (bp::arg("path"), bp::arg("ignore")));
}

}  // namespace kuStandalone
