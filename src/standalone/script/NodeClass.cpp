#include <boost/python.hpp>

#include "host/osg/EditCP.h"
#include "host/osg/Switch.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/HandleClass.h"
#include "standalone/script/HostFunctions.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

/** The least choice that a switch knows. */
constexpr int kAllChildren = -2;

std::string nodeName(const kuNodePtr& node) {
  return node.isValid() ? SceneNode::of(node.getNode()).name() : std::string();
}

bool nodeActive(const kuNodePtr& node) { return node.isValid() && node.getNode()->getActive(); }

osg::SwitchPtr switchOf(const kuNodePtr& node) {
  return node.isValid() ? osg::SwitchPtr::dcast(node.getNode()->getCore()) : osg::SwitchPtr();
}

/** None where there is nothing to choose: every number is a choice of some switch. */
bp::object choice(const kuNodePtr& node) {
  const osg::SwitchPtr core = switchOf(node);
  return core ? bp::object(core->getChoice()) : bp::object();
}

void setChoice(const kuNodePtr& node, int choice) {
  const osg::SwitchPtr core = switchOf(node);
  if (!core) return;
  if (choice < kAllChildren || choice >= static_cast<long>(node.getNode()->getNChildren()))
    throwIndexError("a switch has the choices -2 for all, -1 for none, and its children's indices");
  const osg::EditCP edit(core, osg::SwitchBase::ChoiceFieldMask);
  core->setChoice(choice);
}

bp::list children(const kuNodePtr& node) {
  bp::list nodes;
  if (!node.isValid()) return nodes;
  for (const osg::NodePtr& child : SceneNode::of(node.getNode()).children())
    nodes.append(kuNodePtr(child));
  return nodes;
}

kuNodePtr parent(const kuNodePtr& node) {
  return node.isValid() ? kuNodePtr(node.getNode()->getParent()) : kuNodePtr();
}

std::string representation(const kuNodePtr& node) {
  return handleText("kuNodePtr", node.isValid(), nodeName(node));
}

}  // namespace

void setNodeActive(const kuNodePtr& node, bool active) {
  if (!node.isValid()) return;
  const osg::EditCP edit(node.getNode(), osg::Node::TravMaskFieldMask);
  node.getNode()->setActive(active);
}

void defineNodeClass() {
  const bp::scope globals{bp::import("__main__")};
  bp::class_<kuNodePtr> nodeClass(
      "kuNodePtr",
      "A node of the scene, or none. Without a node it is false, answers nothing and does nothing. "
      "Those of the same node are equal. It keeps its node, also one that the scene has no "
      "longer.",
      bp::no_init);
  defineHandle(nodeClass, "kuNodePtr()");
  const bp::arg self("self");
  defineMethod(nodeClass, "isValid", &kuNodePtr::isValid, self, "Whether it holds a node.");
  defineMethod(nodeClass, "getName", nodeName, self, "The node's name; empty without a node.");
  defineMethod(nodeClass, "getActive", nodeActive, self,
               "The node's visibility flag; False without a node.");
  defineMethod(nodeClass, "setActive", setNodeActive, (self, bp::arg("active")),
               "Sets the node's visibility flag; nothing happens without a node.");
  defineMethod(nodeClass, "getChoice", choice, self,
               "The index of the child that a switch shows, -1 for none, -2 for all; None if the "
               "node is no switch.");
  defineMethod(nodeClass, "setChoice", setChoice, (self, bp::arg("choice")),
               "Sets which child a switch shows, -1 for none, -2 for all; nothing happens if the "
               "node is no switch. IndexError for a child that there is not.");
  defineMethod(nodeClass, "getChildren", children, self,
               "The nodes right below it, as a list; empty without a node.");
  defineMethod(nodeClass, "getParent", parent, self,
               "The node right above it; a kuNodePtr that is not valid at the top.");
  nodeClass.def("__repr__", representation);
}

}  // namespace kuStandalone
