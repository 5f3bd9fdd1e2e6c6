#include <boost/python.hpp>

#include "host/osg/EditCP.h"
#include "host/osg/Switch.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/script/HostFunctions.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

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
  bp::class_<kuNodePtr>("kuNodePtr", "A node of the scene, or none.")
      .def("isValid", &kuNodePtr::isValid, bp::arg("self"), "Whether it holds a node.")
      .def("getName", nodeName, bp::arg("self"), "The node's name; empty without a node.")
      .def("getActive", nodeActive, bp::arg("self"),
           "The node's visibility flag; False without a node.")
      .def("setActive", setNodeActive, (bp::arg("self"), bp::arg("active")),
           "Sets the node's visibility flag; nothing happens without a node.")
      .def("getChoice", choice, bp::arg("self"),
           "The index of the child that a switch shows, -1 for none, -2 for all; None if the node "
           "is no switch.")
      .def("setChoice", setChoice, (bp::arg("self"), bp::arg("choice")),
           "Sets which child a switch shows; nothing happens if the node is no switch.")
      .def("getChildren", children, bp::arg("self"),
           "The nodes right below it, as a list; empty without a node.")
      .def("__repr__", representation);
}

}  // namespace kuStandalone
