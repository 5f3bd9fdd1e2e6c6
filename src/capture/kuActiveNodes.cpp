#include "capture/kuActiveNodes.h"

#include <vector>

#include "host/utils/kuNodeUtils.h"

kuActiveNodes* kuActiveNodes::_present = nullptr;

kuActiveNodes::kuActiveNodes() : _outer(_present) { _present = this; }

kuActiveNodes::~kuActiveNodes() { _present = _outer; }

bool kuActiveNodes::differ(const osg::NodePtr& node) {
  if (_present) return _present->differsFromNamesakes(node);
  kuActiveNodes once;
  return once.differsFromNamesakes(node);
}

bool kuActiveNodes::differsFromNamesakes(const osg::NodePtr& node) {
  if (!_looked) lookThrough();
  const Flags flags = _flags.value(kuNodeUtils::getName(node));
  return node->getActive() ? flags.inactive : flags.active;
}

void kuActiveNodes::lookThrough() {
  _looked = true;
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, false);
  for (const kuNodePtr& node : nodes) {
    Flags& flags = _flags[kuNodeUtils::getName(node)];
    (node.getNode()->getActive() ? flags.active : flags.inactive) = true;
  }
}
