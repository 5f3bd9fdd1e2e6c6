#include "host/osg/GraphOp.h"

namespace osg {

GraphOp::~GraphOp() = default;

bool GraphOp::traverse(const NodePtr& node) { return node && walk(node) != Action::Quit; }

Action::ResultE GraphOp::walk(const NodePtr& node) {
  const NodePtr held = node;  // a visitor may take it out of the tree
  const Action::ResultE entered = traverseEnter(held);
  if (entered == Action::Continue) {
    for (unsigned i = 0; i < held->getNChildren(); ++i) {
      const Action::ResultE below = walk(held->getChild(i));
      if (below == Action::Quit) return Action::Quit;
      if (below == Action::Break) break;
    }
  } else if (entered == Action::Quit) {
    return Action::Quit;
  }
  const Action::ResultE left = traverseLeave(held, entered);
  return left == Action::Continue ? entered : left;
}

}  // namespace osg
