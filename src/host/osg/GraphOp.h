#pragma once

#include <string>

#include "host/osg/Action.h"
#include "host/osg/Node.h"

namespace osg {

/**
 * An operation that a host runs over a tree of nodes, found by its name. A derived class says what
 * is done on the way down and on the way up.
 */
class KUHOST_EXPORT GraphOp {
 public:
  explicit GraphOp(const char* name) : _name(name) {}
  GraphOp(const GraphOp&) = default;
  GraphOp(GraphOp&&) = default;
  GraphOp& operator=(const GraphOp&) = default;
  GraphOp& operator=(GraphOp&&) = default;

  const std::string& getName() const { return _name; }

  /** A new operation of the same class; the caller owns it. */
  virtual GraphOp* create() = 0;

  virtual ~GraphOp();

  /** Takes the operation's parameters in the form that usage() tells. */
  virtual void setParams(std::string params) = 0;

  /** What setParams takes, for people; empty for an operation without parameters. */
  virtual std::string usage() = 0;

  /**
   * Walks the node and all below it, depth first: traverseEnter on the way down and, for each node
   * that was entered, traverseLeave with its answer on the way up. Children that are put in place
   * or taken out meanwhile are walked as they are when their turn comes. The answer is false for a
   * null node and for a walk that was told to quit.
   */
#pragma GCC diagnostic push
// A derived operation may stand before it with one that takes the handle by value.
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
  virtual bool traverse(const NodePtr& node);
#pragma GCC diagnostic pop

 private:
  /** Called before the node's children. */
  virtual Action::ResultE traverseEnter(const NodePtr& node) = 0;
  /** Called after the node's children. @param result what traverseEnter answered. */
  virtual Action::ResultE traverseLeave(const NodePtr& node, Action::ResultE result) = 0;

  Action::ResultE walk(const NodePtr& node);

  std::string _name;
};

}  // namespace osg
