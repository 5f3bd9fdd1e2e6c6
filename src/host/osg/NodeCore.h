#pragma once

#include <memory>
#include <vector>

#include "host/osg/FieldContainer.h"

namespace osg {

class Node;

struct NodeCoreFields;

/**
 * What a node is: its core's class says whether it is a switch, a light, a geometry. Several nodes
 * may share one core; they are then clones of one another.
 */
class KUHOST_EXPORT NodeCore : public FieldContainer {
 public:
  static const FieldContainerType _type;

  /** The nodes that bear the core; the first is the original, the others are its clones. */
  std::vector<FCPtr<Node>> getParents() const;

  /** What the host keeps about every core, defined by the host alone. */
  NodeCoreFields& hostFields() { return *_fields; }

 protected:
  explicit NodeCore(const FieldContainerType& type);
  ~NodeCore() override;

 private:
  std::unique_ptr<NodeCoreFields> _fields;
};

using NodeCorePtr = FCPtr<NodeCore>;

}  // namespace osg
